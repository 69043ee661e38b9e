#pragma once

#include <benchmark/benchmark.h>

#include <vector>

#include "Row.h"

namespace Benchmarks {

// The name of the value that each round hands to the table.
inline constexpr char ValueName[] = "value";

// Prints a line for each row as soon as its rounds are through. Benchmarks are called by NameOf
// their row.
class Table final : public benchmark::BenchmarkReporter {
public:
    explicit Table(const std::vector<Row>& rows) : rows_(rows) {}

    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    // Whether a count that is the same on every machine missed its goal.
    bool CountsMissed() const { return countsMissed_; }

private:
    void Print(const Row& row, std::vector<double> values);

    const std::vector<Row>& rows_;
    bool countsMissed_ = false;
};

}  // namespace Benchmarks
