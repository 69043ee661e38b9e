#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "Platform/ResultError.h"
#include "Platform/WideText.h"

namespace DeviceSpecificModule {

using Platform::ThrowResult;
using Platform::WideText;

// The three appends never throw: when there is no memory the target stays as it was.

// Widens a zero-ended text by the thread's code page and appends it. A null or empty text, and one in a code
// page that isn't known, leave the target as it was.
void AppendNarrowText(WideText& target, const char* text) noexcept;

// Appends a text. A null or empty source leaves the target as it was, a null target null.
void AppendWideText(WideText& target, const WideText& source) noexcept;

// Appends characters. A source without data leaves the target as it was; an empty one does so too, except
// that a null target becomes an empty text. False without memory.
bool AppendWideChars(WideText& target, std::u16string_view source) noexcept;

// A new text from a zero-ended one in the thread's code page (not UTF-8 unless that says so). Null for a null
// input and for an unknown code page. Throws ResultError without memory.
WideText WideFromNarrow(const char* text);

// The UTF-8 form. Units that are no text become U+FFFD.
std::string NarrowFromWide(std::u16string_view text);

// Replaces the first "%s" of the text by the value; a text without one stays unchanged, as a null one does.
// Values filled in earlier are searched too. Throws ResultError without memory, with the text as it was.
void FillFirstPlaceholder(WideText& text, std::u16string_view value);

// Decimal digits, with a "-" ahead of a negative number.
std::u16string DecimalText(std::int64_t number);

// Takes what may stand ahead of a decimal number's digits off the text: white space (blank, \t, \n, \v, \f,
// \r) and one sign. Gives whether that was a "-".
bool TakeSign(std::u16string_view& text);

// Reads a decimal number as far as it goes, behind what TakeSign takes. 0 without digits; what exceeds 32
// bits saturates.
std::int32_t ReadDecimal(std::u16string_view text);

}  // namespace DeviceSpecificModule
