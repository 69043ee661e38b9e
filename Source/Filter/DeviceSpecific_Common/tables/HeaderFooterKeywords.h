#pragma once

#include "tables/KeywordCommand.h"
#include "tables/StampRows.h"
#include "tables/TableChecks.h"

// Headers and footers. The formats are filled by their stage.

namespace DeviceSpecificModule {

inline constexpr KeywordCommand HeaderFooterCommandTable[] = {{u"Off", u""}, {u"On", u""}, {}};
inline constexpr KeywordCommand HeaderFooterFormatCommandTable[] = {{u"CMD", u""}, {}};
inline constexpr auto& HeaderFooterColorCommandTable = StampColorRows<Stamp::HeaderFooter>;
inline constexpr auto& HeaderFooterPagesCommandTable = StampPagesRows<Stamp::HeaderFooter>;

inline constexpr KeywordCommand HeaderFooterPrintHeaderCommandTable[] = {{u"Off", u""}, {}};
inline constexpr KeywordCommand HeaderStartNumberTypeCommandTable[] = {
    {u"Fixed", u""}, {u"NumberOnly", u""}, {}};
inline constexpr KeywordCommand HeaderPageNumberCommandTable[] = {{u"CMD", u""}, {}};

inline constexpr KeywordCommand HeaderFooterPrintFooterCommandTable[] = {{u"Off", u""}, {}};
inline constexpr KeywordCommand FooterStartNumberTypeCommandTable[] = {
    {u"Fixed", u""}, {u"NumberOnly", u""}, {}};
inline constexpr KeywordCommand FooterPageNumberCommandTable[] = {{u"CMD", u""}, {}};

static_assert(AreFormatTables(HeaderFooterFormatCommandTable, HeaderPageNumberCommandTable,
                              FooterPageNumberCommandTable));
static_assert(AreOptionTables(7, HeaderFooterColorCommandTable));
static_assert(AreOptionTables(2, HeaderFooterCommandTable, HeaderFooterPagesCommandTable,
                              HeaderStartNumberTypeCommandTable, FooterStartNumberTypeCommandTable));
static_assert(AreOptionTables(1, HeaderFooterPrintHeaderCommandTable, HeaderFooterPrintFooterCommandTable));

}  // namespace DeviceSpecificModule
