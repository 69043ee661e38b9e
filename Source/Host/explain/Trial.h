#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Host/explain/Explanation.h"
#include "Host/jobs/JobRunner.h"

namespace TicketHost {

// What one call came to, as far as runs are compared by it. Texts share their buffers with the run's.
struct TrialOutcome {
    std::string Error;              // "TYPE: MESSAGE", empty: the call didn't throw
    bool ChangesPjl = false;        // or is at job level and didn't throw, and so writes it whatever it was
    Platform::WideText Pjl;         // after the call
    Platform::WideText Data;        // what the call added to "DATA", or all of it where it began anew
    PipelineProperties Properties;  // the others after the call, without printer bags
    std::vector<std::u16string> Changed;  // those that the call changed or removed, in the order of names
    Platform::WideText TicketBefore, TicketAfter;
};

// The outcomes of a run by their calls' indices; of a run that is compared with another only those that
// differ from it.
using Trial = std::map<std::size_t, TrialOutcome>;

// Converts up to `calls` calls of a job as RunJob does and ends like it behind one that throws. Outcomes that
// are the same as those of `known`, where that is given, are left out.
Trial Convert(const Job& job, std::size_t calls, const Trial* known = nullptr);

// Whether two outcomes of one call say the same, what they didn't change of the properties left aside.
bool AreSame(const TrialOutcome& left, const TrialOutcome& right);

// A line of an outcome, raw. Where two lines in one place have the same key, one stands in for the other.
struct OutcomeLine {
    LineKind Kind = LineKind::Pjl;
    std::string Key;
    std::string Text;

    bool operator==(const OutcomeLine&) const = default;
};

// The lines of an outcome, ordered by kind.
std::vector<OutcomeLine> LinesOf(const TrialOutcome& outcome);

// The same of an outcome that is to be compared with another of that call: what the other changed is there
// as well, and a property that is now as it is after the other is only there where that one changed it. Where
// the tickets end alike, whatever they began as, the edits are the other's.
std::vector<OutcomeLine> LinesAgainst(const TrialOutcome& outcome, const TrialOutcome& other);

// Another run's lines of the same call, set against these.
struct LineChange {
    std::size_t Line = NoIndex;  // index in the lines; NoIndex: the other run has one more
    LineKind Kind = LineKind::Pjl;
    std::optional<std::string> Instead;  // what the other run has there

    bool operator==(const LineChange&) const = default;
};

// A line that changes by itself, as its words, its numbers and what stands between them. Absent: a part that
// the clock decides.
using Pattern = std::vector<std::optional<std::string>>;

// For each line of a call its pattern; absent: the line stays as it is.
using Patterns = std::vector<std::optional<Pattern>>;

// What two runs of an unchanged job say of it: the parts that differ are the clock's, and so is each number
// behind the first of them, since what is smaller than a unit that went on may happen to be the same again.
// Empty where the two don't have the same lines by their keys.
Patterns PatternsOf(const std::vector<OutcomeLine>& first, const std::vector<OutcomeLine>& second);

// What another run has in place of these lines, by the fewest lines that must go and come. Where `patterns`
// is not empty, a line that fits the pattern of the one that it is set against is the same.
std::vector<LineChange> CompareLines(const std::vector<OutcomeLine>& lines,
                                     const std::vector<OutcomeLine>& others, const Patterns& patterns = {});

// A line of such a kind for a person.
std::string ShownLine(LineKind kind, const std::string& text);

}  // namespace TicketHost
