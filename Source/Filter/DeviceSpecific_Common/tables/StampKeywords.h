#pragma once

#include "tables/KeywordCommand.h"
#include "tables/StampRows.h"
#include "tables/TableChecks.h"

// Page numbers, and the date and time on pages.

namespace DeviceSpecificModule {

// Filled by its stage.
inline constexpr KeywordCommand PageNumberingCommandTable[] = {{u"CMD", u""}, {}};

inline constexpr auto& PageNumberColorCommandTable = StampColorRows<Stamp::PageNumber>;
inline constexpr auto& PageNumberPositionCommandTable = StampPositionRows<Stamp::PageNumber>;

inline constexpr KeywordCommand DateTimeCommandTable[] = {{u"Off", u""}, {u"On", u""}, {}};
inline constexpr auto& DateTimeColorCommandTable = StampColorRows<Stamp::DateTime>;
inline constexpr auto& DateTimePositionCommandTable = StampPositionRows<Stamp::DateTime>;
inline constexpr auto& DateTimePagesCommandTable = StampPagesRows<Stamp::DateTime>;

inline constexpr KeywordCommand DateTimeDateFormatCommandTable[] = {
    {u"Date1", u""}, {u"Date4", u""}, {u"Date2", u""}, {u"Date5", u""}, {u"Date3", u""}, {},
};

inline constexpr KeywordCommand DateTimeTimeCommandTable[] = {{u"Off", u""}, {}};
inline constexpr KeywordCommand DateTimeTimeFormatCommandTable[] = {{u"Time1", u""}, {u"Time2", u""}, {}};

static_assert(AreFormatTables(PageNumberingCommandTable));
static_assert(AreOptionTables(7, PageNumberColorCommandTable, DateTimeColorCommandTable));
static_assert(AreOptionTables(9, PageNumberPositionCommandTable, DateTimePositionCommandTable));
static_assert(AreOptionTables(2, DateTimeCommandTable, DateTimePagesCommandTable,
                              DateTimeTimeFormatCommandTable));
static_assert(AreOptionTables(5, DateTimeDateFormatCommandTable));
static_assert(AreOptionTables(1, DateTimeTimeCommandTable));

}  // namespace DeviceSpecificModule
