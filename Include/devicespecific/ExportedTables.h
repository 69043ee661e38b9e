#pragma once

#include <cstdint>

#include "devicespecific/OptionRecord.h"
#include "devicespecific/platform/Export.h"

/// @file
/// The device's option tables, for the host. A host takes a copy of each, may change its rows, and hands its
/// copies to every conversion in an OptionTables record.
///
///     std::uint32_t count = 0;
///     GetSizeOfPageMediaSize(&count);
///     std::vector<OptionRecord> sizes(count);
///     GetPageMediaSize(sizes.data());
///
/// GetSizeOf... writes the number of the table's rows to `count`, with the terminating row counted in. It
/// cannot fail.
///
/// The others write all these rows to `rows`, an array of at least so many records, each of them made or of
/// all zero bytes. Texts that the records hold are given up for the table's. The last row written has a null
/// Keyword, so the array is a table that OptionTables may point to. It belongs to the caller with all its
/// texts, which do not need the module to stay loaded. Throws Platform::ResultError (ResultOutOfMemory) when
/// there is no memory; the records are then still the caller's and in order.
///
/// All of them give 1. The pointers are not tested. They may be called on any thread at the same time.

namespace DeviceSpecificModule {
extern "C" {

/// Media sizes, and the terminating row. Keywords without prefix ("ISOA4"); the prefix that a ticket has
/// stands in NamespacePrefix. Three sizes at the end are custom ones: the %s of their fragments take width
/// and height, in micrometres.
/// @{
DEVICESPECIFIC_API std::int32_t GetSizeOfPageMediaSize(std::uint32_t* count);
DEVICESPECIFIC_API std::int32_t GetPageMediaSize(OptionRecord* rows);
/// @}

/// Media types, and the terminating row. Keywords with prefix ("psk:Plain"); those that end in "_2nd" are
/// the same medium on pre-printed paper.
/// @{
DEVICESPECIFIC_API std::int32_t GetSizeOfPageMediaType(std::uint32_t* count);
DEVICESPECIFIC_API std::int32_t GetPageMediaType(OptionRecord* rows);
/// @}

/// Input bins, and the terminating row. Keywords with prefix ("ns0000:TRAY1").
/// @{
DEVICESPECIFIC_API std::int32_t GetSizeOfPageInputBin(std::uint32_t* count);
DEVICESPECIFIC_API std::int32_t GetPageInputBin(OptionRecord* rows);
/// @}

/// Printing on one side: a single mode, "psk:OneSided", and the terminating row.
/// @{
DEVICESPECIFIC_API std::int32_t GetSizeOfSimplexPageMode(std::uint32_t* count);
DEVICESPECIFIC_API std::int32_t GetSimplexPageMode(OptionRecord* rows);
/// @}

/// Printing on two sides: "psk:TwoSidedLongEdge" and "psk:TwoSidedShortEdge", and the terminating row.
/// @{
DEVICESPECIFIC_API std::int32_t GetSizeOfDuplexPageMode(std::uint32_t* count);
DEVICESPECIFIC_API std::int32_t GetDuplexPageMode(OptionRecord* rows);
/// @}

}  // extern "C"
}  // namespace DeviceSpecificModule
