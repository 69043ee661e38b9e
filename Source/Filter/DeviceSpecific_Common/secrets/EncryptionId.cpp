#include "secrets/EncryptionId.h"

#include <cstddef>
#include <limits>
#include <stdexcept>

#include "conversion/TextOperations.h"

namespace DeviceSpecificModule {
namespace {

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// Spelled out, because std::stoi takes no such texts and the words of its errors differ between libraries.
std::int32_t ToInteger(std::u16string_view text) {
    const bool negative = TakeSign(text);
    if (text.empty() || !IsDigit(text.front())) throw std::invalid_argument("invalid stoi argument");

    const std::int64_t largest = std::numeric_limits<std::int32_t>::max() + std::int64_t{negative};
    std::int64_t number = 0;
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1)) {
        number = number * 10 + (text.front() - u'0');
        if (number > largest) throw std::out_of_range("stoi argument out of range");
    }
    return static_cast<std::int32_t>(negative ? -number : number);
}

}  // namespace

EncryptionId ParseEncryptionId(std::u16string_view text) {
    if (text.empty()) throw std::out_of_range("invalid string position");
    const std::size_t comma = text.find(u',');
    const std::size_t secondStart = comma == text.npos ? 0 : comma + 1;
    const std::int32_t primary = ToInteger(text.substr(1, comma));
    return {primary, ToInteger(text.substr(secondStart, text.find(u']')))};
}

}  // namespace DeviceSpecificModule
