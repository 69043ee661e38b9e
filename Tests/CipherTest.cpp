#include <gtest/gtest.h>
#include <openssl/evp.h>
#include <openssl/sha.h>

#include <algorithm>
#include <random>

#include "Cases.h"
#include "secrets/Aes.h"
#include "secrets/JobCipher.h"
#include "secrets/KeyRecordTable.h"
#include "secrets/Sha256.h"
#include "secrets/Wipe.h"

namespace DeviceSpecificModule {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes FromHex(const Json::Value& value, const char* tail = "") {
    const std::string text = value.asString() + tail;
    Bytes bytes;
    for (std::size_t at = 0; at < text.size(); at += 2)
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(text.substr(at, 2), nullptr, 16)));
    return bytes;
}

Bytes RandomBytes(std::mt19937& random, std::size_t count) {
    Bytes bytes(count);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
}

// Whole blocks enciphered by OpenSSL under a key seed; a tail stays as it is.
Bytes OpenSslCipher(const KeySeed& seed, Bytes bytes) {
    Sha256Bytes key, vector;
    SHA256(seed.data(), 10, key.data());
    SHA256(seed.data() + 10, 10, vector.data());
    int written = -1, whole = static_cast<int>(bytes.size() / 16 * 16);
    EVP_CIPHER_CTX* context = EVP_CIPHER_CTX_new();
    EVP_EncryptInit_ex(context, EVP_aes_256_cbc(), nullptr, key.data(), vector.data());
    EVP_CIPHER_CTX_set_padding(context, 0);
    EVP_EncryptUpdate(context, bytes.data(), &written, bytes.data(), whole);
    EVP_CIPHER_CTX_free(context);
    EXPECT_EQ(written, whole);
    return bytes;
}

// Bytes, with room for some more, between canaries. They begin off every word boundary.
constexpr std::size_t Front = 13;
Bytes Fenced(Bytes bytes, std::size_t room = 0) {
    bytes.insert(bytes.begin(), Front, 0xca);
    bytes.insert(bytes.end(), room + 16, 0xca);
    return bytes;
}

TEST(Aes, ChainsPublishedVectorsAndLeavesTheTail) {
    for (const Json::Value& each : ReadCases("ciphers/aes-cbc.json")) {
        const Bytes key = FromHex(each[0]), start = FromHex(each[1]), cipher = FromHex(each[3], "7788");
        Bytes inPlace = FromHex(each[2], "7788"), apart(cipher.size(), 0x55);
        AesContext context{};
        ASSERT_EQ(AesSetKey(context, key.data(), key.size()), 0);
        EXPECT_EQ(AesSetKey(context, key.data(), key.size() - 1), 1);  // no change, as the rest shows
        EXPECT_EQ(AesSetKey(context, key.data(), key.size() + 1), 1);
        AesBlock chain;
        std::ranges::copy(start, chain.begin());
        AesCbcEncrypt(context, inPlace.data(), inPlace.data(), cipher.size(), chain, AesEncryptBlock);
        EXPECT_EQ(inPlace, cipher);
        EXPECT_TRUE(std::equal(chain.begin(), chain.end(), cipher.end() - 18));
        AesMakeDecryptionKey(context);
        std::ranges::copy(start, chain.begin());
        AesCbcDecrypt(context, apart.data(), cipher.data(), cipher.size(), chain, AesDecryptBlock);
        EXPECT_EQ(apart, FromHex(each[2], "5555"));
        EXPECT_TRUE(std::equal(chain.begin(), chain.end(), cipher.end() - 18));
    }
}

TEST(Sha256, DigestsMessagesOfAllLengths) {
    for (const Json::Value& each : ReadCases("ciphers/sha256.json")) {
        Bytes message = FromHex(each[0]);
        const std::size_t length = each[1].asUInt();
        for (std::size_t at = 0; message.size() < length; ++at) message.push_back(message[at]);
        Sha256Bytes digest;
        Sha256Digest(message.data(), length, digest);
        EXPECT_EQ(Bytes(digest.begin(), digest.end()), FromHex(each[2])) << length;
    }
}

TEST(KeyRecords, AreFoundAndPermuted) {
    const KeyRecord table[] = {{5, 0, {1}}, {5, 7, {2}},  {9, 4, {3}}, {9, 0, {4}},
                               {9, 6, {5}}, {-3, 2, {6}}, {2, 6, {7}}, {-1, 8, {99}}};
    const int cases[][3] = {{5, 0, 1},  {5, 7, 2}, {5, 4, 99}, {9, 0, 3},  {9, 4, 3},   {9, 6, 5},
                            {-3, 0, 6}, {2, 6, 7}, {2, 8, 99}, {6, 6, 99}, {-1, 0, 99}, {-1, 6, 99}};
    for (const auto& [primary, secondary, mark] : cases)
        EXPECT_EQ(FindKeyRecordIn(table, primary, secondary)->front(), mark) << primary << ',' << secondary;
    KeySeed seed{};
    PermuteKeyRecord(seed, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19});
    EXPECT_EQ(seed, (KeySeed{0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 19, 17, 15, 13, 11, 9, 7, 5, 3, 1}));
}

// Ten rounds for each length from 0 to 1000, two or three of them without padding. One seed in nine is the
// caller's, the others are those of rows of the table.
TEST(JobCipher, AgreesWithOpenSslAndDeciphersWhatItEnciphered) {
    const int records[][3] = {{0, 1, -1},  {1, 0, 0},  {1, 1, 1},   {1, 2, 2},  {2, 0, 3},
                              {12, 1, 12}, {2, 9, 13}, {77, 1, 13}, {-1, 0, 13}};
    std::mt19937 random(20240917);
    for (std::uint32_t round = 0; round < 10010; ++round) {
        const auto& [primary, secondary, row] = records[round % 9];
        const Bytes callers = RandomBytes(random, 20);
        KeySeed seed{};
        if (row < 0) std::ranges::copy(callers, seed.begin());
        if (row >= 0) PermuteKeyRecord(seed, KeyRecordTable[row].StoredSeed);

        const std::uint8_t noPadding = round % 4 == 0 ? 0x80 : 0;
        const std::uint32_t length = round % 1001, missing = noPadding == 0 ? 16 - length % 16 : 0;
        Bytes plain = RandomBytes(random, length), padded = plain, fenced = Fenced(plain, missing);
        padded.insert(padded.end(), missing, static_cast<std::uint8_t>(missing - 1));
        std::int32_t outLength = -12345;
        EncryptJobSecret(&fenced[Front], length, noPadding, callers.data(), &outLength, primary, secondary);
        ASSERT_EQ(outLength, static_cast<int>(length + missing));
        ASSERT_EQ(fenced, Fenced(OpenSslCipher(seed, padded))) << length << ", row " << row;
        if (noPadding != 0) continue;
        DecryptJobSecret(&fenced[Front], length + missing, callers.data(), &outLength, primary, secondary);
        ASSERT_EQ(outLength, static_cast<int>(length));
        plain.resize(length + missing, 0);
        ASSERT_EQ(fenced, Fenced(plain)) << length << ", row " << row;
    }
}

// A length below 16 deciphers nothing. A tail, such as the last 4 of 20 bytes, is not deciphered either: its
// own last byte counts as the padding's.
TEST(JobCipher, TakesAnyLastByteForPadding) {
    const KeySeed seed{40};
    std::mt19937 random(40);
    for (std::uint32_t length = 0; length <= 40; ++length) {
        for (std::uint32_t last = 0; last < (length == 0 ? 1 : 256); ++last) {
            Bytes plain = RandomBytes(random, length);
            if (length > 0) plain.back() = static_cast<std::uint8_t>(last);
            Bytes fenced = Fenced(OpenSslCipher(seed, plain));
            for (std::uint32_t at = length; at > 0 && at + last >= length; --at) plain[at - 1] = 0;
            std::int32_t outLength = -12345;
            DecryptJobSecret(&fenced[Front], length, seed.data(), &outLength, 0, 0);
            ASSERT_EQ(outLength, length == 0 ? 0 : static_cast<int>(length) - 1 - static_cast<int>(last));
            ASSERT_EQ(fenced, Fenced(plain)) << length << ',' << last;
        }
    }
}

TEST(JobCipher, DoesNothingWithoutAnArgument) {
    const Bytes seed(20, 1), plain(32, 5);
    for (int missing = 0; missing < 6; ++missing) {
        Bytes bytes = plain;
        std::int32_t length = -12345, *const out = missing / 2 == 2 ? nullptr : &length;
        std::uint8_t* const buffer = missing / 2 == 0 ? nullptr : bytes.data();
        const std::uint8_t* const seedBytes = missing / 2 == 1 ? nullptr : seed.data();
        EncryptJobSecret(buffer, 16, 0, seedBytes, out, missing % 2, 0);
        DecryptJobSecret(buffer, 16, seedBytes, out, missing % 2, 0);
        EXPECT_TRUE(bytes == plain && length == -12345) << missing;
    }
}

TEST(Wipe, LeavesZerosBehind) {
    unsigned char storage[sizeof(Wiped<KeySeed>)];
    auto* seed = new (storage) Wiped<KeySeed>;
    seed->Value.fill(0xff);
    seed->~Wiped();
    const volatile unsigned char* left = storage;
    for (std::size_t at = 0; at < sizeof storage; ++at) EXPECT_EQ(left[at], 0) << at;
}

}  // namespace
}  // namespace DeviceSpecificModule
