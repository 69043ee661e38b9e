#include "Host/Files.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <random>
#include <system_error>

#include "Host/Errors.h"

namespace TicketHost {
namespace {

constexpr std::size_t largestInput = std::size_t{1} << 30;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

std::string CauseOf(int error) { return std::generic_category().message(error); }

[[noreturn]] void FailToWrite(const std::filesystem::path& file, const std::string& cause) {
    throw OutputError(file.string() + ": " + cause);
}

// A file that goes when it isn't kept.
class TemporaryFile {
public:
    explicit TemporaryFile(std::filesystem::path path) : path_(std::move(path)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }

    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

void WriteBytes(const std::filesystem::path& file, std::string_view bytes) {
    OpenFile stream(std::fopen(file.c_str(), "wbx"));
    if (!stream) FailToWrite(file, CauseOf(errno));
    if (std::fwrite(bytes.data(), 1, bytes.size(), stream.get()) != bytes.size())
        FailToWrite(file, CauseOf(errno));
    if (std::fclose(stream.release()) != 0) FailToWrite(file, CauseOf(errno));
}

}  // namespace

std::string ReadFile(const std::filesystem::path& file) {
    std::error_code ignored;
    if (std::filesystem::is_directory(file, ignored)) throw InputError(file.string(), CauseOf(EISDIR));
    const OpenFile stream(std::fopen(file.c_str(), "rb"));
    if (!stream) throw InputError(file.string(), CauseOf(errno));
    std::string bytes;
    char room[65536];
    while (const std::size_t count = std::fread(room, 1, sizeof room, stream.get())) {
        bytes.append(room, count);
        if (bytes.size() > largestInput) throw InputError(file.string(), "larger than 1 GiB");
    }
    if (std::ferror(stream.get()) != 0) throw InputError(file.string(), CauseOf(errno));
    return bytes;
}

void ReplaceFile(const std::filesystem::path& file, std::string_view bytes) {
    const std::string suffix = ".part" + std::to_string(std::random_device()());
    const TemporaryFile temporary(file.string() + suffix);
    WriteBytes(temporary.Path(), bytes);
    std::error_code error;
    std::filesystem::rename(temporary.Path(), file, error);
    if (error) FailToWrite(file, error.message());
}

}  // namespace TicketHost
