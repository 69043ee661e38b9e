#pragma once

#include <string_view>

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// Appends the page numbering command to `pjl`: the format with the cover word, the starting page and the
// starting number filled in, in this order. Nothing when the settings don't say whether pages are numbered,
// or, for numbered pages, how covers count.
void AppendPageNumbering(const SharedJson& settings, std::u16string_view format, WideText& pjl);

}  // namespace DeviceSpecificModule
