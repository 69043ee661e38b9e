#pragma once

#include <cstdint>

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// The texts for a moment, given as seconds since 1 January 1970 UTC, in local time. Empty for a moment
// without a place in the calendar.

// As in "Tue,03 Feb 2026 04:05:06".
WideText FormatPrintLogDate(std::int64_t seconds);

// As in "20260203040506".
WideText FormatJobTime(std::int64_t seconds);

}  // namespace DeviceSpecificModule
