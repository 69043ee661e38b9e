#include <charconv>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Host/ground/Errors.h"
#include "Host/ground/StandardStreams.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/Job.h"
#include "Host/jobs/JobRunner.h"
#include "Host/output/FileOutput.h"
#include "Host/output/JsonOutput.h"
#include "Host/output/TerminalSinks.h"
#include "Host/output/TextOutput.h"
#include "Host/verbs/Verbs.h"
#include "Platform/CodePages.h"
#include "Platform/Identities.h"
#include "Platform/Process.h"

namespace TicketHost {
namespace {

using Platform::StandardStream;

struct ConvertOptions {
    std::string Job;
    std::string Format = "text";
    std::string Folder;
    bool KeepGoing = false;
    std::vector<std::string> Pipeline, Driver, Queue;
};

bool WantsColour() {
    const char* refused = std::getenv("NO_COLOR");
    return (refused == nullptr || *refused == '\0') && Platform::IsTerminal(StandardStream::Output);
}

// Files come first, so that a folder that can't be written to is found before anything is printed. Progress
// is shown to a person who doesn't see the results go by.
void AddSinks(const ConvertOptions& options, StandardOutput& output, SinkList& sinks) {
    const bool asText = options.Format == "text";
    if (!options.Folder.empty()) sinks.Add(std::make_unique<FileOutput>(options.Folder));
    if (asText)
        sinks.Add(std::make_unique<TextOutput>(output.Stream(), WantsColour()));
    else
        sinks.Add(std::make_unique<JsonOutput>(output.Stream()));
    sinks.Add(std::make_unique<SendingSink>(output));
    if (Platform::IsTerminal(StandardStream::Error) && !Platform::IsTerminal(StandardStream::Output))
        sinks.Add(std::make_unique<ProgressLine>(std::cerr));
    if (asText) sinks.Add(std::make_unique<ErrorLines>());
}

// Properties on the command line have the form NAME=VALUE; of two with one name the later counts. Values are
// texts in the code page of the environment, but for one property of each kind of bag, which is a number.

Platform::WideText TextOf(std::string_view argument) {
    Platform::WideText text;
    return ConvertToWide(Platform::CodePage::System, argument, text) ? text : FromUtf8(argument);
}

struct Assignment {
    std::u16string Name;
    std::string_view Value;
};

Assignment Split(const std::string& option, std::string_view argument) {
    const std::size_t equals = argument.find('=');
    if (equals == argument.npos || equals == 0)
        throw InputError(option + " " + std::string(argument), "must have the form NAME=VALUE");
    return {std::u16string(TextOf(argument.substr(0, equals)).View()), argument.substr(equals + 1)};
}

template <typename Integer>
Integer NumberOf(const std::string& option, const std::string& argument, std::string_view digits) {
    Integer number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size())
        throw InputError(option + " " + argument,
                         std::is_signed_v<Integer> ? "must be a 32-bit integer" : "must be a user id");
    return number;
}

void SetPipelineProperties(const std::vector<std::string>& arguments, PipelineProperties& properties) {
    const std::string option = "--pipeline";
    for (const std::string& argument : arguments) {
        const auto [name, value] = Split(option, argument);
        if (name == u"UserSecurityToken")
            properties[name] = Platform::GetTokenOfUser(NumberOf<std::uint32_t>(option, argument, value));
        else
            properties[name] = TextOf(value);
    }
}

void SetPrinterProperties(const std::string& option, const std::vector<std::string>& arguments,
                          PrinterProperties& properties) {
    for (const std::string& argument : arguments) {
        const auto [name, value] = Split(option, argument);
        if (name == u"encryptionPassphrase_Flag")
            properties[name] = NumberOf<std::int32_t>(option, argument, value);
        else
            properties[name] = TextOf(value);
    }
}

int Convert(const ConvertOptions& options) {
    JobSettings given;
    SetPipelineProperties(options.Pipeline, given.Pipeline);
    SetPrinterProperties("--driver", options.Driver, given.Driver);
    SetPrinterProperties("--queue", options.Queue, given.Queue);
    Job job = ReadJob(options.Job);
    for (auto& [name, value] : given.Pipeline) job.Settings.Pipeline[name] = value;
    for (auto& [name, value] : given.Driver) job.Settings.Driver[name] = value;
    for (auto& [name, value] : given.Queue) job.Settings.Queue[name] = value;
    StandardOutput output;
    SinkList sinks;
    AddSinks(options, output, sinks);
    return RunJob(job, options.KeepGoing, sinks) ? 0 : 1;
}

void AddProperties(CLI::App& verb, const char* option, std::vector<std::string>& properties,
                   const char* help) {
    verb.add_option(option, properties, help)->type_name("NAME=VALUE")->expected(1)->take_all();
}

}  // namespace

void AddConvertVerb(CLI::App& app, Action& action) {
    const auto options = std::make_shared<ConvertOptions>();
    CLI::App* verb =
        app.add_subcommand("convert", "Converts tickets and shows what came of them")->group("Verbs");
    verb->add_option("JOB", options->Job,
                     "A job ticket (.xml), a manifest of several calls (.json) or a package (.xps, .oxps)")
        ->required();
    verb->add_option("--format", options->Format, "text, for a person (default), or json, one document")
        ->check(CLI::IsMember({"text", "json"}))
        ->type_name("FORMAT");
    verb->add_option("--out", options->Folder, "Also write the raw results as files into this folder")
        ->type_name("DIR");
    verb->add_flag("--keep-going", options->KeepGoing, "Make the calls behind one that threw, too");
    AddProperties(*verb, "--pipeline", options->Pipeline, "Set a property of the pipeline; may be repeated");
    AddProperties(*verb, "--driver", options->Driver, "Set a property of the driver; may be repeated");
    AddProperties(*verb, "--queue", options->Queue, "Set a property of the queue; may be repeated");
    verb->footer(
        "What is set here goes before what the manifest says. Values are texts; UserSecurityToken is a\n"
        "user id and encryptionPassphrase_Flag an integer.\n"
        "\n"
        "Files of --out: 001-ticket.xml and so on, job.pjl, job.data, properties.json. When all are there,\n"
        "they take the place of an earlier job's; a run that can't write them leaves those as they are.\n"
        "\n"
        "  tickethost convert ticket.xml\n"
        "  tickethost convert --format json job.json\n"
        "  tickethost convert --pipeline PrinterName=Office --out result ticket.xml");
    verb->callback([&action, options] { action = [options] { return Convert(*options); }; });
}

}  // namespace TicketHost
