#pragma once

#include <time.h>

#include <stdexcept>

namespace Benchmarks {

// CPU time of the calling thread, in seconds: what other programs take meanwhile doesn't count.
inline double ThreadSeconds() {
    timespec time{};
    if (clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time) != 0)
        throw std::runtime_error("no clock of thread CPU time");
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

// What looking at the clock twice takes, in seconds.
inline double ClockCost() {
    constexpr int looks = 1000;
    const double start = ThreadSeconds();
    for (int look = 0; look < looks - 1; ++look) ThreadSeconds();
    return (ThreadSeconds() - start) / looks;
}

// The CPU time that the work takes on the calling thread, in seconds.
template <typename Work>
double CpuSeconds(Work&& work) {
    static const double clockCost = ClockCost();
    const double start = ThreadSeconds();
    work();
    return ThreadSeconds() - start - clockCost;
}

}  // namespace Benchmarks
