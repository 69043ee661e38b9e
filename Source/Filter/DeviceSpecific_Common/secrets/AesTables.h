#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

// The tables of the AES, worked out by the compiler from the arithmetic of its field, so that no digit of
// them can be mistyped. For Aes.cpp alone.

namespace DeviceSpecificModule::AesField {

// A byte is a polynomial over GF(2), bit 0 the constant term, modulo x^8 + x^4 + x^3 + x + 1.
constexpr std::uint8_t Double(std::uint8_t value) {
    return static_cast<std::uint8_t>((value << 1) ^ ((value & 0x80) != 0 ? 0x11b : 0));
}

constexpr std::uint8_t Multiply(std::uint8_t left, std::uint8_t right) {
    std::uint8_t product = 0;
    for (; right != 0; right = static_cast<std::uint8_t>(right >> 1)) {
        if ((right & 1) != 0) product ^= left;
        left = Double(left);
    }
    return product;
}

// The multiplicative inverse, and 0 for 0: value^254, since value^255 is 1 for every other value.
constexpr std::uint8_t Inverse(std::uint8_t value) {
    std::uint8_t power = 1;
    for (int bit = 7; bit >= 0; --bit) {
        power = Multiply(power, power);
        if (((254 >> bit) & 1) != 0) power = Multiply(power, value);
    }
    return power;
}

constexpr std::uint8_t Substitute(std::uint8_t value) {
    const std::uint8_t inverse = Inverse(value);
    return static_cast<std::uint8_t>(inverse ^ std::rotl(inverse, 1) ^ std::rotl(inverse, 2) ^
                                     std::rotl(inverse, 3) ^ std::rotl(inverse, 4) ^ 0x63);
}

// What a column mix makes of one byte: the byte times each of four factors, the first product most
// significant.
constexpr std::uint32_t MixColumn(std::uint8_t value, const std::array<std::uint8_t, 4>& factors) {
    std::uint32_t column = 0;
    for (const std::uint8_t factor : factors) column = column << 8 | Multiply(value, factor);
    return column;
}

}  // namespace DeviceSpecificModule::AesField

namespace DeviceSpecificModule {

using AesByteTable = std::array<std::uint8_t, 256>;

// Table n belongs to the byte at position n of a column, counted from the most significant: it joins the
// substitution of that byte with what the byte adds to each byte of the mixed column.
using AesRoundTables = std::array<std::array<std::uint32_t, 256>, 4>;

struct AesTableSet {
    AesByteTable Substitution;
    AesByteTable InverseSubstitution;
    AesRoundTables Encryption;
    AesRoundTables Decryption;
    std::array<std::uint32_t, 10> RoundConstants;  // as many as the shortest key needs, in the top byte
};

constexpr AesTableSet MakeAesTables() {
    AesTableSet tables{};
    for (std::size_t value = 0; value < 256; ++value) {
        const std::uint8_t substitute = AesField::Substitute(static_cast<std::uint8_t>(value));
        tables.Substitution[value] = substitute;
        tables.InverseSubstitution[substitute] = static_cast<std::uint8_t>(value);
    }
    for (std::size_t value = 0; value < 256; ++value) {
        const std::uint32_t mixed = AesField::MixColumn(tables.Substitution[value], {2, 1, 1, 3});
        const std::uint32_t unmixed = AesField::MixColumn(tables.InverseSubstitution[value], {14, 9, 13, 11});
        for (int position = 0; position < 4; ++position) {
            tables.Encryption[static_cast<std::size_t>(position)][value] = std::rotr(mixed, 8 * position);
            tables.Decryption[static_cast<std::size_t>(position)][value] = std::rotr(unmixed, 8 * position);
        }
    }
    std::uint8_t constant = 1;
    for (std::uint32_t& word : tables.RoundConstants) {
        word = static_cast<std::uint32_t>(constant) << 24;
        constant = AesField::Double(constant);
    }
    return tables;
}

inline constexpr AesTableSet AesTables = MakeAesTables();

}  // namespace DeviceSpecificModule
