#include "Host/Files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <random>
#include <sstream>
#include <system_error>

#include "Host/Errors.h"
#include "Host/Json.h"
#include "Host/Texts.h"
#include "Platform/Files.h"

namespace TicketHost {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestInput = std::size_t{1} << 30;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

std::error_code LastError() { return {errno, std::generic_category()}; }

[[noreturn]] void FailToRead(const fs::path& file, const std::error_code& cause) {
    throw InputError(file.string(), cause.message());
}

[[noreturn]] void FailToWrite(const fs::path& file, const std::error_code& cause) {
    throw OutputError(file.string() + ": " + cause.message());
}

// A file that is removed at the end, unless it has got another name by then.
class TemporaryFile {
public:
    explicit TemporaryFile(fs::path path) : path_(std::move(path)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }

    const fs::path& Path() const { return path_; }

private:
    fs::path path_;
};

void WriteNewFile(const fs::path& file, std::string_view bytes) {
    FileHandle stream(Platform::OpenFile(file, "wbx"));
    const bool written = stream && std::fwrite(bytes.data(), 1, bytes.size(), stream.get()) == bytes.size() &&
                         std::fclose(stream.release()) == 0;
    if (!written) FailToWrite(file, LastError());
}

constexpr const char* pjlFile = "job.pjl";
constexpr const char* dataFile = "job.data";
constexpr const char* propertiesFile = "properties.json";

void WriteText(const fs::path& file, const Platform::WideText& text) {
    if (!text.IsNull()) ReplaceFile(file, ToUtf8(text));
}

}  // namespace

std::string ReadFile(const fs::path& file) {
    std::error_code ignored;
    if (fs::is_directory(file, ignored)) FailToRead(file, std::make_error_code(std::errc::is_a_directory));
    const FileHandle stream(Platform::OpenFile(file, "rb"));
    if (!stream) FailToRead(file, LastError());
    std::string bytes;
    char room[65536];
    while (const std::size_t count = std::fread(room, 1, sizeof room, stream.get())) {
        bytes.append(room, count);
        if (bytes.size() > largestInput) throw InputError(file.string(), "larger than 1 GiB");
    }
    if (std::ferror(stream.get()) != 0) FailToRead(file, LastError());
    return bytes;
}

void ReplaceFile(const fs::path& file, std::string_view bytes) {
    const TemporaryFile temporary(fs::path(file) += ".part" + std::to_string(std::random_device()()));
    WriteNewFile(temporary.Path(), bytes);
    std::error_code error;
    fs::rename(temporary.Path(), file, error);
    if (error) FailToWrite(file, error);
}

void FileOutput::Begin(const Job& job, const PipelineProperties&) {
    digits_ = std::max(digits_, std::to_string(job.Calls.size()).size());
    std::error_code error;
    fs::create_directories(folder_, error);
    if (error) FailToWrite(folder_, error);
    for (const char* name : {pjlFile, dataFile, propertiesFile}) {
        fs::remove(folder_ / name, error);
        if (error) FailToWrite(folder_ / name, error);
    }
}

void FileOutput::Take(const CallResult& result) {
    std::string number = std::to_string(result.Number);
    number.insert(0, digits_ - number.size(), '0');
    WriteText(folder_ / (number + "-ticket.xml"), result.TicketAfter);
}

void FileOutput::End(const PipelineProperties& final) {
    WriteText(folder_ / pjlFile, FindText(final, u"PJL"));
    WriteText(folder_ / dataFile, FindText(final, u"DATA"));
    std::ostringstream properties;
    WriteProperties(properties, final, 0);
    properties << "\n";
    ReplaceFile(folder_ / propertiesFile, properties.str());
}

}  // namespace TicketHost
