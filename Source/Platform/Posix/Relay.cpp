#include "Relay.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace DeviceSpecificModule::Platform {
namespace {

using namespace std::chrono;

[[noreturn]] void ThrowErrno() { throw std::system_error(errno, std::generic_category()); }

// Passes on what has come, at most `most` bytes; gives how many, 0 where it can't or nothing will come again.
std::size_t PassOn(int from, int to, std::size_t most, int flags) {
    char bytes[4096];
    const ssize_t count = recv(from, bytes, std::min(most, sizeof bytes), 0);
    if (count <= 0 || send(to, bytes, static_cast<std::size_t>(count), MSG_NOSIGNAL | flags) != count)
        return 0;
    return static_cast<std::size_t>(count);
}

void PassOnUntilLimits(int library, int service, RelayLimits limits) {
    pollfd ends[] = {{library, POLLIN, 0}, {service, POLLIN, 0}};
    auto silenceEnd = steady_clock::now() + limits.Silence;
    for (;;) {
        const auto left = ceil<milliseconds>(std::min(silenceEnd, limits.End) - steady_clock::now()).count();
        const int ready = left <= 0 ? 0 : poll(ends, 2, static_cast<int>(left));
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0) return;
        // The service may not hold this thread up by not reading. The library may: it reads or closes.
        if (ends[0].revents != 0 && PassOn(library, service, limits.Bytes, MSG_DONTWAIT) == 0) return;
        if (ends[1].revents == 0) continue;
        const std::size_t count = PassOn(service, library, limits.Bytes, 0);
        if (count == 0) return;
        limits.Bytes -= count;
        silenceEnd = steady_clock::now() + limits.Silence;
    }
}

void Run(int library, int service, const RelayLimits& limits) {
    // Signals are for the threads of the process itself.
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, nullptr);
    PassOnUntilLimits(library, service, limits);
    shutdown(library, SHUT_RDWR);
}

}  // namespace

Descriptor::Descriptor(int number) : number_(number) {
    if (number < 0) ThrowErrno();
}

Descriptor::~Descriptor() { close(number_); }

Relay::Pair Relay::NewPair() {
    Pair pair;
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, pair.data()) != 0) ThrowErrno();
    return pair;
}

Relay::Relay(int socket, const RelayLimits& limits) : Relay(socket, limits, NewPair()) {}

Relay::Relay(int socket, const RelayLimits& limits, const Pair& pair)
    : near_(pair[0]), far_(pair[1]), service_(fcntl(socket, F_DUPFD_CLOEXEC, 0)) {
    if (dup3(near_.Number(), socket, O_CLOEXEC) < 0) ThrowErrno();
    thread_ = std::thread(Run, far_.Number(), service_.Number(), limits);
}

Relay::~Relay() {
    shutdown(far_.Number(), SHUT_RDWR);
    thread_.join();
}

}  // namespace DeviceSpecificModule::Platform
