#pragma once

#include "Host/explain/Investigation.h"

namespace TicketHost {

// Of the items that seem to do nothing, finds those that others hide (Causes.h says how), and says so in
// HiddenBy of `items`, which are those of the investigation.
void FindHiddenItems(Investigation& investigation, const std::vector<bool>& haveEffect,
                     std::vector<SourceItem>& items);

}  // namespace TicketHost
