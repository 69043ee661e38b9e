#pragma once

#include <filesystem>
#include <string>

namespace TicketHost {

// The bytes of a file. Throws InputError for what is no regular file, such as a folder, a pipe or a device,
// for a file that can't be read and for one of more than 1 GiB. All but a file that grows meanwhile is
// refused before it is read.
std::string ReadFile(const std::filesystem::path& file);

}  // namespace TicketHost
