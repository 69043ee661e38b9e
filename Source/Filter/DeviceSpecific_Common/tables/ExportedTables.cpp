#include "devicespecific/ExportedTables.h"

#include <algorithm>
#include <span>

#include "tables/OptionTables.h"

namespace DeviceSpecificModule {
namespace {

constexpr std::int32_t success = 1;

std::int32_t GiveCount(std::uint32_t* count, std::uint32_t rowCount) {
    *count = rowCount;
    return success;
}

std::int32_t GiveRows(OptionRecord* rows, std::span<const OptionRecord> table) {
    std::ranges::copy(table, rows);
    return success;
}

}  // namespace

// Counts are constants, and not asked of the tables, so that no count can fail for want of memory.
std::int32_t GetSizeOfPageMediaSize(std::uint32_t* count) { return GiveCount(count, MediaSizeCount); }
std::int32_t GetPageMediaSize(OptionRecord* rows) { return GiveRows(rows, MediaSizeRecords()); }
std::int32_t GetSizeOfPageMediaType(std::uint32_t* count) { return GiveCount(count, MediaTypeCount); }
std::int32_t GetPageMediaType(OptionRecord* rows) { return GiveRows(rows, MediaTypeRecords()); }
std::int32_t GetSizeOfPageInputBin(std::uint32_t* count) { return GiveCount(count, InputBinCount); }
std::int32_t GetPageInputBin(OptionRecord* rows) { return GiveRows(rows, InputBinRecords()); }
std::int32_t GetSizeOfSimplexPageMode(std::uint32_t* count) { return GiveCount(count, SimplexPageModeCount); }
std::int32_t GetSimplexPageMode(OptionRecord* rows) { return GiveRows(rows, SimplexPageModeRecords()); }
std::int32_t GetSizeOfDuplexPageMode(std::uint32_t* count) { return GiveCount(count, DuplexPageModeCount); }
std::int32_t GetDuplexPageMode(OptionRecord* rows) { return GiveRows(rows, DuplexPageModeRecords()); }

}  // namespace DeviceSpecificModule
