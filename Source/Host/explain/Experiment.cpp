#include "Host/explain/Experiment.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>

namespace TicketHost {
namespace {

constexpr std::size_t mostAttempts = 4;
constexpr std::size_t setsInBracket = 8;  // trials that share the run of the unchanged job behind them
constexpr unsigned threadCount = 2;

// Where the line stands among those of another run of the same job: as often as its key was there before.
std::size_t SameLine(const std::vector<OutcomeLine>& lines, std::size_t line,
                     const std::vector<OutcomeLine>& others) {
    const auto isLike = [&](const OutcomeLine& other) {
        return other.Kind == lines[line].Kind && other.Key == lines[line].Key;
    };
    const auto end = lines.begin() + static_cast<std::ptrdiff_t>(line);
    auto before = std::count_if(lines.begin(), end, isLike);
    for (std::size_t at = 0; at < others.size(); ++at)
        if (isLike(others[at]) && before-- == 0) return at;
    return NoIndex;
}

// Calls `work` for each number below `count`, on several threads; the first error that one throws is thrown.
template <typename Work>
void ForEachOnThreads(std::size_t count, const Work& work) {
    std::atomic<std::size_t> next = 0;
    std::exception_ptr error;
    std::mutex guard;
    const auto run = [&] {
        try {
            for (std::size_t at = next++; at < count; at = next++) work(at);
        } catch (...) {
            const std::lock_guard lock(guard);
            if (!error) error = std::current_exception();
            next = count;
        }
    };
    {
        std::vector<std::jthread> others;
        for (unsigned thread = 1; thread < threadCount && thread < count; ++thread) others.emplace_back(run);
        run();
    }
    if (error) std::rethrow_exception(error);
}

}  // namespace

Experiment::Experiment(const Conversions& conversions, std::size_t calls, Progress progress)
    : conversions_(conversions), progress_(std::move(progress)), base_(conversions.Run({}, calls, nullptr)) {
    for (const auto& [call, outcome] : base_) lines_.push_back(LinesOf(outcome));
}

const TrialOutcome& Experiment::Of(const Trial& trial, std::size_t call) const {
    const auto found = trial.find(call);
    return found == trial.end() ? base_.at(call) : found->second;
}

// Errors are compared first: a call that throws leaves little to compare, and nothing that says much.
void Experiment::Record(std::size_t call, const TrialOutcome& unchanged, const TrialOutcome& tried,
                        const Patterns& patterns, Changes& changes) const {
    const bool isFirst = &unchanged == &base_.at(call);
    const std::vector<OutcomeLine> lines = isFirst ? lines_[call] : LinesOf(unchanged);
    const std::vector<OutcomeLine> others = LinesAgainst(tried, unchanged);
    std::vector<LineChange> found = CompareLines(lines, others, patterns);
    const bool sameError = unchanged.Error == tried.Error;
    std::erase_if(found, [&](LineChange& change) {
        if (!sameError && change.Kind != LineKind::Error) return true;
        if (change.Line == NoIndex) return false;
        change.Line = SameLine(lines, change.Line, lines_[call]);
        return change.Line == NoIndex;
    });
    if (!found.empty()) changes[call] = std::move(found);
}

// Makes the three runs for what is still open, and closes what the clock now lets be told.
void Experiment::TryCloser(const ItemSet& without, std::vector<std::size_t>& open, bool isLast,
                           Changes& changes) const {
    const std::size_t calls = open.back() + 1;
    const Trial before = conversions_.Run({}, calls, &base_);
    const Trial trial = conversions_.Run(without, calls, &base_);
    const Trial after = conversions_.Run({}, calls, &base_);
    std::erase_if(open, [&](std::size_t call) {
        const TrialOutcome &first = Of(before, call), &tried = Of(trial, call), &second = Of(after, call);
        if (AreSame(first, tried) || AreSame(tried, second)) return true;
        const bool agree = AreSame(first, second);
        if (!agree && !isLast) return false;
        Record(call, first, tried, agree ? Patterns() : PatternsOf(LinesOf(first), LinesOf(second)), changes);
        return true;
    });
}

// The run ahead of all trials is the first of all.
Changes Experiment::Settle(const ItemSet& without, const Trial& trial, const Trial& later) const {
    Changes changes;
    std::vector<std::size_t> open;
    for (const auto& [call, tried] : trial) {
        const TrialOutcome &before = base_.at(call), &after = Of(later, call);
        if (AreSame(tried, after)) continue;
        if (AreSame(before, after))
            Record(call, before, tried, {}, changes);
        else
            open.push_back(call);
    }
    for (std::size_t attempt = 1; !open.empty(); ++attempt)
        TryCloser(without, open, attempt == mostAttempts, changes);
    return changes;
}

Changes Experiment::Try(const ItemSet& without, std::size_t calls) const {
    const std::size_t made = std::min(calls, CallCount());
    const Trial trial = conversions_.Run(without, made, &base_);
    Count(0);
    if (trial.empty()) return {};
    return Settle(without, trial, conversions_.Run({}, trial.rbegin()->first + 1, &base_));
}

void Experiment::Count(std::size_t total) const {
    const std::lock_guard lock(guard_);
    ++made_;
    if (progress_) progress_(made_, total);
}

std::vector<Changes> Experiment::TryAll(const std::vector<ItemSet>& sets) const {
    std::vector<Changes> all(sets.size());
    const auto tryBracket = [&](std::size_t bracket) {
        const std::size_t first = bracket * setsInBracket;
        const std::size_t end = std::min(first + setsInBracket, sets.size());
        std::vector<Trial> trials;
        for (std::size_t at = first; at < end; ++at) {
            trials.push_back(conversions_.Run(sets[at], CallCount(), &base_));
            Count(sets.size());
        }
        const Trial after = conversions_.Run({}, CallCount(), &base_);
        for (std::size_t at = first; at < end; ++at) all[at] = Settle(sets[at], trials[at - first], after);
    };
    ForEachOnThreads((sets.size() + setsInBracket - 1) / setsInBracket, tryBracket);
    return all;
}

}  // namespace TicketHost
