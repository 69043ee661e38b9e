#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// The built-in key seeds and the choice among them.
//
// A device is known by two identifiers. The first names a group of key records, the second a record of the
// group; a second identifier of 0 asks for the group's first record. A device that no record knows gets the
// fallback seed, so its jobs are protected all the same.

namespace DeviceSpecificModule {

// Key material from which a cipher key and an initialisation vector are derived: the first 10 bytes give the
// key, the last 10 the vector. A working copy belongs in a Wiped<KeySeed>.
using KeySeed = std::array<std::uint8_t, 20>;

struct KeyRecord {
    std::int32_t PrimaryId;  // TerminatorId in the last row
    std::int32_t SecondaryId;
    KeySeed StoredSeed;  // in stored order, see PermuteKeyRecord
};

// Marks the last row of a table, whose seed is the fallback. No group has it.
inline constexpr std::int32_t TerminatorId = -1;

// Asks for the seed that the caller brings along. No group has it, so no lookup finds it.
inline constexpr std::int32_t CallerSeedId = 0;

// The stored seed of the built-in record for a pair of identifiers, or the fallback seed. A group that lacks
// the second identifier gives the fallback, not its first record. Never null; the seed lives as long as the
// program.
const KeySeed* FindKeyRecord(std::int32_t primaryId, std::int32_t secondaryId);

// The same search in another table, where the rows of a group stand together and the last row is the only one
// with TerminatorId. The result points into the table.
const KeySeed* FindKeyRecordIn(std::span<const KeyRecord> table, std::int32_t primaryId,
                               std::int32_t secondaryId);

// Brings a stored seed into working order. Stored seeds are interleaved: bytes at even positions fill the
// working seed from the front, bytes at odd positions from the back. The two must not be the same array.
void PermuteKeyRecord(KeySeed& seedOut, const KeySeed& storedSeed);

}  // namespace DeviceSpecificModule
