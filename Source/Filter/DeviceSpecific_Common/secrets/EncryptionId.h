#pragma once

#include <cstdint>
#include <string_view>

namespace DeviceSpecificModule {

// The two identifiers that choose a key record.
struct EncryptionId {
    std::int32_t Primary;
    std::int32_t Secondary;
};

// Reads the form "[12,34]", generously. The first unit is passed over, whatever it is. The first identifier
// stands behind it; the second stands behind the first comma, or, where there is none, at the very start of
// the text, and is no longer than the number of units ahead of the first "]". Each is read as far as it goes:
// white space (blank, \t, \n, \v, \f, \r), a sign, decimal digits.
//
// Throws, for the first identifier ahead of the second:
//   std::out_of_range      "invalid string position" for an empty text
//   std::invalid_argument  "invalid stoi argument" where there are no digits
//   std::out_of_range      "stoi argument out of range" beyond 32 bits with sign
EncryptionId ParseEncryptionId(std::u16string_view text);

}  // namespace DeviceSpecificModule
