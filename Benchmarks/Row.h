#pragma once

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace Benchmarks {

// What one measurement gave. A round adds the samples up, amounts and units, and its value is their quotient:
// for a ratio to the floor the amount is the subject's time and the unit the floor's, taken right after it.
struct Sample {
    double Amount;
    double Unit;
};
using Measure = std::function<Sample()>;

struct Goal {
    enum { None, AtMost, AtLeast } Sense = None;
    double Value = 0;

    bool IsMet(double value) const {
        return Sense == None || (Sense == AtMost ? value <= Value : value >= Value);
    }
};

// How a row is repeated.
enum class Rounds {
    Timed,    // rounds long enough for the clock, in seconds of amounts
    Slow,     // few rounds of one sample
    Once,     // one sample, which stands for many calls itself
    Counted,  // one sample; the value is the same on every machine
};

// A line of the table.
struct Row {
    std::string What;
    std::string Unit;
    Goal Wanted;
    Rounds Repeated;
    // Makes ready, and gives what takes the samples. Throws NotMeasurable where the machine lacks what it
    // needs.
    std::function<Measure()> Prepare;
};

// What tells a row from all others.
inline std::string NameOf(const Row& row) { return row.What + ": " + row.Unit; }

struct NotMeasurable {
    std::string Why;
};

// How much is measured.
struct Scale {
    int TimedRounds;
    int SlowRounds;
    double RoundSeconds;
    int LatePage;  // the page that is held against the first one
    int JobPages;  // of the job whose memory is measured
};

inline constexpr Scale FullScale{15, 7, 0.01, 100'000, 10'000};
inline constexpr Scale QuickScale{3, 1, 0.001, 5'000, 1'000};

// All rows, in the order of the table.
std::vector<Row> Rows(const Scale& scale);

}  // namespace Benchmarks
