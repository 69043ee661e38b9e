#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// The AES block cipher of FIPS 197 and the cipher block chaining of NIST SP 800-38A.
//
// Set a key, turn it into a decryption key if blocks are to be deciphered, then hand the context to a
// chaining loop together with the block function of the same direction. Nothing here allocates, throws or
// keeps state outside the arguments. Lookups depend on key and data, so somebody who measures the memory
// caches of the running process may learn about both.

namespace DeviceSpecificModule {

inline constexpr std::size_t AesBlockBytes = 16;

using AesBlock = std::array<std::uint8_t, AesBlockBytes>;

// An expanded key. It is key material: keep it in a Wiped<AesContext>.
struct AesContext {
    std::uint32_t Rounds;                       // 10, 12 or 14
    std::uint32_t KeyWords;                     // 4, 6 or 8
    std::array<std::uint32_t, 60> ExpandedKey;  // 4 * (Rounds + 1) words in use, the first key byte on top
};

// Expands a key of 16, 24 or 32 bytes for encryption and gives 0. Any other length gives 1 and leaves the
// context as it was.
std::int32_t AesSetKey(AesContext& context, const std::uint8_t* key, std::size_t keyBytes);

// Turns a context fresh from AesSetKey into the form that AesDecryptBlock needs. Once only: a second call
// makes the context useless.
void AesMakeDecryptionKey(AesContext& context);

// One block of 16 bytes from `in` to `out`, which may be the same and need no alignment.
using AesBlockFunction = void(const AesContext& context, std::uint8_t* out, const std::uint8_t* in);

AesBlockFunction AesEncryptBlock;
AesBlockFunction AesDecryptBlock;

// The chaining loops: `length` / 16 whole blocks from `in` to `out`, which may be the same but must not
// overlap otherwise. A tail of fewer than 16 bytes is neither read nor written. `iv` is the initialisation
// vector and holds the last chaining value, the last ciphertext block, at the end, so that a next call goes
// on from there.
void AesCbcEncrypt(const AesContext& context, std::uint8_t* out, const std::uint8_t* in, std::size_t length,
                   AesBlock& iv, AesBlockFunction* blockFunction);
void AesCbcDecrypt(const AesContext& context, std::uint8_t* out, const std::uint8_t* in, std::size_t length,
                   AesBlock& iv, AesBlockFunction* blockFunction);

}  // namespace DeviceSpecificModule
