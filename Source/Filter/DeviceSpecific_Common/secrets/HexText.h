#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "secrets/Wipe.h"

namespace DeviceSpecificModule {

// Bytes as text: two hexadecimal digits a byte, the high four bits first, nothing in between.

// The bytes that a text stands for. Digits of either case are taken. Empty for an odd number of units and for
// a text with anything but digits in it, however much of it could be read; so an empty result says nothing
// about the cause.
WipedBytes BytesFromHexText(std::u16string_view text);

// The text of these bytes, in upper case. It is not wiped: it is for ciphertext.
std::string HexTextFromBytes(std::span<const std::uint8_t> bytes);

}  // namespace DeviceSpecificModule
