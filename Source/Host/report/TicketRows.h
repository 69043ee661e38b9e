#pragma once

#include <string>
#include <vector>

#include "Host/tickets/PrintTicket.h"

namespace TicketHost {

// One thing that a ticket says, as a row of a table.
struct TicketRow {
    std::string Name;       // as written
    std::size_t Level = 0;  // 0 for what stands right in the root; what stands in that has one more
    std::string Value;      // of a feature the options that it has chosen

    bool operator==(const TicketRow&) const = default;
};

// All that a ticket says, in its order. An option has no row of its own: what stands in it stands in its
// feature.
std::vector<TicketRow> TicketRowsOf(const std::vector<TicketItem>& ticket);

}  // namespace TicketHost
