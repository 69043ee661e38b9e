#pragma once

#include <span>

#include "Host/verbs/Verbs.h"

namespace TicketHost {

using AddVerb = void (*)(CLI::App& app, Action& action);

// Reads the command line of a tool with these verbs and "help"; `arguments` begin with the program's name.
// Gives what is to be done, which may be to show help or the version. Throws InputError, whose line names the
// argument at fault.
Action ReadCommandLine(std::span<const AddVerb> verbs, std::span<const char* const> arguments);

}  // namespace TicketHost
