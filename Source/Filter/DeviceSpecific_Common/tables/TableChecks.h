#pragma once

#include <algorithm>
#include <cstddef>

// What every table of rows must hold, checked while compiling.

namespace DeviceSpecificModule {

// Whether each row has a keyword of its own. Of two rows with the same one the second would never be found.
template <typename Row, std::size_t Size>
constexpr bool HasUniqueKeywords(const Row (&table)[Size]) {
    return std::ranges::all_of(table, [&](const Row& row) {
        return !row.Keyword.empty() && std::ranges::count(table, row.Keyword, &Row::Keyword) == 1;
    });
}

}  // namespace DeviceSpecificModule
