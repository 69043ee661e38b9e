#include "secrets/SecretPreparation.h"

#include <cstddef>
#include <limits>
#include <new>
#include <span>
#include <string>

#include "conversion/PipelineProperties.h"
#include "conversion/TextOperations.h"
#include "devicespecific/platform/CodePages.h"
#include "secrets/Aes.h"
#include "secrets/EncryptionId.h"
#include "secrets/HexText.h"
#include "secrets/JobCipher.h"
#include "secrets/Passphrase.h"

namespace DeviceSpecificModule {
namespace {

struct QueuePassphrase {
    WideText Stored;
    std::int32_t Flag = 0;

    bool IsChosen() const { return Flag == 1; }
};

QueuePassphrase ReadQueuePassphrase(const QueueBag& queue) {
    QueuePassphrase passphrase;
    if (!queue) return passphrase;
    queue->GetString(u"encryptionPassphrase", passphrase.Stored);
    queue->GetInt32(u"encryptionPassphrase_Flag", passphrase.Flag);
    return passphrase;
}

WipedBytes BytesOfSecret(const WideText& secret, bool isHexText) {
    if (secret.IsEmpty()) return {};
    if (isHexText) return BytesFromHexText(secret.View());
    WipedBytes bytes = AnsiFromWide(secret.View());
    bytes.pop_back();
    return bytes;
}

// Gives the ciphertext in hexadecimal digits. The seed counts when the primary identifier is CallerSeedId.
std::string Encipher(WipedBytes bytes, const PassphraseBytes& seed, EncryptionId id) {
    const std::size_t length = bytes.size();
    if (length > std::numeric_limits<std::int32_t>::max() - AesBlockBytes)
        ThrowResult(Platform::ResultOutOfMemory);
    bytes.resize(length + AesBlockBytes);
    std::int32_t paddedLength = 0;
    EncryptJobSecret(bytes.data(), static_cast<std::uint32_t>(length), 0, seed.data(), &paddedLength,
                     id.Primary, id.Secondary);
    return HexTextFromBytes(std::span(bytes).first(static_cast<std::size_t>(paddedLength)));
}

}  // namespace

WipedBytes AnsiFromWide(std::u16string_view text) {
    WipedBytes bytes;
    const auto take = [&bytes](std::string_view piece) {
        bytes.insert(bytes.end(), piece.begin(), piece.end());
    };
    if (!ConvertSecretFromWide(Platform::CodePage::System, text, take))
        ThrowResult(Platform::ResultUnknownCodePage);
    bytes.push_back(0);
    return bytes;
}

WideText ProtectJobSecret(const PTConverter& converter, const WideText& secret) try {
    const QueuePassphrase passphrase = ReadQueuePassphrase(converter.Queue);
    // A malformed text is an error also when a passphrase takes its place.
    EncryptionId id = ParseEncryptionId(GetPipelineText(converter.Pipeline, u"EncryptionID").View());
    Wiped<PassphraseBytes> seed;
    if (passphrase.IsChosen()) {
        UnwrapPassphrase(passphrase.Stored.View(), seed.Value);
        id = {CallerSeedId, CallerSeedId};
    } else if (id.Primary == CallerSeedId) {
        id.Primary = TerminatorId;  // there is no caller's seed, so the fallback stands in
    }
    const std::string digits =
        Encipher(BytesOfSecret(secret, converter.SecretIsHexText == 1), seed.Value, id);
    WideText text;
    ConvertToWide(Platform::CodePage::Utf8, digits, text);
    return text;
} catch (const std::bad_alloc&) {
    ThrowResult(Platform::ResultOutOfMemory);
}

}  // namespace DeviceSpecificModule
