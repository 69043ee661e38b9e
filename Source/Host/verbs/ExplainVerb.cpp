#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

#include "Host/explain/Explain.h"
#include "Host/explain/ExplainOutput.h"
#include "Host/ground/StandardStreams.h"
#include "Host/output/TerminalSinks.h"
#include "Host/report/HtmlReport.h"
#include "Host/verbs/ChoiceOptions.h"
#include "Host/verbs/JobOptions.h"
#include "Host/verbs/Verbs.h"
#include "Platform/Process.h"

namespace TicketHost {
namespace {

struct ExplainOptions {
    JobOptions Job;
    Question Asked;
    std::string Format = "text";
    std::string Color = "auto";
};

Explanation ExplainWithProgress(const Job& job, const ExplainOptions& options) {
    if (!Platform::IsTerminal(Platform::StandardStream::Error)) return Explain(job, options.Asked);
    StatusLine line(std::cerr);
    return Explain(job, options.Asked, [&line](std::size_t done, std::size_t total) {
        line.Show("trial " + std::to_string(done) + (total == 0 ? "" : " of " + std::to_string(total)));
    });
}

bool Threw(const Explanation& explanation) {
    return std::ranges::any_of(explanation.Calls, [](const ExplainedCall& call) {
        return !call.Lines.empty() && call.Lines.front().Kind == LineKind::Error;
    });
}

void WriteReport(std::ostream& out, const Job& job, const Explanation& explanation) {
    HtmlReport report(out, &explanation);
    RunJob(job, false, report);
}

int RunExplain(const ExplainOptions& options) {
    const Job job = ReadJob(options.Job);
    const Explanation explanation = ExplainWithProgress(job, options);
    StandardOutput output;
    if (options.Format == "json")
        WriteExplanationAsJson(output.Stream(), explanation);
    else if (options.Format == "html")
        WriteReport(output.Stream(), job, explanation);
    else
        WriteExplanation(output.Stream(), explanation, WantsColor(options.Color));
    output.Send();
    return Threw(explanation) ? 1 : 0;
}

constexpr const char* footer =
    "Takes each item of the job away and converts again: the features, options, scored\n"
    "properties and parameters of its tickets, the user's settings, the exceptions for\n"
    "single pages, the properties of the bags. A line that is then gone or another one\n"
    "is the item's; the innermost is named, so an option rather than its feature. A line\n"
    "that no item causes alone goes when all are taken away, or is the module's own. If\n"
    "it goes, delta debugging (ddmin) finds a smallest set that causes it: one of which\n"
    "no item can be left out. An item without effect that has one once another is taken\n"
    "away, such as a setting that a later series replaces, is hidden by that one. Lines\n"
    "with the time are told apart by unchanged conversions right before and after.\n"
    "\n"
    "  tickethost explain job.xml\n"
    "  tickethost explain --line RESOLUTION job.json\n"
    "  tickethost explain --call 7 job.xps\n"
    "  tickethost explain --item PageInputBin --format json job.json";

}  // namespace

void AddExplainVerb(CLI::App& app, Action& action) {
    const auto options = std::make_shared<ExplainOptions>();
    CLI::App* verb =
        app.add_subcommand("explain", "Says which item of a job caused which of its lines")->group("Verbs");
    AddJobOptions(*verb, options->Job);
    verb->add_option("--line", options->Asked.Line, "Only lines that hold this text")->type_name("TEXT");
    verb->add_option("--item", options->Asked.Item, "Only items of this name, with or without its prefix")
        ->type_name("NAME");
    verb->add_option("--call", options->Asked.Call, "Only this call, counted from 1")->type_name("N");
    AddChoice(*verb, "--format", "FORMAT", options->Format, {"text", "html", "json"},
              "text, for a person (default); html, one page to look at; json, one document");
    AddColor(*verb, options->Color);
    verb->footer(footer);
    verb->callback([&action, options] { action = [options] { return RunExplain(*options); }; });
}

}  // namespace TicketHost
