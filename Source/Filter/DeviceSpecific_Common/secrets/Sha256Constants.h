#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// The constants of SHA-256, worked out by the compiler from their definition: the first 32 bits of the
// fractional parts of roots of the first primes. For Sha256.cpp alone.

namespace DeviceSpecificModule::Sha256Constants {

// A radicand is a prime below 2^9 shifted by up to 96 bits.
__extension__ typedef unsigned __int128 Radicand;

template <std::size_t Count>
constexpr std::array<std::uint32_t, Count> FirstPrimes() {
    std::array<std::uint32_t, Count> primes{};
    std::size_t found = 0;
    for (std::uint32_t candidate = 2; found < Count; ++candidate) {
        bool isPrime = true;
        for (std::size_t index = 0; index < found; ++index) {
            if (candidate % primes[index] == 0) isPrime = false;
        }
        if (isPrime) primes[found++] = candidate;
    }
    return primes;
}

constexpr Radicand Power(Radicand base, int degree) {
    Radicand power = 1;
    for (; degree > 0; --degree) power *= base;
    return power;
}

// The root of `prime`, of degree 2 or 3, times 2^32 and rounded down, without its integer part. Found bit by
// bit; the integer parts are at most 6, so 35 bits are enough.
constexpr std::uint32_t RootFraction(std::uint32_t prime, int degree) {
    const Radicand radicand = static_cast<Radicand>(prime) << (32 * degree);
    Radicand root = 0;
    for (int bit = 34; bit >= 0; --bit) {
        const Radicand candidate = root | static_cast<Radicand>(1) << bit;
        if (Power(candidate, degree) <= radicand) root = candidate;
    }
    return static_cast<std::uint32_t>(root);
}

template <std::size_t Count>
constexpr std::array<std::uint32_t, Count> RootFractions(int degree) {
    std::array<std::uint32_t, Count> words = FirstPrimes<Count>();
    for (std::uint32_t& word : words) word = RootFraction(word, degree);
    return words;
}

inline constexpr std::array<std::uint32_t, 8> InitialState = RootFractions<8>(2);
inline constexpr std::array<std::uint32_t, 64> RoundConstants = RootFractions<64>(3);

}  // namespace DeviceSpecificModule::Sha256Constants
