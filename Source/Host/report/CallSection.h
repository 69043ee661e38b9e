#pragma once

#include "Host/report/CallAccount.h"
#include "Host/report/ExplanationSection.h"

namespace TicketHost {

// Writes the header: the lines of "PJL" as each call that changed it left them.
void WriteHeaderSection(HtmlWriter& html, const CallAccounts& calls);

// Writes the section of the calls: for each what came to it, what it changed and what its ticket says. Those
// that failed are open. With an explanation, which may be null, what came of them stands there as its lines.
void WriteCallSection(HtmlWriter& html, const CallAccounts& calls, ExplanationWriter* explanation);

}  // namespace TicketHost
