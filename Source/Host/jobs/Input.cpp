#include "Host/jobs/Input.h"

#include <string_view>
#include <utility>

#include "Host/ground/Errors.h"
#include "Host/ground/Files.h"

namespace TicketHost {
namespace {

using namespace std::string_view_literals;

// Archives begin with an entry, with the end when they have none, or with a mark that they were in parts.
bool BeginsArchive(std::string_view bytes) {
    constexpr std::string_view beginnings[] = {"PK\3\4", "PK\5\6", "PK\7\x8"};
    for (const std::string_view beginning : beginnings)
        if (bytes.starts_with(beginning)) return true;
    return false;
}

// By the first byte that is neither white space nor of a byte order mark nor the other half of a UTF-16 unit.
InputKind KindOf(const std::string& name, std::string_view bytes) {
    const std::size_t first = bytes.find_first_not_of("\0\xFE\xFF\xEF\xBB\xBF \t\r\n"sv);
    if (first == bytes.npos) throw InputError(name, "is empty");
    if (bytes[first] == '<') return InputKind::Ticket;
    if (bytes[first] == '{') return InputKind::Manifest;
    throw InputError(name, "neither a ticket (XML) nor a manifest (JSON) nor a package (ZIP)");
}

Input MakePlainInput(const std::string& name, std::string bytes) {
    const InputKind kind = KindOf(name, bytes);
    return {name, kind, std::move(bytes), nullptr};
}

}  // namespace

std::shared_ptr<const Package> OpenPackage(const std::filesystem::path& file) {
    FileHandle stream = OpenToRead(file);
    char beginning[4] = {};
    if (std::fread(beginning, 1, sizeof beginning, stream.get()) < sizeof beginning) return nullptr;
    if (!BeginsArchive({beginning, sizeof beginning})) return nullptr;
    return std::make_shared<const Package>(std::make_unique<ZipArchive>(file.string(), std::move(stream)));
}

Input ReadInput(const std::string& file) {
    if (file != "-") {
        if (auto package = OpenPackage(file)) return {file, InputKind::Package, {}, std::move(package)};
        return MakePlainInput(file, ReadFile(file));
    }
    std::string bytes = ReadStandardInput();
    if (!BeginsArchive(bytes)) return MakePlainInput(StandardInputName, std::move(bytes));
    auto archive = std::make_unique<ZipArchive>(StandardInputName, std::move(bytes));
    return {StandardInputName, InputKind::Package, {}, std::make_shared<const Package>(std::move(archive))};
}

}  // namespace TicketHost
