#pragma once

#include <string_view>

namespace DeviceSpecificModule {

// One row of the device's command vocabulary: a ticket option or a setting's value, and the text to send for
// it. An empty command is a keyword that is known and sends nothing.
struct KeywordCommand {
    std::u16string_view Keyword;  // without data (nullptr) in the row that ends a table
    std::u16string_view Command;  // may hold %s placeholders
};

// Rows in search order, of which the first match counts, ended by a row without a keyword. A table whose
// first keyword is "CMD" is a format table: that one row holds a format, whose placeholders are filled with
// values, and it is never searched.
using KeywordCommandTable = const KeywordCommand*;

// Names of custom properties whose values fill a format, in order, ended by a name without data (nullptr).
using ParameterList = const std::u16string_view*;

constexpr bool IsTerminator(const KeywordCommand& row) { return row.Keyword.data() == nullptr; }
constexpr bool IsFormatTable(KeywordCommandTable table) { return table[0].Keyword == u"CMD"; }

}  // namespace DeviceSpecificModule
