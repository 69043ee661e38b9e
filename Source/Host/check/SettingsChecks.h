#pragma once

#include "Host/check/TicketChecks.h"

namespace TicketHost {

// Checks the user's settings that a ticket carries, and adds those of a job ticket to the state.
void CheckSettings(const TicketContent& ticket, Level level, JobState& job, TicketReport& report);

}  // namespace TicketHost
