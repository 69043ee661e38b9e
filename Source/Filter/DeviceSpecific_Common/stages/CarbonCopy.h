#pragma once

#include <string_view>

#include "conversion/PTConverter.h"
#include "tables/KeywordCommand.h"

namespace DeviceSpecificModule {

// Appends the carbon copy commands to `pjl` when carbon copies are on: the command of the kind of copy, if a
// row of `types` knows it (the built-in rows know "Tray" and "Page"), then the format with the list of the
// trays that take part, as TRAY1,TRAY5. The list may be empty.
void AppendCarbonCopy(const SharedJson& settings, KeywordCommandTable types, std::u16string_view format,
                      WideText& pjl);

}  // namespace DeviceSpecificModule
