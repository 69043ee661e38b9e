#pragma once

#include "tables/KeywordCommand.h"
#include "tables/TableChecks.h"

// Exceptions for single pages.

namespace DeviceSpecificModule {

// The device's command for one exception, filled by the per-page writers, each in its turn.
inline constexpr KeywordCommand PerPageCommandTable[] = {{u"CMD", u""}, {}};

static_assert(AreFormatTables(PerPageCommandTable));

}  // namespace DeviceSpecificModule
