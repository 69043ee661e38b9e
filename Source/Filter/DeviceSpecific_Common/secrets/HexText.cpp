#include "secrets/HexText.h"

#include <cstddef>

#include "conversion/TextOperations.h"

namespace DeviceSpecificModule {

WipedBytes BytesFromHexText(std::u16string_view text) {
    if (text.size() % 2 != 0) return {};
    WipedBytes bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t at = 0; at < text.size(); at += 2) {
        const unsigned high = HexDigitValue(text[at]), low = HexDigitValue(text[at + 1]);
        if (high > 15 || low > 15) return {};
        bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
    return bytes;
}

std::string HexTextFromBytes(std::span<const std::uint8_t> bytes) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const std::uint8_t byte : bytes) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

}  // namespace DeviceSpecificModule
