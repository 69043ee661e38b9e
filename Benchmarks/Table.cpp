#include "Table.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace Benchmarks {
namespace {

constexpr char lineFormat[] = "%-36s%10s  %-17s%-17s%9s  %s\n";

// Three digits that count, and all of a number that has more.
std::string Digits(double value) {
    char text[32];
    const int decimals = value < 0.995 ? 3 : value < 9.95 ? 2 : value < 99.5 ? 1 : 0;
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string TextOf(const Goal& goal) {
    if (goal.Sense == Goal::None) return "";
    char text[32];
    std::snprintf(text, sizeof text, "%s %g", goal.Sense == Goal::AtMost ? "<=" : ">=", goal.Value);
    return text;
}

// Between two values where no single one is the quartile.
double QuartileOf(const std::vector<double>& sorted, std::size_t quarters) {
    const std::size_t place = (sorted.size() - 1) * quarters;
    const double below = sorted[place / 4];
    const double above = sorted[std::min(place / 4 + 1, sorted.size() - 1)];
    return std::lerp(below, above, static_cast<double>(place % 4) / 4);
}

}  // namespace

bool Table::ReportContext(const Context&) {
    std::printf(lineFormat, "what", "median", "of", "quartiles", "goal", "met");
    return true;
}

void Table::ReportRuns(const std::vector<Run>& runs) {
    std::vector<double> values;
    const Row& row = *std::ranges::find(rows_, runs.front().run_name.function_name, NameOf);
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Aggregate) return;
        if (run.error_occurred) {
            std::printf("%-36s%10s  %s\n", row.What.c_str(), "-", run.error_message.c_str());
            return;
        }
        values.push_back(run.counters.at(ValueName));
    }
    Print(row, std::move(values));
    std::fflush(stdout);
}

void Table::Print(const Row& row, std::vector<double> values) {
    std::ranges::sort(values);
    const double median = QuartileOf(values, 2);
    const bool met = row.Wanted.IsMet(median);
    if (row.Repeated == Rounds::Counted && !met) countsMissed_ = true;
    const std::string spread =
        values.size() == 1 ? "" : Digits(QuartileOf(values, 1)) + " - " + Digits(QuartileOf(values, 3));
    const char* verdict = row.Wanted.Sense == Goal::None ? "" : met ? "yes" : "no";
    std::printf(lineFormat, row.What.c_str(), Digits(median).c_str(), row.Unit.c_str(), spread.c_str(),
                TextOf(row.Wanted).c_str(), verdict);
}

}  // namespace Benchmarks
