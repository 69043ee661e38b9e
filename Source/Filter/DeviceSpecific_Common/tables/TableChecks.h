#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "tables/KeywordCommand.h"

// What every built-in table must hold, checked while compiling.

namespace DeviceSpecificModule {

// Whether each row has a keyword of its own. Of two rows with the same one the second would never be found.
template <typename Row, std::size_t Size>
constexpr bool HasUniqueKeywords(const Row (&table)[Size]) {
    return std::ranges::all_of(table, [&](const Row& row) {
        return !row.Keyword.empty() && std::ranges::count(table, row.Keyword, &Row::Keyword) == 1;
    });
}

// Whether all these are option tables of so many keywords each.
constexpr bool AreOptionTables(std::size_t keywordCount, const auto&... tables) {
    static_assert(sizeof...(tables) > 0);
    return ((std::size(tables) == keywordCount && !IsFormatTable(tables) && HasUniqueKeywords(tables)) &&
            ...);
}

// Whether all these are format tables of one row.
constexpr bool AreFormatTables(const auto&... tables) {
    static_assert(sizeof...(tables) > 0);
    return ((std::size(tables) == 1 && IsFormatTable(tables)) && ...);
}

}  // namespace DeviceSpecificModule
