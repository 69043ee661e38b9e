#pragma once

#include "tables/KeywordCommand.h"

// Carbon copies, and exceptions for single pages.

namespace DeviceSpecificModule {

// Filled with the list of trays by its stage.
inline constexpr KeywordCommand CarbonCopyCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand CarbonCopyTypeCommandTable[] = {{u"Tray", u""}, {u"Page", u""}};

// The device's command for one exception, filled by the per-page writers, each in its turn.
inline constexpr KeywordCommand PerPageCommandTable[] = {{u"CMD", u""}};

}  // namespace DeviceSpecificModule
