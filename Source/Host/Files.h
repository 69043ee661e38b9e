#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace TicketHost {

// The bytes of a file. Throws InputError for a folder, for a file that can't be read and for one beyond 1
// GiB.
std::string ReadFile(const std::filesystem::path& file);

// Puts a file with these bytes in place of what is there. At no time does the name show a part of them: they
// are written under another name in the same folder first. Throws OutputError, and leaves no such rest
// behind.
void ReplaceFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace TicketHost
