#include "Host/jobs/ZipEnd.h"

#include <zip.h>

#include <algorithm>
#include <string_view>

#include "Host/ground/Errors.h"
#include "Host/jobs/ZipArchive.h"

namespace TicketHost {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view end =
    "PK\5\6\0\0\0\0"sv;                           // an archive on the first disk, of which there is only one
constexpr std::string_view locator = "PK\6\7"sv;  // of the record that has the sizes in 64 bits
constexpr std::size_t endBytes = 22, locatorBytes = 20, wideEndBytes = 56;
constexpr std::size_t longestComment = 65535;  // behind the end

// Bytes at a place; fewer, where there are fewer.
std::string ReadAt(zip_source* source, std::uint64_t offset, std::size_t count) {
    std::string bytes(count, '\0');
    const bool found = zip_source_seek(source, static_cast<zip_int64_t>(offset), SEEK_SET) == 0;
    const zip_int64_t read = found ? zip_source_read(source, bytes.data(), bytes.size()) : 0;
    bytes.resize(static_cast<std::size_t>(std::max<zip_int64_t>(read, 0)));
    return bytes;
}

// A number with its lowest byte first.
std::uint64_t NumberAt(std::string_view bytes, std::size_t at, unsigned count) {
    std::uint64_t number = 0;
    for (unsigned each = 0; each < count; ++each)
        number |= std::uint64_t{static_cast<unsigned char>(bytes[at + each])} << (8 * each);
    return number;
}

struct Directory {
    std::uint64_t Entries = 0, Bytes = 0;
};

// What the end at a place of `tail` says, or the record that it has elsewhere.
Directory DirectoryOf(zip_source* source, std::string_view tail, std::size_t at) {
    const bool isWide = at >= locatorBytes && tail.substr(at - locatorBytes).starts_with(locator);
    if (!isWide) return {NumberAt(tail, at + 10, 2), NumberAt(tail, at + 12, 4)};
    const std::string record = ReadAt(source, NumberAt(tail, at - locatorBytes + 8, 8), wideEndBytes);
    if (record.size() < wideEndBytes) return {};
    return {NumberAt(record, 32, 8), NumberAt(record, 40, 8)};
}

}  // namespace

void CheckZipEnd(const std::string& name, zip_source* source, std::uint64_t size) {
    constexpr std::size_t most = longestComment + endBytes + locatorBytes;
    const std::size_t length = static_cast<std::size_t>(std::min<std::uint64_t>(size, most));
    const std::string tail = ReadAt(source, size - length, length);
    const std::size_t at = tail.rfind(end);
    if (at == tail.npos || tail.size() - at < endBytes)
        throw InputError(name, "the directory at the end of the package is missing; it may be cut off");
    if (at > 0 && tail.rfind(end, at - 1) != tail.npos)
        throw InputError(name, "has more than one directory, of which any might count");
    const Directory directory = DirectoryOf(source, tail, at);
    if (directory.Entries > ZipLimits::Entries)
        throw InputError(name, "more than " + std::to_string(ZipLimits::Entries) + " entries");
    if (directory.Bytes > ZipLimits::DirectoryBytes)
        throw InputError(name, "a directory of more than 16 MiB");
}

}  // namespace TicketHost
