#pragma once

#include <cstdint>

namespace Benchmarks {

// How many mutexes the calling thread has locked, and how often it found one taken and had to wait. malloc's
// own locks are none of these; they belong to the C library and don't show.
struct LockCounts {
    std::uint64_t Taken = 0;
    std::uint64_t Waits = 0;
};
LockCounts CountLocks();

// Throws unless a wait is counted when a thread locks what another holds.
void ExpectToSeeLockWaits();

}  // namespace Benchmarks
