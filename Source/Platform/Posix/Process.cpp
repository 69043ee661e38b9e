#include "Platform/Process.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>

#include "Platform/Identities.h"

namespace Platform {

bool IsTerminal(StandardStream stream) {
    return isatty(stream == StandardStream::Output ? STDOUT_FILENO : STDERR_FILENO) == 1;
}

TokenHandle GetCallingUser() { return GetTokenOfUser(getuid()); }

// Bytes always pass as they are here.
void PrepareStandardOutput() { signal(SIGPIPE, SIG_IGN); }

std::size_t ReadStandardInput(std::span<char> room, std::error_code& error) {
    for (;;) {
        const ssize_t count = read(STDIN_FILENO, room.data(), room.size());
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno == EINTR) continue;
        error.assign(errno, std::generic_category());
        return 0;
    }
}

}  // namespace Platform
