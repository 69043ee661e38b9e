#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "secrets/KeyRecords.h"

namespace DeviceSpecificModule {

// The passphrase of a print queue, as its property "encryptionPassphrase" stores it: enciphered under a seed
// that is built in here, in hexadecimal digits. That keeps it from being read at a glance, no more. Whoever
// writes the property needs WrapPassphrase, and a module with the same seed reads it.

// A passphrase filled up with zero bytes. Its first bytes are a key seed; a working copy belongs in a
// Wiped<PassphraseBytes>.
using PassphraseBytes = std::array<std::uint8_t, 32>;

// Bytes of a passphrase that count: no more of them reach the key.
inline constexpr std::size_t LongestPassphrase = std::tuple_size_v<KeySeed>;

// The text to store for a passphrase of any length, in upper case. A zero byte at the passphrase's end is not
// told from the filling later on.
std::string WrapPassphrase(std::string_view passphrase);

// Deciphers a stored passphrase of either case; what goes beyond the room of `passphraseOut` is cut off. A
// text that is no hexadecimal text, an empty one included, gives zeros. Nothing tells a text that was made in
// another way: it gives bytes that mean nothing.
void UnwrapPassphrase(std::u16string_view stored, PassphraseBytes& passphraseOut);

}  // namespace DeviceSpecificModule
