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

constexpr const char* pjlFile = "job.pjl";
constexpr const char* dataFile = "job.data";
constexpr const char* propertiesFile = "properties.json";

void WriteText(const std::filesystem::path& file, const Platform::WideText& text) {
    if (!text.IsNull()) ReplaceFile(file, ToUtf8(text));
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

void FileOutput::Begin(const Job& job, const PipelineProperties&) {
    digits_ = std::max(digits_, std::to_string(job.Calls.size()).size());
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (error) throw OutputError(folder_.string() + ": " + error.message());
    for (const char* name : {pjlFile, dataFile, propertiesFile}) {
        std::filesystem::remove(folder_ / name, error);
        if (error) throw OutputError((folder_ / name).string() + ": " + error.message());
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
