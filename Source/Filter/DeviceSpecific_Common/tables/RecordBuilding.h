#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "devicespecific/OptionRecord.h"

// What the builders of option tables share.

namespace DeviceSpecificModule {

// Hands the dictionary ahead of it to the device's own options, or drops it where the device has none.
inline constexpr std::u16string_view SetDeviceOptions =
    u"/XROptions /ProcSet resourcestatus {pop pop /XROptions /ProcSet findresource /setXRoptions get "
    u"exec}{pop} ifelse\r\n";

// A record of Id 0 with this keyword, all of whose other texts are the filler. Throws ResultError without
// memory.
OptionRecord FilledRecord(std::u16string_view keyword, std::u16string_view filler);

// A record for each row, and the one that ends the table. Count has it counted in.
template <std::size_t Count, typename Row, std::size_t RowCount>
std::array<OptionRecord, Count> BuildRecords(const Row (&rows)[RowCount], OptionRecord (*build)(const Row&)) {
    static_assert(Count == RowCount + 1);
    std::array<OptionRecord, Count> records;
    for (std::size_t row = 0; row < RowCount; ++row) records[row] = build(rows[row]);
    return records;
}

}  // namespace DeviceSpecificModule
