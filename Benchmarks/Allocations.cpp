#include "Allocations.h"

#include <malloc.h>

#include <algorithm>
#include <cstddef>
#include <utility>

// This program's malloc: the C library's, which goes by these names too, and a count on threads that asked
// for one. What is aligned beyond malloc's own goes past it; neither the module nor its libraries ask for
// that.

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void __libc_free(void* memory);
}

namespace Benchmarks {
namespace {

thread_local bool counting = false;
thread_local AllocationCounts counts;

std::int64_t BytesAt(void* memory) { return static_cast<std::int64_t>(malloc_usable_size(memory)); }

void* Taken(void* memory) {
    if (!counting) return memory;
    ++counts.Calls;
    counts.LiveBytes += BytesAt(memory);
    counts.PeakBytes = std::max(counts.PeakBytes, counts.LiveBytes);
    return memory;
}

void Given(void* memory) {
    if (counting) counts.LiveBytes -= BytesAt(memory);
}

}  // namespace

void StartCountingAllocations() {
    counts = {};
    counting = true;
}

AllocationCounts StopCountingAllocations() {
    counting = false;
    return counts;
}

}  // namespace Benchmarks

#pragma GCC visibility push(default)
extern "C" {

void* malloc(std::size_t size) { return Benchmarks::Taken(__libc_malloc(size)); }

void* calloc(std::size_t count, std::size_t size) { return Benchmarks::Taken(__libc_calloc(count, size)); }

// Counts the old bytes as given back first, so a block that moves does not show twice in the peak.
void* realloc(void* memory, std::size_t size) {
    Benchmarks::Given(memory);
    return Benchmarks::Taken(__libc_realloc(memory, size));
}

void free(void* memory) {
    Benchmarks::Given(memory);
    __libc_free(memory);
}

}  // extern "C"
#pragma GCC visibility pop
