#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Host/MemoryBags.h"

namespace TicketHost {

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
