#pragma once

#include "Host/report/CallAccount.h"
#include "Host/report/HtmlWriter.h"
#include "Host/report/Sheets.h"

namespace TicketHost {

// Writes the section of the sheets: each run drawn, with a caption that says what the drawing can't, and
// leads to the call that it comes from. `isBooklet`: the pages were kept apart.
void WriteSheetSection(HtmlWriter& html, const SheetRow& sheets, const CallAccounts& calls, bool isBooklet);

}  // namespace TicketHost
