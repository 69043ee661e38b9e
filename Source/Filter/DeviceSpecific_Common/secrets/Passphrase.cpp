#include "secrets/Passphrase.h"

#include <algorithm>
#include <span>

#include "secrets/Aes.h"
#include "secrets/HexText.h"
#include "secrets/JobCipher.h"
#include "secrets/Wipe.h"

namespace DeviceSpecificModule {
namespace {

constexpr PassphraseBytes FilledUp(std::string_view characters) {
    PassphraseBytes bytes{};
    std::copy(characters.begin(), characters.end(), bytes.begin());
    return bytes;
}

// The seed that stored passphrases are enciphered under. A changed one makes all of them unreadable.
constexpr PassphraseBytes PassphraseWrappingSeed = FilledUp("01ts##yVJtctVhxgRpb1");
static_assert(PassphraseWrappingSeed[LongestPassphrase - 1] != 0 &&
              PassphraseWrappingSeed[LongestPassphrase] == 0);

}  // namespace

std::string WrapPassphrase(std::string_view passphrase) {
    WipedBytes bytes(passphrase.size() + AesBlockBytes);
    std::copy(passphrase.begin(), passphrase.end(), bytes.begin());
    std::int32_t length = 0;
    EncryptJobSecret(bytes.data(), static_cast<std::uint32_t>(passphrase.size()), 0,
                     PassphraseWrappingSeed.data(), &length, CallerSeedId, CallerSeedId);
    return HexTextFromBytes(std::span(bytes).first(static_cast<std::size_t>(length)));
}

void UnwrapPassphrase(std::u16string_view stored, PassphraseBytes& passphraseOut) {
    passphraseOut = {};
    WipedBytes bytes = BytesFromHexText(stored);
    if (bytes.empty()) return;
    // The length that comes out is that of the text without padding, or negative; the padding is zeros by
    // now, and so filling up all the same.
    std::int32_t ignoredLength = 0;
    DecryptJobSecret(bytes.data(), static_cast<std::uint32_t>(bytes.size()), PassphraseWrappingSeed.data(),
                     &ignoredLength, CallerSeedId, CallerSeedId);
    std::copy_n(bytes.begin(), std::min(bytes.size(), passphraseOut.size()), passphraseOut.begin());
}

}  // namespace DeviceSpecificModule
