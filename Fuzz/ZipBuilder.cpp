#include "ZipBuilder.h"

namespace Fuzz {
namespace {

constexpr std::uint16_t sizesBehind = 8;  // a flag
constexpr std::uint32_t isWide = 0xFFFFFFFF;

// Numbers with their lowest byte first.
class Bytes {
public:
    Bytes& Add(std::uint64_t number, int count) {
        for (int each = 0; each < count; ++each) All += static_cast<char>(number >> (8 * each));
        return *this;
    }

    std::string All;
};

struct Sizes {
    std::uint32_t Crc;
    std::uint64_t Packed, Unpacked;
};

Sizes SizesOf(const ZipItem& item) {
    const std::uint64_t packed = item.Count.value_or(item.Packed.size());
    return {item.Crc.value_or(Crc32(item.Packed)), packed, item.Bytes.value_or(packed)};
}

// What both headers of an entry have alike, from the version that is needed to the length of the name.
std::string CommonHeader(const ZipItem& item, ZipForm form, const Sizes& sizes) {
    const bool wide = form == ZipForm::Wide;
    const std::uint16_t behind = form == ZipForm::Descriptors ? sizesBehind : 0;
    Bytes bytes;
    bytes.Add(wide ? 45 : 20, 2).Add(item.Flags | behind, 2).Add(item.Method, 2).Add(0, 2).Add(33, 2);
    bytes.Add(sizes.Crc, 4).Add(wide ? isWide : sizes.Packed, 4).Add(wide ? isWide : sizes.Unpacked, 4);
    return bytes.Add(item.Name.size(), 2).All;
}

std::string LocalEntry(const ZipItem& item, ZipForm form) {
    const Sizes sizes = SizesOf(item);
    const bool behind = form == ZipForm::Descriptors, wide = form == ZipForm::Wide;
    Bytes bytes{"PK\3\4" + CommonHeader(item, form, behind ? Sizes{} : sizes)};
    bytes.Add(wide ? 20 : 0, 2).All += item.Name;
    if (wide) bytes.Add(1, 2).Add(16, 2).Add(sizes.Unpacked, 8).Add(sizes.Packed, 8);
    bytes.All += item.Packed;
    if (behind) (bytes.All += "PK\7\x8", bytes.Add(sizes.Crc, 4).Add(sizes.Packed, 4).Add(sizes.Unpacked, 4));
    return bytes.All;
}

std::string DirectoryEntry(const ZipItem& item, ZipForm form, std::uint64_t place) {
    const Sizes sizes = SizesOf(item);
    const bool wide = form == ZipForm::Wide;
    Bytes bytes{"PK\1\2"};
    bytes.Add(wide ? 45 : 20, 2).All += CommonHeader(item, form, sizes);
    bytes.Add(wide ? 28 : 0, 2).Add(0, 2).Add(0, 2).Add(0, 2).Add(0, 4).Add(wide ? isWide : place, 4);
    bytes.All += item.Name;
    if (wide) bytes.Add(1, 2).Add(24, 2).Add(sizes.Unpacked, 8).Add(sizes.Packed, 8).Add(place, 8);
    return bytes.All;
}

std::string End(ZipForm form, std::uint64_t count, std::uint64_t size, std::uint64_t place) {
    const bool wide = form == ZipForm::Wide;
    Bytes bytes;
    if (wide) {
        bytes.All = "PK\6\6";
        bytes.Add(44, 8).Add(45, 2).Add(45, 2).Add(0, 4).Add(0, 4);
        bytes.Add(count, 8).Add(count, 8).Add(size, 8).Add(place, 8);
        bytes.All += "PK\6\7";
        bytes.Add(0, 4).Add(place + size, 8).Add(1, 4);
    }
    bytes.All += "PK\5\6";
    bytes.Add(0, 2).Add(0, 2).Add(wide ? 0xFFFF : count, 2).Add(wide ? 0xFFFF : count, 2);
    return bytes.Add(wide ? isWide : size, 4).Add(wide ? isWide : place, 4).Add(0, 2).All;
}

}  // namespace

std::uint32_t Crc32(std::string_view bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

std::string BuildZip(const std::vector<ZipItem>& items, ZipForm form) {
    std::string archive, directory;
    for (const ZipItem& item : items) {
        directory += DirectoryEntry(item, form, archive.size());
        archive += LocalEntry(item, form);
    }
    return archive + directory + End(form, items.size(), directory.size(), archive.size());
}

}  // namespace Fuzz
