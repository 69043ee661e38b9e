#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Host/MemoryBags.h"
#include "Platform/WideText.h"

namespace TicketHost {

// The UTF-8 form; lone surrogates become U+FFFD.
std::string ToUtf8(std::u16string_view units);
inline std::string ToUtf8(const Platform::WideText& text) { return ToUtf8(text.View()); }

// The text of UTF-8 bytes; what is none becomes U+FFFD.
Platform::WideText FromUtf8(std::string_view bytes);

// The same as plain units, for names.
std::u16string UnitsOf(std::string_view bytes);

// UTF-8 fit for one line of a terminal: control characters become <ESC>, <CR>, <LF> or, the others, <0x07>.
std::string Visible(std::string_view bytes);

// How many characters UTF-8 bytes hold, each taken for one column.
std::size_t CountCharacters(std::string_view bytes);

// At most so many characters; what is cut off leaves a mark that says how many they were.
std::string Shortened(const std::string& bytes, std::size_t characters);

// Whether two values are of one type and the same. Texts that share a buffer aren't compared unit by unit.
bool AreSame(const Platform::PropertyValue& left, const Platform::PropertyValue& right);

// For a person: texts in quotes, on one line.
std::string DescribeValue(const Platform::PropertyValue& value);

// The text of a property; null when it is absent or no text.
Platform::WideText FindText(const PipelineProperties& properties, std::u16string_view name);

// Whether a text begins with another. Costs nothing when it grew out of that one in place.
bool BeginsWith(const Platform::WideText& text, const Platform::WideText& beginning);

// The lines of command text, each fit for a terminal. The CR LF at their ends is left out; what ends
// otherwise says so.
std::vector<std::string> SplitCommandLines(std::u16string_view text);

}  // namespace TicketHost
