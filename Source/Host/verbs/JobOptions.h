#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

#include "Host/jobs/Job.h"
#include "Host/verbs/WhatIfOptions.h"

namespace TicketHost {

// What the command line says of a job, for each verb that takes one.
struct JobOptions {
    std::string File;
    std::vector<std::string> Pipeline, Driver, Queue;  // NAME=VALUE; of two with one name the later counts
    WhatIfOptions WhatIf;
};

// Adds them to a verb. The options must live until the command line is read.
void AddJobOptions(CLI::App& verb, JobOptions& options);

// The same without the job's file.
void AddJobChanges(CLI::App& verb, JobOptions& options);

// Makes a job what the options say of it. Throws InputError.
void ApplyJobOptions(const JobOptions& options, Job& job);

// The job as these options make it. Throws InputError.
Job ReadJob(const JobOptions& options);

}  // namespace TicketHost
