#include "Host/jobs/TicketFiles.h"

#include <system_error>

#include "Host/ground/Files.h"
#include "Host/jobs/Input.h"

namespace TicketHost {
namespace fs = std::filesystem;

TicketFiles::Place TicketFiles::FindPackage(const fs::path& file) {
    std::error_code ignored;
    fs::path package = file;
    while (package.has_relative_path() && !fs::exists(package, ignored)) package = package.parent_path();
    if (package == file || !fs::is_regular_file(package, ignored)) return {};
    const auto [entry, isNew] = packages_.try_emplace(package);
    if (isNew) entry->second = OpenPackage(package);
    return {entry->second, PartOfEntry(file.lexically_relative(package).generic_string())};
}

std::shared_ptr<const Ticket> TicketFiles::Read(const fs::path& file) {
    std::shared_ptr<const Ticket>& ticket = tickets_[file];
    if (ticket) return ticket;
    const Place place = FindPackage(file);
    if (place.Source) {
        ticket = ReadPackageTicket(*place.Source, place.Part);
    } else {
        std::string bytes = ReadFile(file);
        ticket = MakeTicket({file.string(), std::move(bytes)}, file.string());
    }
    return ticket;
}

}  // namespace TicketHost
