#pragma once

#include "Host/check/Findings.h"
#include "Host/jobs/Job.h"

namespace TicketHost {

// Checks a job: its properties, the order of its calls, and each ticket once for each level that it is
// converted at. Nothing is converted, and nothing outside the job is asked. What is said of one ticket stands
// in the order of its lines.
Findings CheckJob(const Job& job);

// What can be said only by asking the system: of the name that the job's queue gives it.
void CheckQueue(const Job& job, Findings& findings);

// Adds the lines of a manifest's own findings. `bytes` is the manifest; anything else adds nothing.
void AddManifestLines(const std::string& bytes, const Job& job, Findings& findings);

}  // namespace TicketHost
