#pragma once

#include "Platform/Export.h"
#include "Platform/PropertyBags.h"

namespace Platform {

// What a program for the command line asks of its own process.

enum class StandardStream { Output, Error };

// Whether the stream goes to a terminal, and so to a person.
PLATFORM_API bool IsTerminal(StandardStream stream);

// The user that this process runs as.
PLATFORM_API TokenHandle GetCallingUser();

// From here on the standard output passes bytes on as they are, line ends included, and writing to a pipe
// that nobody reads fails like any other write rather than end the process.
PLATFORM_API void PrepareStandardOutput();

}  // namespace Platform
