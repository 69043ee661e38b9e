#include "secrets/Sha256.h"

#include <bit>

#include "secrets/Sha256Constants.h"
#include "secrets/Wipe.h"

namespace DeviceSpecificModule {
namespace {

constexpr std::uint32_t BlockBytes = 64;
constexpr std::uint32_t LengthPosition = 56;  // of the bit count, in the last block

using StateWords = std::array<std::uint32_t, 8>;
using BlockWords = std::array<std::uint32_t, 16>;

struct Sha256Context {
    StateWords State;
    std::uint32_t BitLengthLow;
    std::uint32_t BitLengthHigh;
    BlockWords Block;         // filled big-endian as bytes arrive
    std::uint32_t BytesHeld;  // in Block, 0 to 63
    void (*ProcessBlock)(Sha256Context& context);
};

constexpr std::uint32_t BigSigma0(std::uint32_t x) {
    return std::rotr(x, 2) ^ std::rotr(x, 13) ^ std::rotr(x, 22);
}
constexpr std::uint32_t BigSigma1(std::uint32_t x) {
    return std::rotr(x, 6) ^ std::rotr(x, 11) ^ std::rotr(x, 25);
}
constexpr std::uint32_t SmallSigma0(std::uint32_t x) { return std::rotr(x, 7) ^ std::rotr(x, 18) ^ (x >> 3); }
constexpr std::uint32_t SmallSigma1(std::uint32_t x) {
    return std::rotr(x, 17) ^ std::rotr(x, 19) ^ (x >> 10);
}
constexpr std::uint32_t Choose(std::uint32_t x, std::uint32_t y, std::uint32_t z) {
    return (x & y) ^ (~x & z);
}
constexpr std::uint32_t Majority(std::uint32_t x, std::uint32_t y, std::uint32_t z) {
    return (x & y) ^ (x & z) ^ (y & z);
}

// The message schedule needs only its last sixteen words, so it runs over the block itself and leaves no copy
// of the message to wipe.
std::uint32_t ScheduleWord(BlockWords& block, std::size_t round) {
    std::uint32_t& word = block[round % 16];
    if (round >= 16) {
        word += SmallSigma1(block[(round - 2) % 16]) + block[(round - 7) % 16] +
                SmallSigma0(block[(round - 15) % 16]);
    }
    return word;
}

void ProcessBlock(Sha256Context& context) {
    Wiped<StateWords> working;
    working.Value = context.State;
    auto& [a, b, c, d, e, f, g, h] = working.Value;
    for (std::size_t round = 0; round < 64; ++round) {
        const std::uint32_t first = h + BigSigma1(e) + Choose(e, f, g) +
                                    Sha256Constants::RoundConstants[round] +
                                    ScheduleWord(context.Block, round);
        const std::uint32_t second = BigSigma0(a) + Majority(a, b, c);
        h = g;
        g = f;
        f = e;
        e = d + first;
        d = c;
        c = b;
        b = a;
        a = first + second;
    }
    for (std::size_t index = 0; index < context.State.size(); ++index) {
        context.State[index] += working.Value[index];
    }
    context.BytesHeld = 0;
}

void AddByte(Sha256Context& context, std::uint8_t byte) {
    // Four bytes go into every word, so what a word held of the block before is shifted out.
    std::uint32_t& word = context.Block[context.BytesHeld / 4];
    word = word << 8 | byte;
    if (++context.BytesHeld == BlockBytes) context.ProcessBlock(context);
}

void Finish(Sha256Context& context) {
    AddByte(context, 0x80);
    while (context.BytesHeld != LengthPosition) AddByte(context, 0);
    context.Block[14] = context.BitLengthHigh;
    context.Block[15] = context.BitLengthLow;
    context.ProcessBlock(context);
}

}  // namespace

void Sha256Digest(const std::uint8_t* data, std::size_t length, Sha256Bytes& digestOut) {
    Wiped<Sha256Context> wiped;
    Sha256Context& context = wiped.Value;
    const std::uint64_t bitLength = static_cast<std::uint64_t>(length) * 8;
    context.State = Sha256Constants::InitialState;
    context.BitLengthLow = static_cast<std::uint32_t>(bitLength);
    context.BitLengthHigh = static_cast<std::uint32_t>(bitLength >> 32);
    context.ProcessBlock = ProcessBlock;
    for (std::size_t position = 0; position < length; ++position) AddByte(context, data[position]);
    Finish(context);
    for (std::size_t position = 0; position < digestOut.size(); ++position) {
        digestOut[position] =
            static_cast<std::uint8_t>(context.State[position / 4] >> (24 - 8 * (position % 4)));
    }
}

}  // namespace DeviceSpecificModule
