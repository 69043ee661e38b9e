#include "Platform/Process.h"

#include <signal.h>
#include <unistd.h>

#include "Platform/Identities.h"

namespace Platform {

bool IsTerminal(StandardStream stream) {
    return isatty(stream == StandardStream::Output ? STDOUT_FILENO : STDERR_FILENO) == 1;
}

TokenHandle GetCallingUser() { return GetTokenOfUser(getuid()); }

// Bytes always pass as they are here.
void PrepareStandardOutput() { signal(SIGPIPE, SIG_IGN); }

}  // namespace Platform
