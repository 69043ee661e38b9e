#include "Platform/Process.h"

#include <signal.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>

#include "devicespecific/platform/Identities.h"

namespace DeviceSpecificModule::Platform {

namespace {

int FileOf(StandardStream stream) { return stream == StandardStream::Output ? STDOUT_FILENO : STDERR_FILENO; }

}  // namespace

bool IsTerminal(StandardStream stream) { return isatty(FileOf(stream)) == 1; }

std::size_t GetTerminalWidth(StandardStream stream) {
    winsize size{};
    return ioctl(FileOf(stream), TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
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

}  // namespace DeviceSpecificModule::Platform
