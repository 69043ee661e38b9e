#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Host/tickets/PrintTicket.h"

namespace TicketHost {

// One thing that a ticket said before a call, after it, or both times.
struct TicketRow {
    std::string Name;                          // as written; what stands in it is told with one more level
    std::size_t Level = 0;                     // 0 for what stands right in the root
    std::optional<std::string> Before, After;  // absent: not in the ticket then

    bool operator==(const TicketRow&) const = default;
};

// All that two states of a ticket say, by feature, in the order of the first; behind it what only the second
// has. A feature's value is the option that it has chosen, so that one that chose another is one row.
std::vector<TicketRow> CompareItems(const std::vector<TicketItem>& before,
                                    const std::vector<TicketItem>& after);

}  // namespace TicketHost
