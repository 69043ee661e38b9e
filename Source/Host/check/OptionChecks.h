#pragma once

#include <vector>

#include "Host/check/TicketChecks.h"

namespace TicketHost {

struct CheckedTicket {
    const std::vector<TicketItem>& Items;
    Level At;
    JobState& Job;
};

// Checks what a feature has chosen that is read at the ticket's level.
void CheckOptions(const CheckedTicket& ticket, const TicketItem& feature, const ItemRow& row,
                  TicketReport& report);

}  // namespace TicketHost
