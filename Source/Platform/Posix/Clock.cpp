#include "Platform/Clock.h"

#include <time.h>

#include <climits>
#include <mutex>

namespace DeviceSpecificModule::Platform {

namespace {

constinit thread_local std::optional<std::int64_t> secondsOfThread;

}  // namespace

void SetSystemSecondsOfThread(std::optional<std::int64_t> seconds) { secondsOfThread = seconds; }

std::int64_t GetSystemSeconds() { return secondsOfThread ? *secondsOfThread : time(nullptr); }

bool ToLocalTime(std::int64_t seconds, LocalTime& time) {
    const time_t moment = seconds;
    tm local{};
    static std::mutex timeZone;  // the process's; tzset and localtime_r must see the same one
    const std::lock_guard guard(timeZone);
    tzset();  // localtime_r alone need not look at a time zone set since the process began
    if (localtime_r(&moment, &local) == nullptr || local.tm_year > INT_MAX - 1900) return false;
    time = {.Year = local.tm_year + 1900,
            .Month = local.tm_mon + 1,
            .Day = local.tm_mday,
            .Hour = local.tm_hour,
            .Minute = local.tm_min,
            .Second = local.tm_sec,
            .Weekday = local.tm_wday};
    return true;
}

}  // namespace DeviceSpecificModule::Platform
