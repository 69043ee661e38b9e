#include <algorithm>
#include <filesystem>

#include "Contract.h"
#include "Host/check/JobChecks.h"
#include "Host/ground/Errors.h"
#include "Host/jobs/Job.h"
#include "Host/jobs/Manifest.h"
#include "Host/jobs/OptionTableSet.h"
#include "JobRun.h"
#include "Targets.h"

// Any manifest, and the job that it describes as far as its tickets stand in it. Neither files nor the user
// database nor a print queue are asked.

namespace Fuzz {
namespace {

using TicketHost::Manifest;

constexpr std::size_t mostCalls = 4;

JobRun RunOf(const Manifest& manifest) {
    Platform::PipelineProperties pipeline = manifest.Settings.Pipeline;
    const std::shared_ptr<Platform::IPrinterPropertyBag> driver =
        std::make_shared<Platform::MemoryPrinterBag>(manifest.Settings.Driver);
    pipeline.try_emplace(u"DriverPropertyBag", driver);
    JobRun run(std::move(pipeline), manifest.Settings.Queue);
    if (!manifest.Settings.Tables) run.Tables = nullptr;
    return run;
}

void RunCalls(const Manifest& manifest, std::size_t inputSize) {
    JobRun run = RunOf(manifest);
    std::size_t made = 0;
    for (const TicketHost::ManifestCall& call : manifest.Calls) {
        if (!call.IsInline() || made == mostCalls) continue;
        Platform::ParseError error;
        const TicketDocument ticket = Platform::LoadTicketDocument(Wide(call.Ticket), error);
        Require(ticket != nullptr || !error.Reason.empty(), "a refused ticket says why", call.Ticket);
        if (!ticket) continue;
        ++made;
        run.Call(call.Level, ticket, inputSize);
    }
}

// Whatever a job says, it can be checked, and each finding is a sentence about a place.
void RunCheck(const Manifest& manifest) {
    TicketHost::Job job{"job.json", manifest.Settings, {}};
    job.Settings.Pipeline.erase(u"UserSecurityToken");
    for (const TicketHost::ManifestCall& call : manifest.Calls) {
        if (!call.IsInline() || job.Calls.size() == mostCalls) continue;
        Platform::ParseError error;
        TicketHost::Ticket ticket{"inline ticket", Wide(call.Ticket)};
        if (Platform::LoadTicketDocument(Wide(call.Ticket), error))
            job.Calls.push_back({call.Level, std::make_shared<TicketHost::Ticket>(std::move(ticket))});
    }
    for (const TicketHost::Finding& finding : TicketHost::CheckJob(job))
        Require(!finding.Text.empty() && !finding.Place.empty() && finding.File == job.Name,
                "a finding says what and where", finding.Text);
}

bool IsTable(const std::string& name) {
    return std::ranges::find(TicketHost::OptionTableNames, name) != TicketHost::OptionTableNames.end();
}

}  // namespace

void RunManifest(std::string_view input) {
    Manifest manifest;
    try {
        manifest = TicketHost::ParseManifest("job.json", input);
    } catch (const TicketHost::InputError& error) {
        const std::string line = error.what();
        Require(line.starts_with("job.json:") && line.size() > 10, "an error names the file and a cause",
                line);
        Require(line.size() <= 300 + 8 * input.size(), "an error's line is bounded", line);
        return;
    }
    if (manifest.Settings.Tables)
        Require(std::ranges::all_of(*manifest.Settings.Tables, IsTable), "all tables are known");
    for (const TicketHost::ManifestCall& call : manifest.Calls)
        Require(!call.Ticket.empty() && (call.IsInline() || call.Ticket.find('\0') == call.Ticket.npos),
                "a call has its ticket");
    RunCalls(manifest, input.size());
    RunCheck(manifest);
}

}  // namespace Fuzz
