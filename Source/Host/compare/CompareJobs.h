#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "Host/ground/LineDiff.h"
#include "Host/jobs/Job.h"
#include "Host/tickets/TicketChanges.h"

namespace TicketHost {

// One of two calls that are held against each other.
struct CallName {
    std::int32_t Level = 0;
    std::string Ticket;  // its name

    bool operator==(const CallName&) const = default;
};

struct PropertyDifference {
    std::string Name;
    std::optional<std::string> Before, After;  // for a person; absent: there is none
};

// What differs between the calls that two jobs make at the same place. Texts are UTF-8, fit for a line.
struct CallDifference {
    std::size_t Number = 0;                 // counts from 1
    std::optional<CallName> Before, After;  // absent: the job has fewer calls
    std::string ErrorBefore, ErrorAfter;    // "TYPE: MESSAGE" when they differ; empty: it threw nothing
    std::vector<LineEdit> Pjl;              // the lines of "PJL", if one of the calls changed it
    std::vector<LineEdit> Data;             // the lines that came to "DATA"
    // All other properties whose values differ since these calls.
    std::vector<PropertyDifference> Properties;
    std::vector<TicketChange> Ticket;  // what the calls made of their tickets
};

// Converts both jobs in full, past calls that throw, at one and the same moment, so that times don't differ,
// and with the same answers of the platform. Hands out the calls that differ, in order, while the second job
// is converted; gives their number. What was given to the jobs doesn't count, only what the calls make of it,
// nor does the mere form of a ticket. The state of a long job is shown on `progress`, where that isn't null.
std::size_t CompareJobs(Job before, Job after, const std::function<void(const CallDifference&)>& take,
                        std::ostream* progress = nullptr);

}  // namespace TicketHost
