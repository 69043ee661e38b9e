#pragma once

#include "Host/check/TicketChecks.h"

namespace TicketHost {

// Checks the JSON texts that the settings hold for single pages. The lines are those of the two settings.
void CheckPerPageSettings(const JobState& job, int detailsLine, int listLine, TicketReport& report);

}  // namespace TicketHost
