#include "Host/verbs/WhatIfOptions.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

#include "Host/ground/Errors.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/JobEdits.h"
#include "devicespecific/DeviceSpecificModule.h"
#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/Identities.h"

namespace TicketHost {
namespace {

Platform::WideText TextOf(std::string_view argument) {
    Platform::WideText text;
    return ConvertToWide(Platform::CodePage::System, argument, text) ? text : FromUtf8(argument);
}

// The two sides of an argument, in UTF-8.
std::pair<std::string, std::string> Split(const std::string& said, std::string_view argument,
                                          const char* form) {
    const std::size_t equals = argument.find('=');
    if (equals == argument.npos || equals == 0)
        throw InputError(said, std::string("must have the form ") + form);
    return {ToUtf8(TextOf(argument.substr(0, equals))), ToUtf8(TextOf(argument.substr(equals + 1)))};
}

// Nothing for a text that isn't all of a number of this type.
template <typename Integer>
std::optional<Integer> NumberOf(std::string_view text) {
    Integer number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

constexpr struct {
    std::string_view Name;
    std::int32_t Level;
} levels[] = {{"job", DeviceSpecificModule::JobLevel},
              {"document", DeviceSpecificModule::DocumentLevel},
              {"page", DeviceSpecificModule::PageLevel}};

void SetLevel(const std::string& argument, Job& job) {
    const std::string said = "--level " + argument;
    const auto row = std::ranges::find(levels, argument, [](const auto& each) { return each.Name; });
    const std::optional<std::int32_t> level =
        row == std::end(levels) ? NumberOf<std::int32_t>(argument) : row->Level;
    if (!level) throw InputError(said, "must be job, document, page or a 32-bit integer");
    if (job.Calls.size() != 1)
        throw InputError(said, job.Name + " has " + std::to_string(job.Calls.size()) + " calls, not one");
    job.Calls.front().Level = *level;
}

// Digits alone are an id.
Platform::TokenHandle TokenOf(const std::string& argument) {
    if (argument.empty() || argument.find_first_not_of("0123456789") != argument.npos)
        return Platform::GetTokenOfUserName(TextOf(argument));
    const auto id = NumberOf<std::uint32_t>(argument);
    if (!id) throw InputError("--user " + argument, "must be a name or a user id of 32 bits");
    return Platform::GetTokenOfUser(*id);
}

CLI::Option* AddRepeated(CLI::App& verb, const char* option, std::vector<std::string>& arguments,
                         const char* form, const char* help) {
    return verb.add_option(option, arguments, help)
        ->type_name(form)
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false)
        ->group("What if");
}

}  // namespace

void AddWhatIfOptions(CLI::App& verb, WhatIfOptions& options) {
    AddRepeated(verb, "--set", options.Set, "NAME=VALUE",
                "Give a setting of the job's tickets this value, as a text unless it was a number; new ones "
                "go to the features of the job. May be repeated, as the next two");
    AddRepeated(verb, "--unset", options.Unset, "NAME", "Take a setting away, ahead of --set");
    AddRepeated(verb, "--option", options.Option, "FEATURE=OPTION",
                "Let a feature choose this option in each ticket that has the feature, or else in the job's; "
                "what stood in the option goes. Names need no prefix");
    verb.add_option("--level", options.Level, "Convert a single ticket as job, document, page or a number")
        ->type_name("LEVEL")
        ->group("What if");
    verb.add_option("--job-name", options.JobName, "The document's name, in place of what a queue says")
        ->type_name("TEXT")
        ->group("What if");
    verb.add_option("--user", options.User,
                    "Who submitted the job: any name, or digits for a user id; goes before --pipeline")
        ->type_name("NAME|ID")
        ->group("What if");
}

void ApplyWhatIf(const WhatIfOptions& options, Job& job) {
    if (options.Level) SetLevel(*options.Level, job);
    for (const std::string& name : options.Unset)
        EditSetting({"--unset " + name, ToUtf8(TextOf(name)), std::nullopt}, job);
    for (const std::string& argument : options.Set) {
        const std::string said = "--set " + argument;
        auto [name, value] = Split(said, argument, "NAME=VALUE");
        EditSetting({said, std::move(name), std::move(value)}, job);
    }
    for (const std::string& argument : options.Option) {
        const std::string said = "--option " + argument;
        auto [feature, option] = Split(said, argument, "FEATURE=OPTION");
        EditOption({said, std::move(feature), std::move(option)}, job);
    }
    if (options.JobName) job.Settings.DocumentName = TextOf(*options.JobName);
    if (options.User) job.Settings.Pipeline[u"UserSecurityToken"] = TokenOf(*options.User);
}

}  // namespace TicketHost
