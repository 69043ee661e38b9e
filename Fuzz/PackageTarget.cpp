#include <algorithm>

#include "Contract.h"
#include "Host/ground/Errors.h"
#include "Host/jobs/Package.h"
#include "Host/jobs/PartNames.h"
#include "JobRun.h"
#include "Targets.h"
#include "ZipBuilder.h"

// A package. An input that begins with "PK" is one as it is; any other consists of its parts, the first line
// of each its name.

namespace Fuzz {
namespace {

using TicketHost::Call;
using TicketHost::Package;

constexpr const char* file = "job.xps";

std::string ArchiveOf(std::string_view input) {
    if (input.starts_with("PK")) return std::string(input);
    std::vector<ZipItem> items;
    for (const std::string_view part : SplitParts(input)) {
        const std::size_t end = std::min(part.find('\n'), part.size());
        items.push_back(
            {std::string(part.substr(0, end)), std::string(part.substr(std::min(end + 1, part.size())))});
    }
    return BuildZip(items);
}

void RequireName(std::string_view reference) {
    const std::optional<std::string> name = TicketHost::ResolvePart("/a/b", reference);
    if (!name) return;
    Require(name->starts_with('/') && !name->ends_with('/'), "a reference gives an absolute name", *name);
    Require(TicketHost::ResolvePart("/", *name).value_or("") == *name, "a name refers to itself", *name);
}

// The calls in the order of a job; all share few tickets and each of those loads.
std::string DescribeCalls(const std::vector<Call>& calls) {
    std::string said;
    std::vector<const TicketHost::Ticket*> loaded;
    for (const Call& call : calls) {
        const TicketHost::Ticket* ticket = call.Source.get();
        said += std::to_string(call.Level) + " " + ticket->Name + "\n";
        Require(ticket->Name.starts_with(file), "a ticket is named by its package", ticket->Name);
        if (std::ranges::find(loaded, ticket) != loaded.end()) continue;
        loaded.push_back(ticket);
        Require(TicketHost::LoadTicket(*ticket) != nullptr, "a ticket of a package loads", ticket->Name);
    }
    Require(calls.size() >= 3 && calls[0].Level == 2 && calls[1].Level == 1 && calls[2].Level == 0,
            "a job has documents and pages", said);
    Require(
        std::ranges::all_of(calls.begin() + 1, calls.end(), [](const Call& each) { return each.Level < 2; }),
        "a job has one call at job level", said);
    return said;
}

std::string ReadPackage(std::string_view input) {
    try {
        const Package package(std::make_unique<TicketHost::ZipArchive>(file, ArchiveOf(input)));
        return DescribeCalls(ReadPackageCalls(package));
    } catch (const TicketHost::InputError& error) {
        const std::string line = error.what();
        Require(line.starts_with("job.xps: ") && line.size() > 10, "an error names the package and a cause",
                line);
        Require(line.size() <= 400 + 8 * input.size(), "an error's line is bounded", line);
        return line;
    }
}

}  // namespace

void RunPackage(std::string_view input) {
    RequireName(input.substr(0, 60));
    RequireSameTwice(input, ReadPackage);
}

}  // namespace Fuzz
