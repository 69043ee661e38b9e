#pragma once

#include "Host/check/Findings.h"
#include "Host/report/HtmlWriter.h"

namespace TicketHost {

// Writes the section of what a check of the job found; nothing where that is nothing.
void WriteWarningSection(HtmlWriter& html, const Findings& findings);

}  // namespace TicketHost
