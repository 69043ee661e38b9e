#pragma once

#include <cstddef>
#include <string_view>

#include "tables/KeywordCommand.h"

// What every built-in table must hold, checked while compiling.

namespace DeviceSpecificModule {

// Whether the last row, and no row before it, ends the table.
template <std::size_t Size>
constexpr bool EndsOnlyAtLastRow(const KeywordCommand (&table)[Size]) {
    for (std::size_t row = 0; row + 1 < Size; ++row)
        if (table[row].Keyword.empty() || table[row].Command.data() == nullptr) return false;
    return IsTerminator(table[Size - 1]) && table[Size - 1].Command.data() == nullptr;
}

// Of two rows with the same keyword the second would never be found.
template <typename Row, std::size_t Size>
constexpr bool HasUniqueKeywords(const Row (&table)[Size]) {
    for (std::size_t row = 1; row < Size; ++row)
        for (std::size_t earlier = 0; earlier < row; ++earlier)
            if (table[earlier].Keyword == table[row].Keyword) return false;
    return true;
}

// Whether all these are option tables of so many keywords each.
template <std::size_t... Sizes>
constexpr bool AreOptionTables(std::size_t keywordCount, const KeywordCommand (&... tables)[Sizes]) {
    static_assert(sizeof...(Sizes) > 0);
    return ((Sizes == keywordCount + 1 && !IsFormatTable(tables) && EndsOnlyAtLastRow(tables) &&
             HasUniqueKeywords(tables)) &&
            ...);
}

// Whether all these are format tables of one row.
template <std::size_t... Sizes>
constexpr bool AreFormatTables(const KeywordCommand (&... tables)[Sizes]) {
    static_assert(sizeof...(Sizes) > 0);
    return ((Sizes == 2 && IsFormatTable(tables) && EndsOnlyAtLastRow(tables)) && ...);
}

// Whether all these lists hold one name.
template <std::size_t... Sizes>
constexpr bool AreSingleNames(const std::u16string_view (&... lists)[Sizes]) {
    static_assert(sizeof...(Sizes) > 0);
    return ((Sizes == 2 && !lists[0].empty() && lists[Sizes - 1].data() == nullptr) && ...);
}

}  // namespace DeviceSpecificModule
