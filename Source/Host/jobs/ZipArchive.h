#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "Host/ground/Files.h"

struct zip;
struct zip_source;

namespace TicketHost {

// What an archive may hold. One with more is refused before time or memory is spent on it.
struct ZipLimits {
    static constexpr std::uint64_t Entries = 100'000;
    static constexpr std::uint64_t DirectoryBytes = 16 << 20;
    // Of an entry that is read:
    static constexpr std::uint64_t EntryBytes = 16 << 20;  // unpacked
    static constexpr std::uint64_t Ratio = 100;            // of its unpacked bytes to its packed ones
    static constexpr std::uint64_t BytesOfAnyRatio = 64 << 10;
};

struct ZipEntry {
    std::string Name;  // as it stands in the archive's directory
    std::uint64_t Bytes = 0;
    std::uint64_t PackedBytes = 0;
    std::uint16_t Method = 0;  // of packing
    bool IsEncrypted = false;
};

// A ZIP archive, open for reading; also one that needs the 64-bit form, and one whose entries have their
// sizes behind them. All throw InputError, "NAME: cause" or "NAME: /ENTRY: cause".
class ZipArchive {
public:
    // From a file that is open for reading, or from bytes. `name` is for errors.
    ZipArchive(std::string name, FileHandle file);
    ZipArchive(std::string name, std::string bytes);
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    const std::string& Name() const { return name_; }
    std::uint64_t Count() const { return count_; }  // of its entries
    ZipEntry Entry(std::uint64_t index) const;
    // Throws when Read would refuse the entry without a look at its bytes.
    void RequireReadable(std::uint64_t index) const;
    // The entry's unpacked bytes, found to have the length and the check sum that the directory tells.
    std::string Read(std::uint64_t index) const;
    // Writes the archive's bytes as they are to a file. False, and errno says why, when that fails.
    bool CopyTo(std::FILE* file) const;

private:
    void Open();

    std::string name_, bytes_;
    std::shared_ptr<zip_source> source_;
    std::shared_ptr<zip> archive_;
    std::uint64_t count_ = 0;
};

}  // namespace TicketHost
