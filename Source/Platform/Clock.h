#pragma once

#include <cstdint>
#include <optional>

#include "devicespecific/platform/Export.h"

namespace DeviceSpecificModule::Platform {

// A moment in the local calendar.
struct LocalTime {
    int Year = 0;     // as in 2026
    int Month = 0;    // 1 to 12
    int Day = 0;      // 1 to 31
    int Hour = 0;     // 0 to 23
    int Minute = 0;   // 0 to 59
    int Second = 0;   // 0 to 60
    int Weekday = 0;  // 0 for Sunday to 6
};

// Whole seconds since 1 January 1970, UTC.
DEVICESPECIFIC_API std::int64_t GetSystemSeconds();

// From here on GetSystemSeconds gives the calling thread this moment; nullopt ends that. For hosts that hold
// one conversion against another.
DEVICESPECIFIC_API void SetSystemSecondsOfThread(std::optional<std::int64_t> seconds);

// The local calendar form of such seconds. False, with `time` as it was, for a year that can't be counted.
DEVICESPECIFIC_API bool ToLocalTime(std::int64_t seconds, LocalTime& time);

}  // namespace DeviceSpecificModule::Platform
