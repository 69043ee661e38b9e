#pragma once

#include <CLI/App.hpp>
#include <optional>
#include <string>
#include <vector>

#include "Host/jobs/Job.h"

namespace TicketHost {

// What the command line says of a job as it might be, as its user wrote it.
struct WhatIfOptions {
    std::vector<std::string> Set, Unset, Option;
    std::optional<std::string> Level, JobName, User;
};

// Adds them to a verb. The options must live until the command line is read.
void AddWhatIfOptions(CLI::App& verb, WhatIfOptions& options);

// Makes a job so. Throws InputError, which begins with the option that can't be done.
void ApplyWhatIf(const WhatIfOptions& options, Job& job);

}  // namespace TicketHost
