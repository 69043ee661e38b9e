#include <algorithm>
#include <stdexcept>

#include "Contract.h"
#include "Targets.h"
#include "devicespecific/platform/MemoryBags.h"
#include "secrets/Aes.h"
#include "secrets/EncryptionId.h"
#include "secrets/HexText.h"
#include "secrets/JobCipher.h"
#include "secrets/Passphrase.h"
#include "secrets/SecretPreparation.h"

// The parts of an input are "EncryptionID", the stored passphrase, the secret, and the word "hex" where the
// secret is hexadecimal text. Without a second part no passphrase is chosen.

namespace Fuzz {
namespace {

using namespace DeviceSpecificModule;

bool IsUpperHex(std::u16string_view text) {
    return std::ranges::all_of(
        text, [](char16_t unit) { return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'F'); });
}

PTConverter ConverterOf(const std::vector<std::string_view>& parts) {
    Platform::PrinterProperties queue;
    if (parts.size() > 1) {
        queue[u"encryptionPassphrase"] = Wide(parts[1]);
        queue[u"encryptionPassphrase_Flag"] = 1;
    }
    PTConverter converter;
    converter.Pipeline = std::make_shared<Platform::MemoryPipelineBag>(
        Platform::PipelineProperties{{u"EncryptionID", Wide(parts[0])}});
    converter.Queue = std::make_shared<Platform::MemoryPrinterBag>(queue);
    converter.SecretIsHexText = PartOf(parts, 3) == "hex" ? 1 : 0;
    return converter;
}

// The bytes that a conversion enciphers, without the zero at the end of a typed secret.
std::vector<std::uint8_t> BytesOf(const PTConverter& converter, std::u16string_view secret) {
    if (secret.empty()) return {};
    WipedBytes bytes = converter.SecretIsHexText == 1 ? BytesFromHexText(secret) : AnsiFromWide(secret);
    if (converter.SecretIsHexText != 1) bytes.pop_back();
    return {bytes.begin(), bytes.end()};
}

void RequireDeciphers(const PTConverter& converter, const WideText& stored, EncryptionId id,
                      std::u16string_view digits, const std::vector<std::uint8_t>& plain) {
    PassphraseBytes seed{};
    const bool isChosen = !stored.IsNull();
    if (isChosen) UnwrapPassphrase(stored.View(), seed);
    if (isChosen) id = {CallerSeedId, CallerSeedId};
    if (!isChosen && id.Primary == CallerSeedId) id.Primary = TerminatorId;
    WipedBytes bytes = BytesFromHexText(digits);
    std::int32_t length = -1;
    DecryptJobSecret(bytes.data(), static_cast<std::uint32_t>(bytes.size()), seed.data(), &length, id.Primary,
                     id.Secondary);
    Require(length == static_cast<std::int32_t>(plain.size()) &&
                std::equal(plain.begin(), plain.end(), bytes.begin()) &&
                std::all_of(bytes.begin() + length, bytes.end(), [](std::uint8_t byte) { return byte == 0; }),
            "a protected secret deciphers", digits);
    Require(converter.PjlText.IsNull(), "protecting a secret touches nothing else");
}

void RequireProtects(const std::vector<std::string_view>& parts) {
    const PTConverter converter = ConverterOf(parts);
    const WideText secret = Wide(PartOf(parts, 2)), stored = parts.size() > 1 ? Wide(parts[1]) : WideText();
    EncryptionId id{};
    const std::string idError = ErrorOf([&] { id = ParseEncryptionId(Wide(parts[0]).View()); });
    WideText digits;
    const std::string error = ErrorOf([&] { digits = ProtectJobSecret(converter, secret); });
    Require(error == idError, "a secret is protected when its identifiers can be read", error + idError);
    if (!error.empty()) return;
    const std::vector<std::uint8_t> plain = BytesOf(converter, secret.View());
    Require(IsUpperHex(digits.View()), "a protected secret is upper-case digits", digits.View());
    Require(digits.Length() == 32 * (plain.size() / 16 + 1), "a protected secret fills whole blocks");
    RequireDeciphers(converter, stored, id, digits.View(), plain);
}

void RequireHexText(std::u16string_view text) {
    const WipedBytes bytes = BytesFromHexText(text);
    Require(bytes.empty() || 2 * bytes.size() == text.size(), "hexadecimal text is two digits a byte", text);
    const std::string again = HexTextFromBytes(bytes);
    for (std::size_t at = 0; at < again.size(); ++at)
        Require(again[at] == text[at] || again[at] == text[at] - 0x20, "hexadecimal text reads and writes",
                text);
}

void RequirePassphrase(std::string_view passphrase) {
    const WideText stored = Wide(WrapPassphrase(passphrase));
    PassphraseBytes bytes{};
    UnwrapPassphrase(stored.View(), bytes);
    const std::size_t kept = std::min(passphrase.size(), bytes.size());
    const auto isByte = [](std::uint8_t left, char right) {
        return left == static_cast<std::uint8_t>(right);
    };
    Require(std::equal(bytes.begin(), bytes.begin() + kept, passphrase.begin(), isByte) &&
                std::all_of(bytes.begin() + kept, bytes.end(), [](std::uint8_t byte) { return byte == 0; }),
            "a stored passphrase reads as it was", passphrase);
}

}  // namespace

void RunSecrets(std::string_view input) {
    const std::vector<std::string_view> parts = SplitParts(input);
    RequireProtects(parts);
    for (const std::string_view part : parts) {
        RequireHexText(Wide(part).View());
        RequirePassphrase(part);
    }
}

}  // namespace Fuzz
