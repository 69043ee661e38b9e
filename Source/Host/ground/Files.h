#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace TicketHost {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

// Opens a file to read its bytes. Throws InputError for what is no regular file, such as a folder, a pipe or
// a device, and for a file that can't be opened.
FileHandle OpenToRead(const std::filesystem::path& file);

// The bytes of a file. Throws InputError for what OpenToRead refuses, for a file that can't be read and for
// one of more than 1 GiB. All but a file that grows meanwhile is refused before it is read.
std::string ReadFile(const std::filesystem::path& file);

// What errors call the standard input.
inline constexpr const char* StandardInputName = "standard input";

// All bytes of the standard input. Throws InputError when it can't be read or has more than 1 GiB.
std::string ReadStandardInput();

}  // namespace TicketHost
