#include "Host/verbs/JobOptions.h"

#include <charconv>
#include <string_view>

#include "Host/ground/Errors.h"
#include "Host/ground/Nearest.h"
#include "Host/ground/StandardStreams.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/KnownProperties.h"
#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/Identities.h"

namespace TicketHost {
namespace {

// Values are texts in the code page of the environment, but for one property of each kind of bag, which is a
// number.

Platform::WideText TextOf(std::string_view argument) {
    Platform::WideText text;
    return ConvertToWide(Platform::CodePage::System, argument, text) ? text : FromUtf8(argument);
}

struct Assignment {
    std::u16string Name;
    std::string_view Value;
};

// A property that nobody reads does no harm, but is hardly what was meant.
void HintAtName(const std::string& option, Bag bag, std::string_view name) {
    if (IsPropertyRead(bag, name)) return;
    WriteErrorLine(option + " " + std::string(name) + ": the module reads no such property" +
                   DidYouMean(name, PropertiesRead(bag)));
}

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
        HintAtName(option, Bag::Pipeline, ToUtf8(name));
        if (name == u"UserSecurityToken")
            properties[name] = Platform::GetTokenOfUser(NumberOf<std::uint32_t>(option, argument, value));
        else
            properties[name] = TextOf(value);
    }
}

void SetPrinterProperties(const std::string& option, Bag bag, const std::vector<std::string>& arguments,
                          PrinterProperties& properties) {
    for (const std::string& argument : arguments) {
        const auto [name, value] = Split(option, argument);
        HintAtName(option, bag, ToUtf8(name));
        if (name == u"encryptionPassphrase_Flag")
            properties[name] = NumberOf<std::int32_t>(option, argument, value);
        else
            properties[name] = TextOf(value);
    }
}

void AddProperties(CLI::App& verb, const char* option, std::vector<std::string>& properties,
                   const char* help) {
    verb.add_option(option, properties, help)
        ->type_name("NAME=VALUE")
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false);
}

}  // namespace

void AddJobOptions(CLI::App& verb, JobOptions& options) {
    verb.add_option(
            "JOB", options.File,
            "A job ticket (XML), a manifest of several calls (JSON) or an XPS or OpenXPS package, told "
            "by what they hold; - reads it from the standard input")
        ->required();
    AddJobChanges(verb, options);
}

void AddJobChanges(CLI::App& verb, JobOptions& options) {
    AddProperties(verb, "--pipeline", options.Pipeline, "Set a property of the pipeline; may be repeated");
    AddProperties(verb, "--driver", options.Driver, "Set a property of the driver; may be repeated");
    AddProperties(
        verb, "--queue", options.Queue,
        "Set a property of the queue; may be repeated. What is set so goes before what the manifest "
        "says. Values are texts; UserSecurityToken is a user id, encryptionPassphrase_Flag an integer");
    AddWhatIfOptions(verb, options.WhatIf);
}

void ApplyJobOptions(const JobOptions& options, Job& job) {
    JobSettings given;
    SetPipelineProperties(options.Pipeline, given.Pipeline);
    SetPrinterProperties("--driver", Bag::Driver, options.Driver, given.Driver);
    SetPrinterProperties("--queue", Bag::Queue, options.Queue, given.Queue);
    for (auto& [name, value] : given.Pipeline) job.Settings.Pipeline[name] = value;
    for (auto& [name, value] : given.Driver) job.Settings.Driver[name] = value;
    for (auto& [name, value] : given.Queue) job.Settings.Queue[name] = value;
    ApplyWhatIf(options.WhatIf, job);
}

Job ReadJob(const JobOptions& options) {
    Job job = ReadJob(options.File);
    ApplyJobOptions(options, job);
    return job;
}

}  // namespace TicketHost
