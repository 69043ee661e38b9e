#include "secrets/Aes.h"

#include <algorithm>
#include <bit>

#include "secrets/AesTables.h"

namespace DeviceSpecificModule {
namespace {

constexpr std::size_t Columns = 4;  // of the state and of every round key

using State = std::array<std::uint32_t, Columns>;  // a column a word, its first byte on top

constexpr std::uint8_t ByteAt(std::uint32_t word, unsigned position) {
    return static_cast<std::uint8_t>(word >> (24 - 8 * position));
}

std::uint32_t LoadWord(const std::uint8_t* bytes) {
    std::uint32_t word = 0;
    for (std::size_t position = 0; position < 4; ++position) word = word << 8 | bytes[position];
    return word;
}

State LoadState(const std::uint8_t* in, const std::uint32_t* roundKey) {
    State state;
    for (std::size_t column = 0; column < Columns; ++column) {
        state[column] = LoadWord(in + 4 * column) ^ roundKey[column];
    }
    return state;
}

void StoreState(std::uint8_t* out, const State& state) {
    for (const std::uint32_t column : state) {
        for (unsigned position = 0; position < 4; ++position) *out++ = ByteAt(column, position);
    }
}

// The column that row `row` of column `column` comes from. Rows are shifted to the left on encryption, which
// is a Step of 1, and back on decryption, which is a Step of 3, as columns count modulo 4.
template <std::size_t Step>
constexpr std::size_t ShiftedColumn(std::size_t column, unsigned row) {
    return (column + Step * row) % Columns;
}

template <std::size_t Step>
State InnerRound(const AesRoundTables& tables, const State& state, const std::uint32_t* roundKey) {
    State next;
    for (std::size_t column = 0; column < Columns; ++column) {
        next[column] = roundKey[column];
        for (unsigned row = 0; row < 4; ++row) {
            next[column] ^= tables[row][ByteAt(state[ShiftedColumn<Step>(column, row)], row)];
        }
    }
    return next;
}

// The last round does not mix columns, so it takes the plain substitution.
template <std::size_t Step>
State LastRound(const AesByteTable& substitution, const State& state, const std::uint32_t* roundKey) {
    State next;
    for (std::size_t column = 0; column < Columns; ++column) {
        std::uint32_t word = 0;
        for (unsigned row = 0; row < 4; ++row) {
            word = word << 8 | substitution[ByteAt(state[ShiftedColumn<Step>(column, row)], row)];
        }
        next[column] = word ^ roundKey[column];
    }
    return next;
}

std::uint32_t SubstituteWord(std::uint32_t word) {
    std::uint32_t substituted = 0;
    for (unsigned position = 0; position < 4; ++position) {
        substituted = substituted << 8 | AesTables.Substitution[ByteAt(word, position)];
    }
    return substituted;
}

std::uint32_t UnmixWord(std::uint32_t word) {
    std::uint32_t unmixed = 0;
    for (unsigned position = 0; position < 4; ++position) {
        // The decryption tables undo the substitution first, so the byte goes in substituted.
        unmixed ^= AesTables.Decryption[position][AesTables.Substitution[ByteAt(word, position)]];
    }
    return unmixed;
}

std::uint32_t ExpandedWord(const AesContext& context, std::size_t index) {
    const std::size_t keyWords = context.KeyWords;
    std::uint32_t word = context.ExpandedKey[index - 1];
    if (index % keyWords == 0) {
        word = SubstituteWord(std::rotl(word, 8)) ^ AesTables.RoundConstants[index / keyWords - 1];
    } else if (keyWords > 6 && index % keyWords == 4) {
        word = SubstituteWord(word);
    }
    return word ^ context.ExpandedKey[index - keyWords];
}

void ExclusiveOr(std::uint8_t* bytes, const std::uint8_t* other) {
    for (std::size_t position = 0; position < AesBlockBytes; ++position) bytes[position] ^= other[position];
}

}  // namespace

std::int32_t AesSetKey(AesContext& context, const std::uint8_t* key, std::size_t keyBytes) {
    if (keyBytes != 16 && keyBytes != 24 && keyBytes != 32) return 1;
    context.KeyWords = static_cast<std::uint32_t>(keyBytes / 4);
    context.Rounds = context.KeyWords + 6;
    for (std::size_t index = 0; index < context.KeyWords; ++index) {
        context.ExpandedKey[index] = LoadWord(key + 4 * index);
    }
    for (std::size_t index = context.KeyWords; index < Columns * (context.Rounds + 1); ++index) {
        context.ExpandedKey[index] = ExpandedWord(context, index);
    }
    return 0;
}

void AesMakeDecryptionKey(AesContext& context) {
    // The first and the last round key meet no mixed columns.
    for (std::size_t index = Columns; index < Columns * context.Rounds; ++index) {
        context.ExpandedKey[index] = UnmixWord(context.ExpandedKey[index]);
    }
}

void AesEncryptBlock(const AesContext& context, std::uint8_t* out, const std::uint8_t* in) {
    const std::uint32_t* roundKey = context.ExpandedKey.data();
    State state = LoadState(in, roundKey);
    for (std::uint32_t round = 1; round < context.Rounds; ++round) {
        roundKey += Columns;
        state = InnerRound<1>(AesTables.Encryption, state, roundKey);
    }
    StoreState(out, LastRound<1>(AesTables.Substitution, state, roundKey + Columns));
}

void AesDecryptBlock(const AesContext& context, std::uint8_t* out, const std::uint8_t* in) {
    const std::uint32_t* roundKey = context.ExpandedKey.data() + Columns * context.Rounds;
    State state = LoadState(in, roundKey);
    for (std::uint32_t round = 1; round < context.Rounds; ++round) {
        roundKey -= Columns;
        state = InnerRound<3>(AesTables.Decryption, state, roundKey);
    }
    StoreState(out, LastRound<3>(AesTables.InverseSubstitution, state, roundKey - Columns));
}

void AesCbcEncrypt(const AesContext& context, std::uint8_t* out, const std::uint8_t* in, std::size_t length,
                   AesBlock& iv, AesBlockFunction* blockFunction) {
    for (std::size_t blocks = length / AesBlockBytes; blocks > 0; --blocks) {
        ExclusiveOr(iv.data(), in);
        blockFunction(context, iv.data(), iv.data());
        std::copy(iv.begin(), iv.end(), out);
        in += AesBlockBytes;
        out += AesBlockBytes;
    }
}

void AesCbcDecrypt(const AesContext& context, std::uint8_t* out, const std::uint8_t* in, std::size_t length,
                   AesBlock& iv, AesBlockFunction* blockFunction) {
    for (std::size_t blocks = length / AesBlockBytes; blocks > 0; --blocks) {
        AesBlock ciphertext;  // kept for the next block, as `out` may be `in`
        std::copy_n(in, AesBlockBytes, ciphertext.begin());
        blockFunction(context, out, in);
        ExclusiveOr(out, iv.data());
        iv = ciphertext;
        in += AesBlockBytes;
        out += AesBlockBytes;
    }
}

}  // namespace DeviceSpecificModule
