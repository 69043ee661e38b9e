#pragma once

#include <string_view>

#include "conversion/PTConverter.h"
#include "tables/KeywordCommand.h"

namespace DeviceSpecificModule {

// One of the two, header or footer: a switch, and what is said when it is on.
struct HeaderFooterPart {
    std::u16string_view SwitchKey;
    KeywordCommandTable SwitchTable;  // searched when the switch is anything but "On"
    std::u16string_view StartNumberTypeKey;
    KeywordCommandTable StartNumberTypeTable;
    std::u16string_view PageNumberKey;
    std::u16string_view PageNumberFormat;  // one %s
};

// The vocabulary of the header and footer commands.
struct HeaderFooterTables {
    KeywordCommandTable HeaderFooter;
    std::u16string_view Format;  // one %s
    HeaderFooterPart Header;
    HeaderFooterPart Footer;
    KeywordCommandTable Pages;
    KeywordCommandTable Color;
};

// Appends the header and footer commands to `pjl`: switch, format, header, footer, pages, colour. Every row
// of a table that equals the setting sends its command; a format is sent also for an empty setting.
void AppendHeaderFooter(const SharedJson& settings, const HeaderFooterTables& tables, WideText& pjl);

}  // namespace DeviceSpecificModule
