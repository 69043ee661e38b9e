#include "Host/verbs/CommandLine.h"

#include <CLI/Config.hpp>
#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Host/ground/Errors.h"
#include "Host/ground/StandardStreams.h"
#include "Host/verbs/Arguments.h"
#include "Host/verbs/HelpText.h"

namespace TicketHost {
namespace {

constexpr const char* version = "tickethost " TICKETHOST_VERSION;

constexpr const char* description = "Runs the printer driver's device-specific module on Print Tickets.";

constexpr const char* footer =
    "Exit status: 0; 1 when a conversion threw or a passphrase doesn't match the stored text; 2 for input "
    "that can't be read or a result that can't be written, with one line on standard error that says what "
    "and why.";

// Help and version are listed here, but Arguments.h answers them.
void AddToolOptions(CLI::App& app) {
    app.set_help_flag("-h,--help", "Show this help");
    app.set_version_flag("--version", version, "Show the version of the tool");
    app.footer(footer);
    app.require_subcommand(1);
}

void AddHelpVerb(CLI::App& app) {
    CLI::App* verb =
        app.add_subcommand(helpVerb, "Tells all about a verb, or about the tool")->group("Verbs");
    verb->add_option("VERB", "The verb to tell about");
}

int Print(const std::string& text) {
    StandardOutput output;
    output.Stream() << text;
    output.Send();
    return 0;
}

// CLI11 says "Could not convert: OPTION = VALUE", where only numbers are ever converted.
std::string DescribeNoNumber(const CLI::ConversionError& error) {
    const std::string_view text = error.what();
    const std::size_t option = text.find(": "), value = text.find(" = ");
    if (option == text.npos || value == text.npos || value < option) return std::string(text);
    return std::string(text.substr(option + 2, value - option - 2)) + ": must be a number, is " +
           std::string(text.substr(value + 3));
}

// CLI11 takes the arguments last one first. The first is a verb.
void Parse(CLI::App& app, std::vector<std::string> arguments) {
    const std::string verb = arguments.at(0);
    const std::string more = " (tickethost help " + verb + " tells more)";
    std::ranges::reverse(arguments);
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::ConversionError& error) {
        throw InputError(DescribeNoNumber(error) + more);
    } catch (const CLI::ParseError& error) {
        throw InputError(error.what() + more);
    }
}

}  // namespace

Action ReadCommandLine(std::span<const AddVerb> verbs, std::span<const char* const> arguments) {
    CLI::App app(description, "tickethost");
    app.formatter(std::make_shared<HelpText>(std::min<std::size_t>(OutputWidth(), 80)));
    AddToolOptions(app);
    Action action;
    for (const AddVerb add : verbs) add(app, action);
    AddHelpVerb(app);

    const std::span<const char* const> words = arguments.subspan(std::min<std::size_t>(arguments.size(), 1));
    const std::vector<std::string> given(words.begin(), words.end());
    const Request request = LookOver(app, given);
    if (request.Version) return [] { return Print(std::string(version) + "\n"); };
    if (request.Help == nullptr) {
        Parse(app, given);
        return action;
    }
    const std::string text = request.Help->help(request.Help == &app ? "" : app.get_name());
    return [text] { return Print(text); };
}

}  // namespace TicketHost
