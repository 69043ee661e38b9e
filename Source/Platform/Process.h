#pragma once

#include <cstddef>
#include <span>
#include <system_error>

#include "devicespecific/platform/Export.h"
#include "devicespecific/platform/PropertyBags.h"

namespace DeviceSpecificModule::Platform {

// What a program for the command line asks of its own process.

enum class StandardStream { Output, Error };

// Whether the stream goes to a terminal, and so to a person.
DEVICESPECIFIC_API bool IsTerminal(StandardStream stream);

// How many characters fit into one line of the terminal that the stream goes to; 0 when the terminal doesn't
// tell or the stream goes elsewhere.
DEVICESPECIFIC_API std::size_t GetTerminalWidth(StandardStream stream);

// The user that this process runs as.
DEVICESPECIFIC_API TokenHandle GetCallingUser();

// From here on the standard output passes bytes on as they are, line ends included, and writing to a pipe
// that nobody reads fails like any other write rather than end the process.
DEVICESPECIFIC_API void PrepareStandardOutput();

// Reads bytes of the standard input as they are into `room`, waits for the first one, and gives their number;
// 0 at its end, and when it can't be read: `error` then says why.
DEVICESPECIFIC_API std::size_t ReadStandardInput(std::span<char> room, std::error_code& error);

}  // namespace DeviceSpecificModule::Platform
