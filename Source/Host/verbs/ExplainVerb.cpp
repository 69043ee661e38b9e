#include <chrono>
#include <iostream>
#include <memory>
#include <mutex>
#include <string>

#include "Host/explain/Explain.h"
#include "Host/explain/ExplainOutput.h"
#include "Host/ground/StandardStreams.h"
#include "Host/verbs/ChoiceOptions.h"
#include "Host/verbs/JobOptions.h"
#include "Host/verbs/Verbs.h"
#include "Platform/Process.h"

namespace TicketHost {
namespace {

struct ExplainOptions {
    JobOptions Job;
    std::string Format = "text";
    std::string Color = "auto";
    Question Asked;
};

int RunExplain(const ExplainOptions& options) {
    const Job job = ReadJob(options.Job);
    const Explanation explanation = Explain(job, options.Asked);
    StandardOutput output;
    if (options.Format == "json")
        WriteExplanationAsJson(output.Stream(), explanation);
    else
        WriteExplanation(output.Stream(), explanation, WantsColor(options.Color));
    output.Send();
    return 0;
}

}  // namespace

void AddExplainVerb(CLI::App& app, Action& action) {
    const auto options = std::make_shared<ExplainOptions>();
    CLI::App* verb =
        app.add_subcommand("explain", "Says which item of a job caused which of its lines")->group("Verbs");
    AddJobOptions(*verb, options->Job);
    verb->add_option("--line", options->Asked.Line, "Explain only lines that hold this text")
        ->type_name("TEXT");
    verb->add_option("--item", options->Asked.Item, "Say only what items of this name did")
        ->type_name("NAME");
    verb->add_option("--call", options->Asked.Call, "Explain only this call, counted from 1")->type_name("N");
    AddChoice(*verb, "--format", "FORMAT", options->Format, {"text", "json"},
              "text, for a person (default), or json, one document");
    AddColor(*verb, options->Color);
    verb->callback([&action, options] { action = [options] { return RunExplain(*options); }; });
}

}  // namespace TicketHost
