#pragma once

#include "tables/KeywordCommand.h"
#include "tables/TableChecks.h"

// Carbon copies.

namespace DeviceSpecificModule {

// Filled with the list of trays by its stage.
inline constexpr KeywordCommand CarbonCopyCommandTable[] = {{u"CMD", u""}, {}};
inline constexpr KeywordCommand CarbonCopyTypeCommandTable[] = {{u"Tray", u""}, {u"Page", u""}, {}};

static_assert(AreFormatTables(CarbonCopyCommandTable));
static_assert(AreOptionTables(2, CarbonCopyTypeCommandTable));

}  // namespace DeviceSpecificModule
