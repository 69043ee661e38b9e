#pragma once

#include <ostream>
#include <span>
#include <string>

namespace TicketHost {

// Write the named tables, whose names must be among OptionTableNames, as the module exports them.

// For a person: how many rows there are, and of each what identifies it, which of its other texts have
// content ("x") and its data line. "-" is an empty text and "0" the text "0", by which tables mean none too;
// columns that hold nothing else are left out.
void ListTablesAsText(std::ostream& out, std::span<const std::string> names);

// As one JSON object: under each name a list of the rows, with all their fields; null texts are null. The row
// that ends a table is left out.
void ListTablesAsJson(std::ostream& out, std::span<const std::string> names);

}  // namespace TicketHost
