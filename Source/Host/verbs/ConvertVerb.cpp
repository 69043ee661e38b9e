#include <iostream>
#include <memory>
#include <string>

#include "Host/check/JobChecks.h"
#include "Host/ground/StandardStreams.h"
#include "Host/jobs/JobRunner.h"
#include "Host/output/FileOutput.h"
#include "Host/output/JsonLinesOutput.h"
#include "Host/output/JsonOutput.h"
#include "Host/output/TerminalSinks.h"
#include "Host/output/TextOutput.h"
#include "Host/report/HtmlReport.h"
#include "Host/verbs/ChoiceOptions.h"
#include "Host/verbs/JobOptions.h"
#include "Host/verbs/Verbs.h"
#include "Platform/Process.h"

namespace TicketHost {
namespace {

using Platform::StandardStream;

struct ConvertOptions {
    JobOptions Job;
    std::string Format = "text";
    std::string Color = "auto";
    std::string Folder;  // empty: none
    bool KeepGoing = false;
};

// Files come first, so that a folder that can't be written to is found before anything is printed. Progress
// is shown to a person who doesn't see the results go by.
void AddSinks(const ConvertOptions& options, StandardOutput& output, SinkList& sinks) {
    const bool asText = options.Format == "text";
    if (!options.Folder.empty()) sinks.Add(std::make_unique<FileOutput>(options.Folder));
    if (asText)
        sinks.Add(std::make_unique<TextOutput>(output.Stream(), WantsColor(options.Color)));
    else if (options.Format == "html")
        sinks.Add(std::make_unique<HtmlReport>(output.Stream()));
    else if (options.Format == "jsonl")
        sinks.Add(std::make_unique<JsonLinesOutput>(output.Stream()));
    else
        sinks.Add(std::make_unique<JsonOutput>(output.Stream()));
    sinks.Add(std::make_unique<SendingSink>(output));
    if (Platform::IsTerminal(StandardStream::Error) && !Platform::IsTerminal(StandardStream::Output))
        sinks.Add(std::make_unique<ProgressLine>(std::cerr));
    if (asText || options.Format == "html") sinks.Add(std::make_unique<ErrorLines>());
}

// One line for a person, who may have overlooked what counts for nothing.
void SayWarnings(const Job& job) {
    const std::size_t count = CountWarnings(CheckJob(job));
    if (count == 0) return;
    WriteErrorLine(std::to_string(count) + (count == 1 ? " warning" : " warnings") +
                   "; tickethost check shows " + (count == 1 ? "it" : "them"));
}

int Convert(const ConvertOptions& options) {
    const Job job = ReadJob(options.Job);
    StandardOutput output;
    SinkList sinks;
    AddSinks(options, output, sinks);
    const bool succeeded = RunJob(job, options.KeepGoing, sinks);
    if (options.Format == "text") SayWarnings(job);
    return succeeded ? 0 : 1;
}

}  // namespace

void AddConvertVerb(CLI::App& app, Action& action) {
    const auto options = std::make_shared<ConvertOptions>();
    CLI::App* verb =
        app.add_subcommand("convert", "Converts tickets and shows what came of them")->group("Verbs");
    AddJobOptions(*verb, options->Job);
    AddChoice(*verb, "--format", "FORMAT", options->Format, {"text", "html", "json", "jsonl"},
              "text, for a person (default); html, one page to look at; json, one document, where each call "
              "repeats all properties; "
              "jsonl, a line for each call with what it changed, for long jobs");
    AddColor(*verb, options->Color);
    verb->add_option("--out", options->Folder, "Also write the raw results as files into this folder")
        ->check([](const std::string& folder) { return folder.empty() ? "must not be empty" : ""; })
        ->type_name("DIR");
    verb->add_flag("--keep-going", options->KeepGoing, "Make the calls behind one that threw, too");
    verb->footer(
        "Files of --out: 001-ticket.xml and so on, job.pjl, job.data, properties.json. When all are there,\n"
        "they take the place of an earlier job's; a run that can't write them leaves those as they are.\n"
        "For a package also converted.xps or converted.oxps: the package, each ticket replaced by what the\n"
        "call made of it. One that serves several calls is replaced when all of them made the same of it;\n"
        "otherwise it stays as it was, and a line on standard error says so. All else is the same bytes.\n"
        "\n"
        "  tickethost convert ticket.xml\n"
        "  tickethost convert --format json job.json\n"
        "  tickethost convert --out result job.xps\n"
        "  tickethost convert --pipeline PrinterName=Office - <ticket.xml");
    verb->callback([&action, options] { action = [options] { return Convert(*options); }; });
}

}  // namespace TicketHost
