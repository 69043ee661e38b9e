#include <iostream>
#include <memory>
#include <string>

#include "Host/compare/DifferenceOutput.h"
#include "Host/ground/StandardStreams.h"
#include "Host/verbs/ChoiceOptions.h"
#include "Host/verbs/JobOptions.h"
#include "Host/verbs/Verbs.h"
#include "Platform/Process.h"

namespace TicketHost {
namespace {

using Platform::StandardStream;

struct DiffOptions {
    std::string File;  // of the first job
    JobOptions Other;  // the second one; without a file it is the first, as the options make it
    std::string Format = "text";
    std::string Color = "auto";
};

template <typename Output>
int Write(const Job& before, const Job& after, StandardOutput& output, Output writer) {
    const bool shows =
        Platform::IsTerminal(StandardStream::Error) && !Platform::IsTerminal(StandardStream::Output);
    const auto take = [&](const CallDifference& difference) {
        writer.Write(difference);
        output.Send();
    };
    const std::size_t count = CompareJobs(before, after, take, shows ? &std::cerr : nullptr);
    writer.End(count);
    output.Send();
    return count == 0 ? 0 : 1;
}

int RunDiff(const DiffOptions& options) {
    const Job before = ReadJob(options.File);
    Job after = options.Other.File.empty() ? before : ReadJob(options.Other.File);
    ApplyJobOptions(options.Other, after);
    StandardOutput output;
    if (options.Format == "json") return Write(before, after, output, DifferenceJson(output.Stream()));
    return Write(before, after, output, DifferenceText(output.Stream(), WantsColor(options.Color)));
}

}  // namespace

void AddDiffVerb(CLI::App& app, Action& action) {
    const auto options = std::make_shared<DiffOptions>();
    CLI::App* verb =
        app.add_subcommand("diff", "Converts two jobs and shows what comes out otherwise")->group("Verbs");
    verb->add_option("A", options->File, "The first job, as \"convert\" takes it")->required();
    verb->add_option("B", options->Other.File,
                     "The second one; when it is left out, the first again. All that options say of a job "
                     "goes for B alone");
    AddJobChanges(*verb, options->Other);
    AddChoice(*verb, "--format", "FORMAT", options->Format, {"text", "json"},
              "text, for a person (default), or json, one document");
    AddColor(*verb, options->Color);
    verb->footer(
        "The calls of both are compared one by one, in order, past those that throw: errors, lines of PJL\n"
        "and DATA, other properties, and the tickets by feature. Both are converted at one moment, so that\n"
        "times don't differ. What isn't called a difference: other paths, and a ticket that says the same\n"
        "in another form.\n"
        "\n"
        "  tickethost diff old.json new.json\n"
        "  tickethost diff job.json --set Hold=On\n"
        "\n"
        "Exit status: 0 when both convert alike, 1 when they don't, 2 for trouble.");
    verb->callback([&action, options] { action = [options] { return RunDiff(*options); }; });
}

}  // namespace TicketHost
