#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Host/ground/MemoryBags.h"
#include "devicespecific/platform/WideText.h"

namespace TicketHost {

// The UTF-8 form; lone surrogates become U+FFFD.
std::string ToUtf8(std::u16string_view units);
inline std::string ToUtf8(const Platform::WideText& text) { return ToUtf8(text.View()); }

// The text of UTF-8 bytes; each byte that belongs to no character becomes U+FFFD.
Platform::WideText FromUtf8(std::string_view bytes);

// The same as plain units, which names are.
std::u16string UnitsOf(std::string_view bytes);

// Whether a character acts on what shows it rather than be shown: control characters, and what ends a line or
// changes the direction of a text that stands beside it.
bool ActsOnDisplay(char32_t character);

// The character at the front of UTF-8 bytes, of which there is at least one.
struct Character {
    char32_t Code;      // the byte, if it begins no character
    std::size_t Bytes;  // how many it takes; 0 if the byte begins no character
};
Character FirstCharacter(std::string_view bytes);

// UTF-8 made fit for one line of a terminal: what acts on the display becomes <ESC>, <CR> and <LF>, and what
// has no name here its code, as in <0x07> and <U+202E>; bytes that belong to no character likewise, as in
// <0xE4>.
std::string Visible(std::string_view bytes);

// How many characters UTF-8 bytes hold; each counts for one column of a terminal.
std::size_t CountCharacters(std::string_view bytes);

// The text cut to so many characters, with a mark behind it that says how many are missing.
std::string Shortened(const std::string& bytes, std::size_t characters);

// Whether two values are of one type and the same. Texts that share a buffer aren't compared unit by unit.
bool AreSame(const Platform::PropertyValue& left, const Platform::PropertyValue& right);

// A value on one line for a person. Texts stand in quotes, so that they differ from numbers and null.
std::string DescribeValue(const Platform::PropertyValue& value);

// The text of a property; null when it is absent or no text.
Platform::WideText FindText(const PipelineProperties& properties, std::u16string_view name);

// Whether a text begins with another. Compares no units when it grew out of that one in place.
bool BeginsWith(const Platform::WideText& text, const Platform::WideText& beginning);

// The lines of command text, each made visible. The CR LF that should end a line is left out; a line that
// ends otherwise has a mark that says how.
std::vector<std::string> SplitCommandLines(std::u16string_view text);

}  // namespace TicketHost
