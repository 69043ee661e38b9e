#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Fuzz {

// An entry as its archive is to describe it, which may be wrong.
struct ZipItem {
    std::string Name;
    std::string Packed;        // its bytes as they stand in the archive
    std::uint16_t Method = 0;  // stored
    std::uint16_t Flags = 0;
    std::optional<std::uint32_t> Crc = {};    // absent: that of the packed bytes
    std::optional<std::uint64_t> Bytes = {};  // unpacked; absent: as many as the packed ones
    std::optional<std::uint64_t> Count = {};  // of the packed bytes; absent: as many as there are
};

// Descriptors: the sizes stand behind each entry. Wide: sizes and places have 64 bits throughout.
enum class ZipForm { Plain, Descriptors, Wide };

// The check sum of bytes that are packed.
std::uint32_t Crc32(std::string_view bytes);

// The archive's bytes.
std::string BuildZip(const std::vector<ZipItem>& items, ZipForm form = ZipForm::Plain);

}  // namespace Fuzz
