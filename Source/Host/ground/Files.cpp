#include "Host/ground/Files.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <span>
#include <system_error>

#include "Host/ground/Errors.h"
#include "Host/ground/Platform.h"
#include "Platform/Files.h"
#include "Platform/Process.h"

namespace TicketHost {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t largestInput = std::uintmax_t{1} << 30;
constexpr const char* tooLarge = "larger than 1 GiB";

std::error_code LastError() { return {errno, std::generic_category()}; }

[[noreturn]] void FailToRead(const fs::path& file, const std::error_code& cause) {
    throw InputError(file.string(), cause.message());
}

// Refuses what must not be opened, since opening a pipe, for one, may take for ever. What isn't there passes.
void RefuseUnlessRegular(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (!fs::exists(status)) return;
    if (fs::is_directory(status)) FailToRead(file, std::make_error_code(std::errc::is_a_directory));
    if (!fs::is_regular_file(status)) throw InputError(file.string(), "not a regular file");
}

// Appends what `read` puts into the room that it is given, until it gives 0. `name` is for errors.
template <typename Function>
void ReadAll(const fs::path& name, std::string& bytes, Function read) {
    char room[65536];
    while (const std::size_t count = read(std::span<char>(room))) {
        if (bytes.size() + count > largestInput) throw InputError(name.string(), tooLarge);
        bytes.append(room, count);
    }
}

}  // namespace

FileHandle OpenToRead(const fs::path& file) {
    RefuseUnlessRegular(file);
    FileHandle stream(Platform::OpenFile(file, "rb"));
    if (!stream) FailToRead(file, LastError());
    return stream;
}

std::string ReadFile(const fs::path& file) {
    const FileHandle stream = OpenToRead(file);
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    if (error) FailToRead(file, error);
    if (size > largestInput) throw InputError(file.string(), tooLarge);
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(size));
    ReadAll(file, bytes,
            [&](std::span<char> room) { return std::fread(room.data(), 1, room.size(), stream.get()); });
    if (std::ferror(stream.get()) != 0) FailToRead(file, LastError());
    return bytes;
}

std::string ReadStandardInput() {
    std::string bytes;
    ReadAll(StandardInputName, bytes, [](std::span<char> room) {
        std::error_code error;
        const std::size_t count = Platform::ReadStandardInput(room, error);
        if (error) FailToRead(StandardInputName, error);
        return count;
    });
    return bytes;
}

}  // namespace TicketHost
