#include <gtest/gtest.h>
#include <json/writer.h>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/sha.h>
#include <stdlib.h>

#include <stdexcept>
#include <tuple>

#include "Support.h"
#include "devicespecific/platform/CodePages.h"
#include "secrets/EncryptionId.h"
#include "secrets/HexText.h"
#include "secrets/KeyRecordTable.h"
#include "secrets/Passphrase.h"
#include "secrets/SecretPreparation.h"

namespace DeviceSpecificModule {
namespace {

const std::string wrappingSeed = "01ts##yVJtctVhxgRpb1";

unsigned char* BytesOf(std::string& text) { return reinterpret_cast<unsigned char*>(text.data()); }

std::string Hex(std::string bytes) {
    std::string text(2 * bytes.size() + 1, '\0');
    OPENSSL_buf2hexstr_ex(text.data(), text.size(), nullptr, BytesOf(bytes), bytes.size(), '\0');
    text.pop_back();
    return text;
}

// Whole blocks enciphered under the first 20 bytes of a seed, by OpenSSL.
std::string Blocks(std::string bytes, std::string seed) {
    seed.resize(20);
    unsigned char key[32], vector[32];
    SHA256(BytesOf(seed), 10, key);
    SHA256(BytesOf(seed) + 10, 10, vector);
    int written = 0;
    EVP_CIPHER_CTX* context = EVP_CIPHER_CTX_new();
    EVP_EncryptInit_ex(context, EVP_aes_256_cbc(), nullptr, key, vector);
    EVP_CIPHER_CTX_set_padding(context, 0);
    EVP_EncryptUpdate(context, BytesOf(bytes), &written, BytesOf(bytes), static_cast<int>(bytes.size()));
    EVP_CIPHER_CTX_free(context);
    return bytes;
}

// The same of any bytes, filled up with bytes that are one less than their number, as hexadecimal text.
std::string Protected(std::string plain, const std::string& seed) {
    const std::size_t count = 16 - plain.size() % 16;
    return Hex(Blocks(plain.append(count, static_cast<char>(count - 1)), seed));
}

std::string FromHex(const std::string& digits) {
    std::string bytes(digits.size() / 2, '\0');
    OPENSSL_hexstr2buf_ex(BytesOf(bytes), bytes.size(), nullptr, digits.c_str(), '\0');
    return bytes;
}

// The rows of the key records as the data file has them: identifiers, stored seed.
const Json::Value& KeyRecordRows() {
    static const Json::Value rows = ReadCases("secrets/key-records.json");
    return rows;
}

// The working seed of a row, or of the fallback for -1: every other stored byte counts from the end.
std::string SeedOfRow(int row) {
    const Json::ArrayIndex count = KeyRecordRows().size();
    const Json::ArrayIndex index = row < 0 ? count - 1 : Json::ArrayIndex(row);
    const std::string stored = FromHex(KeyRecordRows()[index][2].asString());
    std::string seed(20, '\0');
    for (std::size_t at = 0; at < 20; ++at) seed[at % 2 == 0 ? at / 2 : 19 - at / 2] = stored.at(at);
    return seed;
}

template <typename Function>
std::string ErrorOf(Function function) {
    try {
        function();
    } catch (const std::out_of_range& error) {
        return std::string("range: ") + error.what();
    } catch (const std::invalid_argument& error) {
        return std::string("argument: ") + error.what();
    }
    return "";
}

PTConverter MakeConverter(const std::string& encryptionId) {
    PTConverter converter;
    converter.Pipeline = std::make_shared<Platform::MemoryPipelineBag>();
    converter.Pipeline->AddProperty(u"EncryptionID", Wide(encryptionId));
    return converter;
}

QueueBag MakeQueue(std::int32_t flag, const std::string& passphrase = "") {
    Platform::PrinterProperties properties = {{u"encryptionPassphrase_Flag", flag}};
    if (!passphrase.empty()) properties[u"encryptionPassphrase"] = Wide(passphrase);
    return std::make_shared<Platform::MemoryPrinterBag>(properties);
}

// Any flag but 1 leaves the passphrase alone.
TEST(EncryptionId, IsReadGenerouslyAndNamesTheRecord) {
    for (const Json::Value& row : ReadCases("secrets/encryption-ids.json")) {
        const std::string text = row["id"].asString();
        const EncryptionId id = ParseEncryptionId(Wide(text).View());
        EXPECT_EQ(id.Primary, row["reads"][0].asInt()) << text;
        EXPECT_EQ(id.Secondary, row["reads"][1].asInt()) << text;
        const std::string expected = Protected("secret", SeedOfRow(row["record"].asInt()));
        PTConverter converter = MakeConverter(text);
        for (const std::int32_t flag : {0, 2, -1}) {
            converter.Queue = MakeQueue(flag, Protected("abc", wrappingSeed));
            EXPECT_EQ(Narrow(ProtectJobSecret(converter, WideText(u"secret"))), expected) << text << flag;
        }
    }
}

// A secondary identifier of 0 asks for the first row of the group.
TEST(KeyRecords, AreThoseWrittenDown) {
    const Json::Value& rows = KeyRecordRows();
    ASSERT_EQ(rows.size(), std::size(KeyRecordTable));
    int first = 0;
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
        const auto& [primary, secondary, seed] = KeyRecordTable[row];
        EXPECT_EQ(Json::Value(primary), rows[row][0]) << row;
        EXPECT_EQ(Json::Value(secondary), rows[row][1]) << row;
        EXPECT_EQ(Hex({seed.begin(), seed.end()}), rows[row][2].asString()) << row;
        if (rows[row][0] != rows[first][0]) first = row;
        const std::string id = "[" + rows[row][0].asString() + "," + rows[row][1].asString() + "]";
        EXPECT_EQ(Narrow(ProtectJobSecret(MakeConverter(id), WideText(u"secret"))),
                  Protected("secret", SeedOfRow(secondary == 0 ? first : row)))
            << row;
    }
}

// A job, not only the stage: a bad text ends it, and nothing of it shows.
TEST(SecretPreparation, EndsTheJobForABadEncryptionId) {
    TestHost host;
    const auto set = [&](std::u16string_view name, const Platform::PropertyValue& value) {
        host.Bag->DeleteProperty(name);
        host.Bag->AddProperty(name, value);
    };
    const auto run = [&](const std::string& security, const std::string& option, const Json::Value& id) {
        set(u"PJL", Wide("old"));
        set(u"DATA", Wide("older"));
        set(u"EncryptionID", Wide(id.asString()));
        if (id.isNull()) host.Bag->DeleteProperty(u"EncryptionID");
        const TicketDocument ticket =
            MakeTicket(Settings(R"({"features":{"PWDCopyKey":"x","CopySecurity":")" + security +
                                R"(","CopySecurityOption":")" + option + "\"}}"));
        return ErrorOf([&] { host.Run(JobLevel, ticket); });
    };
    ASSERT_EQ(run("On", "CopyGuard", "["), "");
    const auto state = [](const PTConverter& snapshot) {
        return std::tie(snapshot.PjlText, snapshot.DataText, snapshot.CustomProperties, snapshot.CommandMap,
                        snapshot.Queue, snapshot.Ticket, snapshot.PageCount);
    };
    const PTConverter before = host.Snapshot;
    for (const std::int32_t flag : {0, 1}) {
        set(u"QueuePropertyBag", MakeQueue(flag));
        for (const Json::Value& row : ReadCases("secrets/encryption-id-errors.json")) {
            EXPECT_EQ(run("On", "PasswordCopy", row[0]), row[1].asString()) << row[0];
            EXPECT_EQ(host.Property(u"PJL") + host.Property(u"DATA"), "oldolder") << row[0];
            EXPECT_TRUE(state(host.Snapshot) == state(before)) << row[0];
        }
    }
    for (const char* security : {"Off", ""}) EXPECT_EQ(run(security, "PasswordCopy", "["), "") << security;
    EXPECT_EQ(run("On", "PasswordCopy", "[1,2]"), "");
    EXPECT_TRUE(host.Property(u"PJL") != "old" && host.Property(u"DATA") != "older");
}

TEST(SecretPreparation, TakesTheKeyFromThePassphrase) {
    const std::string twenty = "12345678901234567890", fortyEight = twenty + twenty + "abcdefgh";
    EXPECT_EQ(WrapPassphrase(fortyEight), Protected(fortyEight, wrappingSeed));
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"0G", ""},
        {Protected("", wrappingSeed), ""},
        {Protected("abc", wrappingSeed), "abc"},
        {Protected(twenty, wrappingSeed), twenty},
        {Protected(fortyEight, wrappingSeed), fortyEight.substr(0, 32)},
        {"0102030402", std::string("\x01\x02", 2)},  // no whole block; the last byte clears 2 more
        {"010203FF", ""},
        {Hex(Blocks(fortyEight.substr(0, 16), wrappingSeed)) + "aabbcc00", "1234567890123456\xAA\xBB\xCC"},
    };
    PTConverter converter = MakeConverter("[1,2]");
    for (auto [stored, passphrase] : cases) {
        PassphraseBytes room[2];
        for (PassphraseBytes& each : room) each.fill('x');
        UnwrapPassphrase(Wide(stored).View(), room[0]);
        passphrase.resize(32);
        EXPECT_EQ(std::string(room[0].begin(), room[0].end()), passphrase) << stored;
        EXPECT_EQ(std::string(room[1].begin(), room[1].end()), std::string(32, 'x')) << stored;
        converter.Queue = MakeQueue(1, stored);
        EXPECT_EQ(Narrow(ProtectJobSecret(converter, WideText(u"secret"))), Protected("secret", passphrase));
    }
}

TEST(SecretPreparation, EnciphersTheBytesOfTheSecret) {
    EXPECT_EQ(AnsiFromWide(u"a"), (WipedBytes{'a', 0}));
    setenv("LC_ALL", "C", 1);                  // a system of UTF-8
    const ThreadCodePage latin("ISO-8859-1");  // which the thread's code page is not
    PTConverter converter = MakeConverter("[1,2]");
    for (const Json::Value& row : ReadCases("secrets/secrets.json")) {
        std::string secret, digits;
        for (int times = row[2].asInt(); times > 0; --times) {
            secret += row[0].asString();
            digits += row[3].asString();
        }
        converter.SecretIsHexText = row[1].asInt();
        EXPECT_EQ(Narrow(ProtectJobSecret(converter, row[0].isNull() ? WideText() : Wide(secret))),
                  Protected(FromHex(digits), SeedOfRow(2)))
            << row;
    }
    EXPECT_TRUE(BytesFromHexText(std::u16string_view(u"0011").substr(0, 3)).empty());
}

}  // namespace
}  // namespace DeviceSpecificModule
