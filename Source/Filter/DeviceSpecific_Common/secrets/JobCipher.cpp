#include "secrets/JobCipher.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "secrets/Aes.h"
#include "secrets/KeyRecords.h"
#include "secrets/Sha256.h"
#include "secrets/Wipe.h"

namespace DeviceSpecificModule {
namespace {

struct CipherKey {
    Sha256Bytes Key;
    AesBlock Vector;
};

void ChooseSeed(KeySeed& seedOut, const std::uint8_t* seed, std::int32_t primaryId,
                std::int32_t secondaryId) {
    if (primaryId == CallerSeedId) {
        std::copy_n(seed, seedOut.size(), seedOut.begin());
    } else {
        PermuteKeyRecord(seedOut, *FindKeyRecord(primaryId, secondaryId));
    }
}

void DeriveKey(CipherKey& keyOut, const KeySeed& seed) {
    constexpr std::size_t half = std::tuple_size_v<KeySeed> / 2;
    Sha256Digest(seed.data(), half, keyOut.Key);
    Wiped<Sha256Bytes> digest;
    Sha256Digest(seed.data() + half, half, digest.Value);
    std::copy_n(digest.Value.begin(), keyOut.Vector.size(), keyOut.Vector.begin());
}

void MakeKey(CipherKey& keyOut, const std::uint8_t* seed, std::int32_t primaryId, std::int32_t secondaryId) {
    Wiped<KeySeed> chosen;
    ChooseSeed(chosen.Value, seed, primaryId, secondaryId);
    DeriveKey(keyOut, chosen.Value);
}

// Gives the length with the padding.
std::uint32_t AddPadding(std::uint8_t* buffer, std::uint32_t length) {
    const std::size_t count = AesBlockBytes - length % AesBlockBytes;
    std::fill_n(buffer + length, count, static_cast<std::uint8_t>(count - 1));
    return static_cast<std::uint32_t>(length + count);
}

// Gives the length without the padding, negative when the last byte asks for more than there is.
std::int32_t ClearPadding(std::uint8_t* buffer, std::uint32_t length) {
    const std::uint32_t last = buffer[length - 1];
    const std::uint32_t cleared = std::min(last + 1, length);
    std::fill_n(buffer + length - cleared, cleared, std::uint8_t{0});
    return static_cast<std::int32_t>(length - 1 - last);
}

}  // namespace

void EncryptJobSecret(std::uint8_t* buffer, std::uint32_t length, std::uint8_t noPadding,
                      const std::uint8_t* seed, std::int32_t* outLength, std::int32_t primaryId,
                      std::int32_t secondaryId) {
    if (buffer == nullptr || seed == nullptr || outLength == nullptr) return;
    Wiped<CipherKey> key;
    MakeKey(key.Value, seed, primaryId, secondaryId);
    const std::uint32_t paddedLength = noPadding == 0 ? AddPadding(buffer, length) : length;
    *outLength = static_cast<std::int32_t>(paddedLength);
    Wiped<AesContext> context;
    AesSetKey(context.Value, key.Value.Key.data(), key.Value.Key.size());
    AesCbcEncrypt(context.Value, buffer, buffer, paddedLength, key.Value.Vector, AesEncryptBlock);
}

void DecryptJobSecret(std::uint8_t* buffer, std::uint32_t length, const std::uint8_t* seed,
                      std::int32_t* outLength, std::int32_t primaryId, std::int32_t secondaryId) {
    if (buffer == nullptr || seed == nullptr || outLength == nullptr) return;
    Wiped<CipherKey> key;
    MakeKey(key.Value, seed, primaryId, secondaryId);
    Wiped<AesContext> context;
    AesSetKey(context.Value, key.Value.Key.data(), key.Value.Key.size());
    AesMakeDecryptionKey(context.Value);
    AesCbcDecrypt(context.Value, buffer, buffer, length, key.Value.Vector, AesDecryptBlock);
    *outLength = length == 0 ? 0 : ClearPadding(buffer, length);
}

}  // namespace DeviceSpecificModule
