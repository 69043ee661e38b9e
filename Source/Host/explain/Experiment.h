#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <span>
#include <vector>

#include "Host/explain/Trial.h"

namespace TicketHost {

using ItemSet = std::vector<std::size_t>;  // indices of items, ascending

// A job that can be converted without some of its items. Any number of threads may convert at once.
class Conversions {
public:
    virtual ~Conversions() = default;
    // The first so many calls, as Convert gives them.
    virtual Trial Run(const ItemSet& without, std::size_t calls, const Trial* known) const = 0;
};

// What is other without some items, by call. A call that threw only then, or only otherwise, has its error
// alone, and nothing behind it is compared.
using Changes = std::map<std::size_t, std::vector<LineChange>>;

// Tells how many trials were made, and of how many; 0 where that isn't known. Called by one thread at a time.
using Progress = std::function<void(std::size_t done, std::size_t total)>;

// Converts a job again and again to find what its items do. Some lines change by themselves, since they hold
// the time. So each trial stands between two runs of the unchanged job, and a call counts only when those two
// agree on it: what it says of the time was then the same all the while, whether in seconds or in days.
// Where they disagree, the call is tried again with all three runs close together. Where the clock ticks
// between them every time, the lines in which the two differ are compared by what they have in common.
class Experiment {
public:
    // Converts the unchanged job.
    Experiment(const Conversions& conversions, std::size_t calls, Progress progress);

    // How many calls were made: fewer than asked for where one threw.
    std::size_t CallCount() const { return base_.size(); }
    // The lines of the unchanged job, by call.
    const std::vector<std::vector<OutcomeLine>>& Lines() const { return lines_; }

    // What is other without these items, in the first so many calls.
    Changes Try(const ItemSet& without, std::size_t calls) const;
    // The same for each of several sets, on two threads.
    std::vector<Changes> TryAll(const std::vector<ItemSet>& sets) const;

private:
    const TrialOutcome& Of(const Trial& trial, std::size_t call) const;
    Changes Settle(const ItemSet& without, const Trial& trial, const Trial& later) const;
    void TryCloser(const ItemSet& without, std::vector<std::size_t>& open, bool isLast,
                   Changes& changes) const;
    void Record(std::size_t call, const TrialOutcome& unchanged, const TrialOutcome& tried,
                const Patterns& patterns, Changes& changes) const;

    void Count(std::size_t total) const;

    const Conversions& conversions_;
    const Progress progress_;
    mutable std::mutex guard_;
    mutable std::size_t made_ = 0;  // trials
    Trial base_;
    std::vector<std::vector<OutcomeLine>> lines_;
};

}  // namespace TicketHost
