#include "secrets/HexText.h"

#include <cstddef>

namespace DeviceSpecificModule {
namespace {

constexpr int noDigit = -1;

int ValueOfDigit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
    if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
    return noDigit;
}

}  // namespace

WipedBytes BytesFromHexText(std::u16string_view text) {
    if (text.size() % 2 != 0) return {};
    WipedBytes bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t at = 0; at < text.size(); at += 2) {
        const int high = ValueOfDigit(text[at]), low = ValueOfDigit(text[at + 1]);
        if (high == noDigit || low == noDigit) return {};
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
