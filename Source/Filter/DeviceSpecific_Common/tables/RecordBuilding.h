#pragma once

#include <array>
#include <cstddef>

#include "conversion/OptionRecord.h"

// What the builders of option tables share.

namespace DeviceSpecificModule {

// A record for each row, and the one that ends the table. Count has it counted in.
template <std::size_t Count, typename Row, std::size_t RowCount>
std::array<OptionRecord, Count> BuildRecords(const Row (&rows)[RowCount], OptionRecord (*build)(const Row&)) {
    static_assert(Count == RowCount + 1);
    std::array<OptionRecord, Count> records;
    for (std::size_t row = 0; row < RowCount; ++row) records[row] = build(rows[row]);
    return records;
}

}  // namespace DeviceSpecificModule
