#include "Host/ground/Files.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <system_error>

#include "Host/ground/Errors.h"
#include "Platform/Files.h"

namespace TicketHost {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t largestInput = std::uintmax_t{1} << 30;
constexpr const char* tooLarge = "larger than 1 GiB";

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

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

}  // namespace

std::string ReadFile(const fs::path& file) {
    RefuseUnlessRegular(file);
    const FileHandle stream(Platform::OpenFile(file, "rb"));
    if (!stream) FailToRead(file, LastError());
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    if (error) FailToRead(file, error);
    if (size > largestInput) throw InputError(file.string(), tooLarge);
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(size));
    char room[65536];
    while (const std::size_t count = std::fread(room, 1, sizeof room, stream.get())) {
        if (bytes.size() + count > largestInput) throw InputError(file.string(), tooLarge);
        bytes.append(room, count);
    }
    if (std::ferror(stream.get()) != 0) FailToRead(file, LastError());
    return bytes;
}

}  // namespace TicketHost
