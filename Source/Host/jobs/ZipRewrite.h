#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "Host/jobs/ZipArchive.h"

namespace TicketHost {

// New content for entries of an archive.
struct Replacement {
    std::vector<std::uint64_t> Entries;  // the first of them gets it all, under the new name; the rest goes
    std::string Name;                    // of the entry
    std::filesystem::path Content;       // a file
};

// Writes an archive to a new file: what is replaced deflated, all other entries with the bytes that they
// have, packed as they are, in their order. Throws OutputError; errors call the file `name`.
void RewriteArchive(const ZipArchive& archive, const std::vector<Replacement>& replacements,
                    const std::filesystem::path& file, const std::string& name);

}  // namespace TicketHost
