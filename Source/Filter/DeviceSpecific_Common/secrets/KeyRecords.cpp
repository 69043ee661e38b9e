#include "secrets/KeyRecords.h"

#include <algorithm>

#include "secrets/KeyRecordTable.h"

namespace DeviceSpecificModule {
namespace {

// A terminator at the end and nowhere else, the rows of a group together, no pair of identifiers twice, no
// group that a caller cannot ask for.
constexpr bool IsKeyRecordTable(std::span<const KeyRecord> table) {
    if (table.empty() || table.back().PrimaryId != TerminatorId) return false;
    for (std::size_t row = 0; row + 1 < table.size(); ++row) {
        const KeyRecord& record = table[row];
        if (record.PrimaryId == TerminatorId || record.PrimaryId == CallerSeedId) return false;
        for (std::size_t later = row + 1; later + 1 < table.size(); ++later) {
            if (table[later].PrimaryId != record.PrimaryId) continue;
            if (table[later - 1].PrimaryId != record.PrimaryId) return false;
            if (table[later].SecondaryId == record.SecondaryId) return false;
        }
    }
    return true;
}

}  // namespace

static_assert(IsKeyRecordTable(KeyRecordTable));
static_assert(std::size(KeyRecordTable) == 14, "adding or removing a key record is a deliberate act");

const KeySeed* FindKeyRecord(std::int32_t primaryId, std::int32_t secondaryId) {
    return FindKeyRecordIn(KeyRecordTable, primaryId, secondaryId);
}

const KeySeed* FindKeyRecordIn(std::span<const KeyRecord> table, std::int32_t primaryId,
                               std::int32_t secondaryId) {
    const KeyRecord& fallback = table.back();
    const auto records = table.first(table.size() - 1);
    auto record = std::ranges::find(records, primaryId, &KeyRecord::PrimaryId);
    if (record == records.end()) return &fallback.StoredSeed;
    if (secondaryId == 0) return &record->StoredSeed;
    for (; record != records.end() && record->PrimaryId == primaryId; ++record) {
        if (record->SecondaryId == secondaryId) return &record->StoredSeed;
    }
    return &fallback.StoredSeed;
}

void PermuteKeyRecord(KeySeed& seedOut, const KeySeed& storedSeed) {
    for (std::size_t pair = 0; pair < storedSeed.size() / 2; ++pair) {
        seedOut[pair] = storedSeed[2 * pair];
        seedOut[seedOut.size() - 1 - pair] = storedSeed[2 * pair + 1];
    }
}

}  // namespace DeviceSpecificModule
