#pragma once

#include <cstdint>

namespace Benchmarks {

// What the calling thread asked of malloc, calloc and realloc since it began to count; operator new asks
// malloc. Bytes are those that malloc really gave, and can be fewer than none when more was freed than taken.
struct AllocationCounts {
    std::uint64_t Calls = 0;
    std::int64_t LiveBytes = 0;
    std::int64_t PeakBytes = 0;
};

void StartCountingAllocations();
AllocationCounts StopCountingAllocations();

// The counts of one piece of work.
template <typename Work>
AllocationCounts CountAllocations(Work&& work) {
    StartCountingAllocations();
    work();
    return StopCountingAllocations();
}

}  // namespace Benchmarks
