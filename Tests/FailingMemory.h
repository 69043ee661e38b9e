#pragma once

#include <string>

// Allocations of the test program that fail on purpose. It replaces operator new and, but under a sanitizer,
// malloc for every library in the process; under a sanitizer the XML library's malloc alone. What a thread
// allocates fails only while it holds a fault.

namespace DeviceSpecificModule {

enum class Allocator { New, Malloc };  // Malloc: that and its kin, where operator new doesn't call them

// The allocation of this number, from 0 on, of those that the calling thread makes while this object lives.
class AllocationFault {
public:
    AllocationFault(Allocator allocator, long number);
    ~AllocationFault();
    AllocationFault(const AllocationFault&) = delete;
    AllocationFault& operator=(const AllocationFault&) = delete;

    // Ends the fault; whether it came to it.
    bool End();
    // The file name of the library that asked for what failed: of those on the call stack, the first that is
    // neither the language's nor the system's; empty for this program.
    const std::string& Library() const { return library_; }

private:
    std::string library_;
};

// While this lives, the calling thread's allocations are the test's own and don't count.
class FaultsHeld {
public:
    FaultsHeld();
    ~FaultsHeld();
    FaultsHeld(const FaultsHeld&) = delete;
    FaultsHeld& operator=(const FaultsHeld&) = delete;

private:
    long left_[2];
};

// How many blocks the calling thread has taken and not given back. What one thread takes and another gives
// back spoils both counts.
long LiveBlocks();

}  // namespace DeviceSpecificModule
