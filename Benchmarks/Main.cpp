#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "Row.h"
#include "Table.h"

namespace Benchmarks {
namespace {

struct Options {
    bool Quick = false;
    bool CheckCounts = false;
};

constexpr char help[] =
    "bench [--quick] [--check-counts]: prints how fast the module is, beside its goals.\n"
    "  --quick          fewer and shorter rounds, for a look whether all of it runs\n"
    "  --check-counts   only what is the same on every machine; exits with 1 when that misses a goal\n"
    "Google Benchmark's own options work too: --benchmark_filter='job call' prints some rows alone.\n";

// One round: samples until Google Benchmark has enough of them.
void RunRound(benchmark::State& state, const Measure& measure) {
    Sample sum{};
    for (auto _ : state) {
        const Sample sample = measure();
        sum.Amount += sample.Amount;
        sum.Unit += sample.Unit;
        state.SetIterationTime(sample.Amount);
    }
    state.counters[ValueName] = sum.Amount / sum.Unit;
}

void Register(const Row& row, const Scale& scale) {
    const auto run = [&row, measure = Measure()](benchmark::State& state) mutable {
        try {
            if (!measure) measure = row.Prepare();
        } catch (const NotMeasurable& reason) {
            return state.SkipWithError(reason.Why.c_str());
        }
        RunRound(state, measure);
    };
    benchmark::internal::Benchmark* registered =
        benchmark::RegisterBenchmark(NameOf(row).c_str(), run)->UseManualTime();
    if (row.Repeated == Rounds::Timed)
        registered->MinTime(scale.RoundSeconds)->Repetitions(scale.TimedRounds);
    else
        registered->Iterations(1)->Repetitions(row.Repeated == Rounds::Slow ? scale.SlowRounds : 1);
}

int Run(const Options& options) {
    const Scale& scale = options.Quick ? QuickScale : FullScale;
    const std::vector<Row> rows = Rows(scale);
    for (const Row& row : rows)
        if (!options.CheckCounts || row.Repeated == Rounds::Counted) Register(row, scale);
    Table table(rows);
    if (benchmark::RunSpecifiedBenchmarks(&table) == 0) return 1;
    return options.CheckCounts && table.CountsMissed() ? 1 : 0;
}

int Main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments, [] { std::fputs(help, stdout); });
    Options options;
    for (int index = 1; index < count; ++index) {
        const std::string argument = arguments[index];
        if (argument == "--quick") {
            options.Quick = true;
        } else if (argument == "--check-counts") {
            options.CheckCounts = true;
        } else {
            std::fputs(help, stderr);
            return 2;
        }
    }
    return Run(options);
}

}  // namespace
}  // namespace Benchmarks

int main(int count, char** arguments) {
    try {
        return Benchmarks::Main(count, arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench: %s\n", error.what());
        return 1;
    }
}
