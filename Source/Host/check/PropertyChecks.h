#pragma once

#include "Host/check/Findings.h"
#include "Host/jobs/Job.h"

namespace TicketHost {

// Checks the properties of the three bags and the list of tables.
void CheckProperties(const Job& job, Findings& findings);

}  // namespace TicketHost
