#pragma once

#include <string_view>

#include "tables/TableChecks.h"

// Printing on one side and on two.

namespace DeviceSpecificModule {

struct PageModeRow {
    std::u16string_view Keyword;
    std::u16string_view DataCommand;
};

inline constexpr PageModeRow SimplexPageModeRows[] = {
    {u"psk:OneSided", u"ubyte \"0\" SimplexPageMode\r\n"},
};

inline constexpr PageModeRow DuplexPageModeRows[] = {
    {u"psk:TwoSidedLongEdge", u"ubyte \"1\" DuplexPageMode\r\n"},
    {u"psk:TwoSidedShortEdge", u"ubyte \"0\" DuplexPageMode\r\n"},
};

static_assert(HasUniqueKeywords(SimplexPageModeRows) && HasUniqueKeywords(DuplexPageModeRows));

}  // namespace DeviceSpecificModule
