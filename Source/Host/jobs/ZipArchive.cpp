#include "Host/jobs/ZipArchive.h"

#include <zip.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "Host/ground/Errors.h"
#include "Host/jobs/ZipEnd.h"

namespace TicketHost {
namespace {

constexpr const char* directoryIsBroken = "the directory of the package is broken";

// Why libzip failed, in its words, with whatever they hold from the system.
struct ZipError {
    ZipError() { zip_error_init(&Value); }
    ZipError(const ZipError&) = delete;
    ZipError& operator=(const ZipError&) = delete;
    ~ZipError() { zip_error_fini(&Value); }

    zip_error_t Value;
};

// What keeps an entry from being read, by what the directory says of it; empty where that is nothing. Other
// ways of packing than these two have no place in a package.
std::string FaultOf(const ZipEntry& entry) {
    if (entry.IsEncrypted) return "is encrypted";
    if (entry.Method != ZIP_CM_STORE && entry.Method != ZIP_CM_DEFLATE)
        return "is packed by method " + std::to_string(entry.Method) + ", neither stored nor deflated";
    if (entry.Bytes > ZipLimits::EntryBytes) return "larger than 16 MiB";
    const bool isDense = entry.Bytes / ZipLimits::Ratio > entry.PackedBytes;
    if (entry.Bytes > ZipLimits::BytesOfAnyRatio && isDense)
        return "unpacks to more than " + std::to_string(ZipLimits::Ratio) + " times its size";
    return {};
}

}  // namespace

ZipArchive::ZipArchive(std::string name, FileHandle file) : name_(std::move(name)) {
    ZipError error;
    source_.reset(zip_source_filep_create(file.get(), 0, -1, &error.Value), zip_source_free);
    if (!source_) throw InputError(name_, zip_error_strerror(&error.Value));
    static_cast<void>(file.release());  // the source closes it
    Open();
}

ZipArchive::ZipArchive(std::string name, std::string bytes)
    : name_(std::move(name)), bytes_(std::move(bytes)) {
    ZipError error;
    source_.reset(zip_source_buffer_create(bytes_.data(), bytes_.size(), 0, &error.Value), zip_source_free);
    if (!source_) throw InputError(name_, zip_error_strerror(&error.Value));
    Open();
}

void ZipArchive::Open() {
    zip_stat_t whole;
    if (zip_source_open(source_.get()) != 0 || zip_source_stat(source_.get(), &whole) != 0)
        throw InputError(name_, zip_error_strerror(zip_source_error(source_.get())));
    CheckZipEnd(name_, source_.get(), whole.size);
    zip_source_close(source_.get());
    ZipError error;
    archive_.reset(zip_open_from_source(source_.get(), ZIP_RDONLY, &error.Value), zip_discard);
    if (!archive_)
        throw InputError(name_, std::string(directoryIsBroken) + ": " + zip_error_strerror(&error.Value));
    zip_source_keep(source_.get());  // the archive frees it, too
    count_ = static_cast<std::uint64_t>(zip_get_num_entries(archive_.get(), 0));
    std::uint64_t packed = 0;
    for (std::uint64_t index = 0; index < count_; ++index)
        packed += std::min(Entry(index).PackedBytes, whole.size);
    if (packed > whole.size) throw InputError(name_, "entries overlap");
}

ZipEntry ZipArchive::Entry(std::uint64_t index) const {
    zip_stat_t stat;
    if (zip_stat_index(archive_.get(), index, ZIP_FL_ENC_RAW, &stat) != 0)
        throw InputError(name_, directoryIsBroken);
    return {stat.name, stat.size, stat.comp_size, stat.comp_method, stat.encryption_method != ZIP_EM_NONE};
}

void ZipArchive::RequireReadable(std::uint64_t index) const {
    const ZipEntry entry = Entry(index);
    if (const std::string fault = FaultOf(entry); !fault.empty())
        throw InputError(name_, "/" + entry.Name, fault);
}

std::string ZipArchive::Read(std::uint64_t index) const {
    RequireReadable(index);
    const ZipEntry entry = Entry(index);
    const auto fail = [&](const char* cause) { throw InputError(name_, "/" + entry.Name, cause); };
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(zip_fopen_index(archive_.get(), index, 0),
                                                                 zip_fclose);
    if (!file) fail(zip_strerror(archive_.get()));
    std::string bytes(static_cast<std::size_t>(entry.Bytes) + 1, '\0');  // one more than there should be
    std::size_t length = 0;
    for (zip_int64_t count = 1; count > 0 && length < bytes.size();
         length += static_cast<std::size_t>(count)) {
        count = zip_fread(file.get(), bytes.data() + length, bytes.size() - length);
        if (count < 0) fail(zip_file_strerror(file.get()));
    }
    if (length != entry.Bytes) fail("is of another length than the directory says");
    bytes.resize(length);
    return bytes;
}

bool ZipArchive::CopyTo(std::FILE* file) const {
    zip_source_t* source = source_.get();
    char room[65536];
    zip_int64_t count = zip_source_open(source) == 0 && zip_source_seek(source, 0, SEEK_SET) == 0 ? 1 : -1;
    while (count > 0) {
        count = zip_source_read(source, room, sizeof room);
        const auto length = static_cast<std::size_t>(std::max<zip_int64_t>(count, 0));
        if (std::fwrite(room, 1, length, file) != length) return false;
    }
    zip_source_close(source);
    if (count < 0) errno = zip_error_code_system(zip_source_error(source));
    return count == 0;
}

}  // namespace TicketHost
