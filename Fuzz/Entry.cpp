#include <stdlib.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "Targets.h"

// What libFuzzer calls, for the target that the build names.

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Otherwise each look at the clock also asks the file system for the time zone.
    return setenv("TZ", "UTC0", 1);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr auto target = *std::ranges::find(Fuzz::Targets, FUZZ_TARGET, &Fuzz::Target::Name);
    target.Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
