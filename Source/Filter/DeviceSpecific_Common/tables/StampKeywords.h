#pragma once

#include "tables/KeywordCommand.h"

// Texts stamped on pages: page numbers, date and time, headers and footers. Each stamp gets tables of its own
// from the rows that they have in common, so that one can be written out with other commands without touching
// the rest. The formats are filled by their stages.

namespace DeviceSpecificModule {

enum class Stamp { PageNumber, DateTime, HeaderFooter };

template <Stamp>
inline constexpr KeywordCommand StampColorRows[] = {{u"Black", u""}, {u"Red", u""},    {u"Green", u""},
                                                    {u"Blue", u""},  {u"Yellow", u""}, {u"Magenta", u""},
                                                    {u"Cyan", u""}};

template <Stamp>
inline constexpr KeywordCommand StampPositionRows[] = {
    {u"LeftTop", u""},    {u"CenterTop", u""},    {u"RightTop", u""},
    {u"LeftCenter", u""}, {u"Center", u""},       {u"RightCenter", u""},
    {u"LeftBottom", u""}, {u"CenterBottom", u""}, {u"RightBottom", u""}};

template <Stamp>
inline constexpr KeywordCommand StampPagesRows[] = {{u"AllPages", u""}, {u"FirstPage", u""}};

inline constexpr KeywordCommand PageNumberingCommandTable[] = {{u"CMD", u""}};

inline constexpr auto& PageNumberColorCommandTable = StampColorRows<Stamp::PageNumber>;
inline constexpr auto& PageNumberPositionCommandTable = StampPositionRows<Stamp::PageNumber>;

inline constexpr KeywordCommand DateTimeCommandTable[] = {{u"Off", u""}, {u"On", u""}};
inline constexpr auto& DateTimeColorCommandTable = StampColorRows<Stamp::DateTime>;
inline constexpr auto& DateTimePositionCommandTable = StampPositionRows<Stamp::DateTime>;
inline constexpr auto& DateTimePagesCommandTable = StampPagesRows<Stamp::DateTime>;

inline constexpr KeywordCommand DateTimeDateFormatCommandTable[] = {
    {u"Date1", u""}, {u"Date4", u""}, {u"Date2", u""}, {u"Date5", u""}, {u"Date3", u""}};

inline constexpr KeywordCommand DateTimeTimeCommandTable[] = {{u"Off", u""}};
inline constexpr KeywordCommand DateTimeTimeFormatCommandTable[] = {{u"Time1", u""}, {u"Time2", u""}};

inline constexpr KeywordCommand HeaderFooterCommandTable[] = {{u"Off", u""}, {u"On", u""}};
inline constexpr KeywordCommand HeaderFooterFormatCommandTable[] = {{u"CMD", u""}};
inline constexpr auto& HeaderFooterColorCommandTable = StampColorRows<Stamp::HeaderFooter>;
inline constexpr auto& HeaderFooterPagesCommandTable = StampPagesRows<Stamp::HeaderFooter>;

inline constexpr KeywordCommand HeaderFooterPrintHeaderCommandTable[] = {{u"Off", u""}};
inline constexpr KeywordCommand HeaderStartNumberTypeCommandTable[] = {{u"Fixed", u""}, {u"NumberOnly", u""}};
inline constexpr KeywordCommand HeaderPageNumberCommandTable[] = {{u"CMD", u""}};

inline constexpr KeywordCommand HeaderFooterPrintFooterCommandTable[] = {{u"Off", u""}};
inline constexpr KeywordCommand FooterStartNumberTypeCommandTable[] = {{u"Fixed", u""}, {u"NumberOnly", u""}};
inline constexpr KeywordCommand FooterPageNumberCommandTable[] = {{u"CMD", u""}};

}  // namespace DeviceSpecificModule
