#include "Host/jobs/ZipRewrite.h"

#include <zip.h>

#include <cerrno>
#include <memory>
#include <system_error>

#include "Host/ground/Errors.h"
#include "Host/ground/Files.h"
#include "Host/ground/Platform.h"
#include "Platform/Files.h"

namespace TicketHost {
namespace {

struct Discard {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using OpenArchive = std::unique_ptr<zip_t, Discard>;

[[noreturn]] void Fail(const std::string& name, const std::string& cause) {
    throw OutputError(name + ": " + cause);
}

// The system's own words where it was the cause.
[[noreturn]] void Fail(const std::string& name, zip_error_t* error) {
    const bool isOfSystem = zip_error_system_type(error) == ZIP_ET_SYS;
    const std::error_code cause(zip_error_code_system(error), std::generic_category());
    Fail(name, isOfSystem ? cause.message() : zip_error_strerror(error));
}

void CopyArchive(const ZipArchive& archive, const std::filesystem::path& file, const std::string& name) {
    FileHandle stream(Platform::OpenFile(file, "wbx"));
    if (stream && archive.CopyTo(stream.get()) && std::fclose(stream.release()) == 0) return;
    Fail(name, std::error_code(errno, std::generic_category()).message());
}

bool Replace(zip_t* archive, const Replacement& replacement) {
    const std::uint64_t first = replacement.Entries.front();
    zip_source_t* content = zip_source_file(archive, replacement.Content.string().c_str(), 0, -1);
    if (content == nullptr) return false;
    if (zip_file_replace(archive, first, content, 0) != 0) {
        zip_source_free(content);
        return false;
    }
    for (const std::uint64_t entry : replacement.Entries)
        if (entry != first && zip_delete(archive, entry) != 0) return false;
    return zip_file_rename(archive, first, replacement.Name.c_str(), 0) == 0;
}

}  // namespace

void RewriteArchive(const ZipArchive& archive, const std::vector<Replacement>& replacements,
                    const std::filesystem::path& file, const std::string& name) {
    CopyArchive(archive, file, name);
    int code = 0;
    OpenArchive copy(zip_open(file.string().c_str(), 0, &code));
    if (!copy) Fail(name, "libzip's error " + std::to_string(code));
    for (const Replacement& replacement : replacements)
        if (!Replace(copy.get(), replacement)) Fail(name, zip_get_error(copy.get()));
    if (zip_close(copy.get()) != 0) Fail(name, zip_get_error(copy.get()));
    static_cast<void>(copy.release());  // closed
}

}  // namespace TicketHost
