#pragma once

#include <string_view>

#include "conversion/PTConverter.h"
#include "secrets/Wipe.h"

namespace DeviceSpecificModule {

// Turns a secret that somebody typed into the text that may stand in the job stream: its bytes, enciphered,
// in upper-case hexadecimal digits. Never empty: an empty or null secret gives 32 digits.
//
// The key comes from one of two places. When the queue's "encryptionPassphrase_Flag" is 1 it is the queue's
// "encryptionPassphrase" (zeros where that is absent or no hexadecimal text); otherwise it is the key record
// that the pipeline's "EncryptionID" names, or the fallback record, also for identifiers of 0. A missing
// queue bag is an empty one.
//
// The secret's bytes are those that it stands for in hexadecimal digits, if the converter's SecretIsHexText
// is 1 (none when it is no such text), otherwise those of AnsiFromWide.
//
// Throws what ParseEncryptionId throws, also when the passphrase gives the key, and ResultError without
// memory.
//
// Every buffer that this fills with bytes of keys, passphrase or secret, on the stack and off it, is wiped,
// whatever is thrown. That can't reach what others hold: `secret` itself, whose counted text may be shared,
// the settings document and the ticket that it came from. Nor does it reach registers, with what the
// compiler or the system saves of them, or the one character that AnsiFromWide speaks of.
WideText ProtectJobSecret(const PTConverter& converter, const WideText& secret);

// The text in the system's default code page, which is neither the thread's nor always UTF-8, with a zero at
// its end. All units are converted; a zero unit in the text is a zero byte ahead of that end. Nothing else
// keeps a copy, but the platform's converter may keep the last character. Throws ResultError for an unknown
// code page, and that or std::bad_alloc without memory.
WipedBytes AnsiFromWide(std::u16string_view text);

}  // namespace DeviceSpecificModule
