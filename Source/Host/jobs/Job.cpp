#include "Host/jobs/Job.h"

#include <filesystem>
#include <utility>

#include "Host/ground/Errors.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/Input.h"
#include "Host/jobs/Manifest.h"
#include "Host/jobs/OptionTableSet.h"
#include "Host/jobs/TicketFiles.h"
#include "Platform/Process.h"
#include "devicespecific/DeviceSpecificModule.h"

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

// A job that doesn't say how it is to be run: by the calling user, with all tables.
Job MakeUsersJob(const std::string& name, std::vector<Call> calls) {
    Job job{name, {}, std::move(calls)};
    job.Settings.Pipeline[u"UserSecurityToken"] = Platform::GetCallingUser();
    job.Settings.Tables.emplace(OptionTableNames.begin(), OptionTableNames.end());
    return job;
}

Job MakeTicketJob(const std::string& name, std::shared_ptr<const Ticket> ticket) {
    return MakeUsersJob(name, {{DeviceSpecificModule::JobLevel, std::move(ticket)}});
}

Job MakePackageJob(const Input& input) {
    Job job = MakeUsersJob(input.Name, ReadPackageCalls(*input.Source));
    job.Source = input.Source;
    return job;
}

std::shared_ptr<const Ticket> ReadTicket(const ManifestCall& call, const std::string& place,
                                         const fs::path& folder, TicketFiles& files) {
    if (call.IsInline()) return MakeTicket({"inline ticket", FromUtf8(call.Ticket)}, place);
    const std::u8string name(call.Ticket.begin(), call.Ticket.end());  // plain chars needn't be UTF-8
    return files.Read((folder / name).lexically_normal());
}

// The tickets' paths count from `folder`.
Job MakeManifestJob(const Input& input, const fs::path& folder) {
    Manifest manifest = ParseManifest(input.Name, input.Bytes);
    Job job{input.Name, std::move(manifest.Settings), {}};
    job.Calls.reserve(manifest.Calls.size());
    TicketFiles files;
    for (std::size_t index = 0; index < manifest.Calls.size(); ++index) {
        const ManifestCall& call = manifest.Calls[index];
        const std::string place = input.Name + ": calls[" + std::to_string(index) + "].ticket";
        job.Calls.push_back({call.Level, ReadTicket(call, place, folder, files)});
    }
    return job;
}

}  // namespace

Job ReadJob(const std::string& file) {
    TicketFiles files;
    if (files.IsInPackage(file)) return MakeTicketJob(file, files.Read(file));
    Input input = ReadInput(file);
    if (input.Kind == InputKind::Package) return MakePackageJob(input);
    if (input.Kind == InputKind::Manifest)
        return MakeManifestJob(input, file == "-" ? fs::path() : fs::path(file).parent_path());
    return MakeTicketJob(input.Name, MakeTicket({input.Name, std::move(input.Bytes)}, input.Name));
}

std::shared_ptr<const Ticket> MakeTicket(Ticket ticket, const std::string& place) {
    Load(ticket, place);
    return std::make_shared<const Ticket>(std::move(ticket));
}

Platform::TicketDocument LoadTicket(const Ticket& ticket) { return Load(ticket, ticket.Name); }

}  // namespace TicketHost
