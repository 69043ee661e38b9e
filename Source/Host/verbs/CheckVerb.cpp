#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "Host/check/JobChecks.h"
#include "Host/ground/Errors.h"
#include "Host/ground/Files.h"
#include "Host/ground/StandardStreams.h"
#include "Host/verbs/ChoiceOptions.h"
#include "Host/verbs/JobOptions.h"
#include "Host/verbs/Verbs.h"

namespace TicketHost {
namespace {

struct CheckOptions {
    JobOptions Job;
    std::string Format = "text";
    bool IsStrict = false;
};

constexpr std::size_t longestStart = 1000;  // bytes of a file that say what it is

// What to do about a document that isn't taken, by a part of the reason.
constexpr std::pair<const char*, const char*> hints[] = {
    {"DOCTYPE", "a Print Ticket has none: leave it away"},
    {"Namespace prefix", "declare it in the root, as xmlns:psf=\"...\""},
    {"Start tag expected", "a Print Ticket is XML and begins with <psf:PrintTicket"},
    {"Document is empty", "a Print Ticket is XML and begins with <psf:PrintTicket"},
    {"Opening and ending tag mismatch", "each element must be closed"},
    {"Premature end", "the end of the ticket is missing"},
};

// A page of the web, well-formed or not, by how it begins.
bool IsHtml(const std::string& file) try {
    std::string start = ReadFile(file).substr(0, longestStart);
    std::ranges::transform(start, start.begin(),
                           [](char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return start.find("<!doctype html") != start.npos || start.find("<html") != start.npos;
} catch (const InputError&) {
    return false;
}

Job ReadJobWithHints(const JobOptions& options) try {
    return ReadJob(options);
} catch (const InputError& error) {
    const std::string line = error.what();
    if (IsHtml(options.File)) throw InputError(line + "; this is an HTML page, not a Print Ticket");
    for (const auto& [part, hint] : hints)
        if (line.find(part) != line.npos) throw InputError(line + "; " + hint);
    throw;
}

void AddLines(const CheckOptions& options, const Job& job, Findings& findings) try {
    AddManifestLines(ReadFile(options.Job.File), job, findings);
} catch (const InputError&) {  // no file that could be read a second time
}

int Check(const CheckOptions& options) {
    const Job job = ReadJobWithHints(options.Job);
    Findings findings = CheckJob(job);
    CheckQueue(job, findings);
    AddLines(options, job, findings);
    StandardOutput output;
    if (options.Format == "json")
        WriteFindingsAsJson(output.Stream(), findings);
    else
        WriteFindingsAsText(output.Stream(), findings);
    output.Send();
    return options.IsStrict && CountWarnings(findings) > 0 ? 1 : 0;
}

}  // namespace

void AddCheckVerb(CLI::App& app, Action& action) {
    const auto options = std::make_shared<CheckOptions>();
    CLI::App* verb =
        app.add_subcommand("check", "Says what counts for nothing in a job, or for something else")
            ->group("Verbs");
    AddJobOptions(*verb, options->Job);
    AddChoice(*verb, "--format", "FORMAT", options->Format, {"text", "json"},
              "text, for a person (default), or json, one document");
    verb->add_flag("--strict", options->IsStrict, "Exit with 1 when there is a warning");
    verb->footer(
        "Nothing is converted. Warnings are oversights: names and words that nobody knows, with the nearest\n"
        "that the device does, prefixes, numbers that are none, settings that get lost. A note says what\n"
        "counts for nothing as much does in a ticket that is meant for others, too; --strict passes over "
        "it.\n"
        "JSON: { \"warnings\": [ { \"file\", \"place\", \"line\", \"text\", \"hint\" } ], \"notes\": [ the "
        "same ] }\n"
        "\n"
        "  tickethost check ticket.xml\n"
        "  tickethost check --strict --format json job.json");
    verb->callback([&action, options] { action = [options] { return Check(*options); }; });
}

}  // namespace TicketHost
