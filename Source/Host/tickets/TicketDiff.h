#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TicketHost {

// XML laid out for reading, two blanks a level: a line for each tag, each comment and each text that isn't
// mere white space; an element that holds nothing but a text is one line. Meant for what a serialiser wrote:
// text that isn't well-formed gives lines, too, but they may be of little use.
std::vector<std::string> LayOutXml(std::string_view xml);

// What changed from one ticket to another, for a person. Lines that begin with "- " went, with "+ " came, and
// with "  " stayed and are there for orientation; "..." is a gap. Where too much changed, one line says how
// much. Empty when the two are the same, byte for byte.
std::vector<std::string> DescribeTicketChange(std::string_view before, std::string_view after);

}  // namespace TicketHost
