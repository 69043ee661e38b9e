#pragma once

#include <vector>

#include "Host/tickets/Settings.h"
#include "Host/tickets/TicketChanges.h"

namespace TicketHost {

// What differs between the settings of two tickets, member by member. What that covers goes from the items of
// the tickets (ItemOfRoot), so that it isn't compared again as the pieces it is cut into. Series that are
// malformed on either side are left alone.
std::vector<TicketChange> TakeSettingsChanges(const std::vector<TicketSettings>& before,
                                              TicketItem& rootBefore,
                                              const std::vector<TicketSettings>& after,
                                              TicketItem& rootAfter);

}  // namespace TicketHost
