#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>

#include "devicespecific/OptionRecord.h"
#include "tables/MediaSizeRows.h"
#include "tables/MediaTypeRows.h"
#include "tables/PaperPathRows.h"

// The option tables that are built into the module. Conversions of the five that are exported read the host's
// copy (OptionTables), not these.

namespace DeviceSpecificModule {

// Records of each table, the terminating one among them.
inline constexpr std::uint32_t MediaSizeCount = std::size(MediaSizeRows) + std::size(CustomSizeRows) + 1;
inline constexpr std::uint32_t MediaTypeCount =
    2 * std::size(MediaTypeRows) - std::ranges::count(MediaTypeRows, u"", &MediaTypeRow::PreprintedKeyword) +
    1;
inline constexpr std::uint32_t InputBinCount = std::size(InputBinRows) + 1;
inline constexpr std::uint32_t SimplexPageModeCount = std::size(SimplexPageModeRows) + 1;
inline constexpr std::uint32_t DuplexPageModeCount = std::size(DuplexPageModeRows) + 1;
inline constexpr std::uint32_t OrientationCount = std::size(OrientationRows) + 1;
inline constexpr std::uint32_t OutputBinCount = std::size(OutputBinRows) + 1;

// The rows with the terminating one. A table is built at its first use, once for the process, is never
// written afterwards and goes when the module is unloaded; any number of threads may read it. The first use
// throws ResultError (ResultOutOfMemory) when there is no memory for it, and the next one tries again.
std::span<const OptionRecord> MediaSizeRecords();
std::span<const OptionRecord> MediaTypeRecords();
std::span<const OptionRecord> InputBinRecords();
std::span<const OptionRecord> SimplexPageModeRecords();
std::span<const OptionRecord> DuplexPageModeRecords();

// Not exported. Ids 0 and 1; the fragment stands in PairedKeyword, and all texts behind it are empty, so that
// neither a job nor a data command comes from it.
std::span<const OptionRecord> OrientationRecords();
// Not exported, and read by no conversion.
std::span<const OptionRecord> OutputBinRecords();

}  // namespace DeviceSpecificModule
