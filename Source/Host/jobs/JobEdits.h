#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Host/jobs/Job.h"

namespace TicketHost {

// What a job would be otherwise. Names and values are UTF-8; `Said` is what the user said, for errors.

// A member of the settings in the tickets of job level, which are the only ones that are read.
struct SettingEdit {
    std::string Said;
    std::string Name;
    std::optional<std::string> Value;  // absent: the member goes, wherever it stands
};

// The option that a feature has chosen.
struct OptionEdit {
    std::string Said;
    std::string Feature;  // with a prefix that the ticket binds, or in one of the two namespaces
    std::string Option;   // likewise
};

// Sets or takes away a setting. What counts of several members with the name is replaced; where there is
// none, the settings of the job gain one among "features". It becomes a text, or, where a number of
// "paraminits" is replaced by a text that is a number, a number.
//
// Throws InputError for a job without a ticket of job level, for a ticket that is no Print Ticket or whose
// settings have no room for a member, and where there is nothing to take away.
void EditSetting(const SettingEdit& edit, Job& job);

// Makes a feature choose an option, in each ticket that has the feature; where none has, in those of job
// level, or in the first of a job that has none of these. What stands in the option of before, such as its
// scored properties, goes when another takes its place. A name without a prefix stands for the feature that
// the ticket has, and for the option that the module knows of this feature or else one in the namespace of
// the option of before; where that doesn't tell, in the keywords' namespace.
//
// Throws InputError for a job without tickets, a ticket that is no Print Ticket, names that are none and
// prefixes that the ticket doesn't bind.
void EditOption(const OptionEdit& edit, Job& job);

}  // namespace TicketHost
