#include "Host/jobs/Job.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "Host/ground/Errors.h"
#include "Host/ground/Files.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/Manifest.h"
#include "Host/jobs/OptionTableSet.h"
#include "Platform/Process.h"
#include "conversion/DeviceSpecificModule.h"

namespace TicketHost {
namespace {

namespace fs = std::filesystem;

// Loads a ticket; errors call it `name`.
Platform::TicketDocument Load(const Ticket& ticket, const std::string& name) {
    Platform::ParseError error;
    const auto load = [&error](const auto& content) { return Platform::LoadTicketDocument(content, error); };
    Platform::TicketDocument document = std::visit(load, ticket.Content);
    if (document) return document;
    const bool placed = error.Line > 0;
    const std::string place = ":" + std::to_string(error.Line) + ":" + std::to_string(error.Column);
    throw InputError(placed ? name + place : name, error.Reason);
}

std::shared_ptr<const Ticket> ReadTicketFile(const fs::path& file) {
    auto ticket = std::make_shared<Ticket>(Ticket{file.string(), ReadFile(file)});
    Load(*ticket, ticket->Name);
    return ticket;
}

Job ReadTicketJob(const fs::path& file) {
    Job job{file.string(), {}, {}};
    job.Settings.Pipeline[u"UserSecurityToken"] = Platform::GetCallingUser();
    job.Settings.Tables.emplace(OptionTableNames.begin(), OptionTableNames.end());
    job.Calls.push_back({DeviceSpecificModule::JobLevel, ReadTicketFile(file)});
    return job;
}

// Gives the tickets that a manifest names, each file only once.
class ManifestTickets {
public:
    explicit ManifestTickets(const fs::path& manifest)
        : name_(manifest.string()), folder_(manifest.parent_path()) {}

    std::shared_ptr<const Ticket> Read(const ManifestCall& call, std::size_t index) {
        if (call.IsInline()) return ReadInline(call, index);
        const std::u8string name(call.Ticket.begin(), call.Ticket.end());  // plain chars needn't be UTF-8
        const fs::path file = (folder_ / name).lexically_normal();
        std::shared_ptr<const Ticket>& ticket = files_[file];
        if (!ticket) ticket = ReadTicketFile(file);
        return ticket;
    }

private:
    std::shared_ptr<const Ticket> ReadInline(const ManifestCall& call, std::size_t index) const {
        auto ticket = std::make_shared<Ticket>(Ticket{"inline ticket", FromUtf8(call.Ticket)});
        Load(*ticket, name_ + ": calls[" + std::to_string(index) + "].ticket");
        return ticket;
    }

    std::string name_;
    fs::path folder_;
    std::map<fs::path, std::shared_ptr<const Ticket>> files_;
};

Job ReadManifestJob(const fs::path& file) {
    Manifest manifest = ParseManifest(file.string(), ReadFile(file));
    Job job{file.string(), std::move(manifest.Settings), {}};
    job.Calls.reserve(manifest.Calls.size());
    ManifestTickets tickets(file);
    for (std::size_t index = 0; index < manifest.Calls.size(); ++index) {
        const ManifestCall& call = manifest.Calls[index];
        job.Calls.push_back({call.Level, tickets.Read(call, index)});
    }
    return job;
}

Job ReadPackageJob(const fs::path& file) { throw InputError(file.string(), "packages cannot be read yet"); }

std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

}  // namespace

Job ReadJob(const std::string& file) {
    const fs::path path(file);
    const std::string extension = LowerCase(path.extension().string());
    if (extension == ".xml") return ReadTicketJob(path);
    if (extension == ".json") return ReadManifestJob(path);
    if (extension == ".xps" || extension == ".oxps") return ReadPackageJob(path);
    throw InputError(file, "not a ticket (.xml), a manifest (.json) or a package (.xps, .oxps) by its name");
}

Platform::TicketDocument LoadTicket(const Ticket& ticket) { return Load(ticket, ticket.Name); }

}  // namespace TicketHost
