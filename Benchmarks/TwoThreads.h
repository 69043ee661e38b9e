#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Host.h"

namespace Benchmarks {

struct ThreadsResult {
    double SecondsPerCall;  // CPU time
    double LockWaits;       // of all calls together
    double Calls;
};

// Page calls on one or two threads at the same time, each in a job of its own.
class PageCallThreads {
public:
    explicit PageCallThreads(std::string ticket);
    // Lets so many threads convert at the same time, each loading its tickets in between, and takes what the
    // calls cost.
    ThreadsResult Run(int threads);

private:
    std::string ticket_;
    std::vector<std::unique_ptr<Host>> hosts_;
};

}  // namespace Benchmarks
