#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TicketHost {

// XML laid out for reading: a line for each tag, for each text that isn't mere white space, for each comment;
// an element that holds nothing but a text is one line. Indented by two blanks a level. Meant for what a
// serialiser wrote: other texts give lines too, only less fine ones.
std::vector<std::string> LayOutXml(std::string_view xml);

// What changed from one ticket to another, for a person: lines that begin with "- " went, with "+ " came,
// with "  " stayed and stand there for orientation; "..." is a gap. Where too much changed it is one line
// that says how much. Empty when the two are the same, byte for byte.
std::vector<std::string> DescribeTicketChange(std::string_view before, std::string_view after);

}  // namespace TicketHost
