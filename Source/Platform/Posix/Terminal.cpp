#include "Platform/Terminal.h"

#include <signal.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace DeviceSpecificModule::Platform {
namespace {

std::error_code LastError() { return {errno, std::generic_category()}; }

constexpr int handledSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP};

// The terminal as it was and as it is now; here for the sake of the signal handler.
termios shownMode, hiddenMode;

void SetAction(int number, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    sigaction(number, &action, nullptr);
}

// Lets the signal do what it does by default: it ends the process, or stops it until it is continued.
extern "C" void ShowInputMeanwhile(int number) {
    const int error = errno;
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &shownMode);
    SetAction(number, SIG_DFL);
    raise(number);
    sigset_t own, blocked;
    sigemptyset(&own);
    sigaddset(&own, number);
    sigprocmask(SIG_UNBLOCK, &own, &blocked);  // it comes here, since a handler's own signal waits
    sigprocmask(SIG_SETMASK, &blocked, nullptr);
    SetAction(number, ShowInputMeanwhile);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &hiddenMode);
    errno = error;
}

// While it lives, the terminal doesn't show what is typed, but for the end of the line.
class HiddenInput {
public:
    explicit HiddenInput(std::error_code& error) {
        if (tcgetattr(STDIN_FILENO, &shownMode) != 0) error = LastError();
        if (error) return;
        hiddenMode = shownMode;
        hiddenMode.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        hiddenMode.c_lflag |= ECHONL;
        HandleSignals();
        if (tcsetattr(STDIN_FILENO, TCSAFLUSH, &hiddenMode) != 0) error = LastError();
        isSet_ = true;
    }
    HiddenInput(const HiddenInput&) = delete;
    HiddenInput& operator=(const HiddenInput&) = delete;
    ~HiddenInput() {
        if (!isSet_) return;
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &shownMode);  // drops the rest of a line that was too long, too
        for (std::size_t at = 0; at < previous_.size(); ++at)
            sigaction(handledSignals[at], &previous_[at], nullptr);
    }

private:
    void HandleSignals() {
        for (std::size_t at = 0; at < previous_.size(); ++at) {
            sigaction(handledSignals[at], nullptr, &previous_[at]);
            if (previous_[at].sa_handler != SIG_IGN) SetAction(handledSignals[at], ShowInputMeanwhile);
        }
    }

    std::array<struct sigaction, std::size(handledSignals)> previous_{};
    bool isSet_ = false;
};

std::size_t ReadInput(std::span<char> room, bool oneLine, std::error_code& error) {
    std::size_t count = 0;
    while (count < room.size()) {
        const ssize_t got = read(STDIN_FILENO, room.data() + count, room.size() - count);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) error = LastError();
        if (got <= 0) break;
        count += static_cast<std::size_t>(got);
        if (oneLine && room[count - 1] == '\n') break;
    }
    return count;
}

}  // namespace

std::size_t ReadHiddenInput(std::string_view prompt, std::span<char> room, std::error_code& error) {
    error.clear();
    if (isatty(STDIN_FILENO) != 1) return ReadInput(room, false, error);
    const HiddenInput hidden(error);
    if (error) return 0;
    if (write(STDERR_FILENO, prompt.data(), prompt.size()) < 0) error = LastError();
    return error ? 0 : ReadInput(room, true, error);
}

}  // namespace DeviceSpecificModule::Platform
