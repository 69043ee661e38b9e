#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "devicespecific/platform/ResultError.h"
#include "devicespecific/platform/WideText.h"

namespace DeviceSpecificModule {

using Platform::ThrowResult;
using Platform::WideText;

// The three appends never throw: when there is no memory the target stays as it was. The two of wide
// characters leave it not whole (WideText::IsWhole), so that RequireWhole notices before it is handed on.

// Widens a zero-ended text by the thread's code page and appends it. A null or empty text, and one in a code
// page that isn't known, leave the target as it was.
void AppendNarrowText(WideText& target, const char* text) noexcept;

// Appends a text. A null or empty source leaves the target as it was, a null target null.
void AppendWideText(WideText& target, const WideText& source) noexcept;

// Appends characters. An empty source leaves the target as it was, except that a null target becomes an empty
// text. False without memory.
bool AppendWideChars(WideText& target, std::u16string_view source) noexcept;

// Throws ResultError (ResultOutOfMemory) for a text that an append failed on.
void RequireWhole(const WideText& text);

// Appends the pieces, one behind the other. Throws ResultError without memory; the target may then have
// gained some of them.
void AddPieces(WideText& target, std::initializer_list<std::u16string_view> pieces);

// A new text from a zero-ended one in the thread's code page (not UTF-8 unless that says so). Null for a null
// input and for an unknown code page. Throws ResultError without memory.
WideText WideFromNarrow(const char* text);

// The UTF-8 form. Lone surrogates become U+FFFD. Throws ResultError without memory.
std::string NarrowFromWide(std::u16string_view text);

// Replaces the first "%s" of the text by the value; a text without one stays unchanged, as a null one does.
// Values filled in earlier are searched too. Throws ResultError without memory, with the text as it was.
void FillFirstPlaceholder(WideText& text, std::u16string_view value);

// A number in decimal digits, with a "-" ahead of a negative one. It needs no memory beside itself.
class DecimalText {
public:
    explicit DecimalText(std::int64_t number) noexcept;
    // Valid while this object lives.
    operator std::u16string_view() const noexcept { return {units_, length_}; }

private:
    char16_t units_[20];
    std::size_t length_;
};

// The value of a hexadecimal digit of either case; 16 for any other unit.
constexpr unsigned HexDigitValue(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10u;
    if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10u;
    return 16;
}

// Takes what may stand ahead of a decimal number's digits off the text: white space (blank, \t, \n, \v, \f,
// \r) and one sign. Gives whether that was a "-".
bool TakeSign(std::u16string_view& text);

// Reads a decimal number as far as it goes, behind what TakeSign takes. 0 without digits; what exceeds 32
// bits saturates.
std::int32_t ReadDecimal(std::u16string_view text);

}  // namespace DeviceSpecificModule
