#pragma once

#include <json/value.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Host/check/Findings.h"
#include "Host/check/Vocabulary.h"

namespace TicketHost {

// What the calls ahead have told the module of the job.
struct JobState {
    Json::Value Settings;  // "features" and "paraminits", merged as the module does
    std::optional<std::string>
        SaidSize;  // the value of OutPSize of which is said that tickets' sizes don't count

    // The setting's value as a text; empty where there is none.
    std::string Setting(std::string_view name) const;
};

// A ticket, read once for all checks of it.
struct TicketContent {
    Platform::XmlElement Root;
    std::vector<TicketItem> Items;  // of the root
};

// Checks a ticket for a level of conversion. A job ticket's settings are those of the state already.
void CheckTicket(const TicketContent& ticket, Level level, JobState& job, TicketReport& report);

}  // namespace TicketHost
