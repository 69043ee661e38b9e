#pragma once

#include <span>
#include <string_view>

namespace DeviceSpecificModule {

// One row of the device's command vocabulary: a ticket option or a setting's value, and the text to send for
// it. An empty command is a keyword that is known and sends nothing.
struct KeywordCommand {
    std::u16string_view Keyword;
    std::u16string_view Command;  // may hold %s placeholders
};

// Rows in search order, of which the first match counts. A table whose first keyword is "CMD" is a format
// table: that one row holds a format, whose placeholders are filled with values, and it is never searched.
using KeywordCommandTable = std::span<const KeywordCommand>;

// Names of custom properties whose values fill a format, in order.
using ParameterList = std::span<const std::u16string_view>;

constexpr bool IsFormatTable(KeywordCommandTable table) {
    return !table.empty() && table[0].Keyword == u"CMD";
}

}  // namespace DeviceSpecificModule
