#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <exception>

#include "Host/ground/Errors.h"
#include "Host/ground/StandardStreams.h"
#include "Host/verbs/Verbs.h"
#include "Platform/Process.h"

namespace TicketHost {
namespace {

constexpr int inputStatus = 2;

constexpr void (*verbs[])(CLI::App& app, Action& action) = {AddConvertVerb, AddTablesVerb, AddPassphraseVerb};

constexpr const char* description = "Runs the printer driver's device-specific module on Print Tickets.";

constexpr const char* footer =
    "Exit status: 0; 1 when a conversion threw or a passphrase doesn't match the stored text; 2 for input\n"
    "that can't be read or a result that can't be written, with one line on standard error that says what\n"
    "and why. \"tickethost VERB --help\" tells all about a verb.";

int Run(int argumentCount, const char* const* arguments) {
    CLI::App app(description, "tickethost");
    app.require_subcommand(1);
    app.get_formatter()->label("SUBCOMMAND", "VERB");
    app.footer(footer);
    Action action;
    for (const auto add : verbs) add(app, action);
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::Success& help) {
        StandardOutput output;
        app.exit(help, output.Stream());
        output.Send();
        return 0;
    } catch (const CLI::ParseError& error) {
        throw InputError(std::string(error.what()) + " (tickethost --help tells more)");
    }
    return action();
}

}  // namespace
}  // namespace TicketHost

using namespace TicketHost;

int main(int argumentCount, char** arguments) {
    Platform::PrepareStandardOutput();
    try {
        return Run(argumentCount, arguments);
    } catch (const NobodyReads&) {
        return inputStatus;
    } catch (const std::exception& error) {
        WriteErrorLine(error.what());
        return inputStatus;
    }
}
