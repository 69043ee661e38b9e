#include "Host/capabilities/Capabilities.h"
#include "Host/ground/StandardStreams.h"
#include "Host/verbs/Verbs.h"

namespace TicketHost {
namespace {

int PrintCapabilities() {
    StandardOutput output;
    output.Stream() << Platform::WriteXml(DescribeDevice());
    output.Send();
    return 0;
}

}  // namespace

void AddCapabilitiesVerb(CLI::App& app, Action& action) {
    CLI::App* verb =
        app.add_subcommand("capabilities", "Describes the device to editors of tickets, as PrintCapabilities")
            ->group("Verbs");
    verb->footer(
        "Prints a PrintCapabilities document of the published Print Schema: the features that the device\n"
        "knows, each with its options, and the parameters that it reads. An option without a command is\n"
        "in it too; tickethost check notes such a one in a ticket. The limits of a custom size are what\n"
        "a conversion can take, in micrometres, not what the device can feed. Settings, and features\n"
        "whose options aren't known, aren't in it.\n"
        "\n"
        "  tickethost capabilities >device.xml");
    verb->callback([&action] { action = PrintCapabilities; });
}

}  // namespace TicketHost
