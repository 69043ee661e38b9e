#pragma once

#include "Host/explain/Investigation.h"

namespace TicketHost {

// Of the items that seem to do nothing, finds those that others hide (Explain.h says how), and says so in
// their HiddenBy.
void FindHiddenItems(Investigation& investigation, Explanation& explanation);

}  // namespace TicketHost
