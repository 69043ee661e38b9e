#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <thread>

namespace DeviceSpecificModule::Platform {

// An open file of the process's, closed at the end.
class Descriptor {
public:
    // Throws std::system_error with errno for a number below 0.
    explicit Descriptor(int number);
    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }

private:
    const int number_;
};

// What a service may take up: the time between two of its bytes, the time at which all ends, the bytes that
// it sends.
struct RelayLimits {
    std::chrono::milliseconds Silence;
    std::chrono::steady_clock::time_point End;
    std::size_t Bytes;
};

// Stands between a library and the service at the other end of the library's connected socket, and passes on
// what they say until the service goes beyond a limit; then the library finds its connection closed, whatever
// it was waiting for. It needs a thread of its own because such a library reads on within one call for as
// long as bytes come.
class Relay {
public:
    // The number `socket` stays the library's, but leads to the relay from now on. Throws std::system_error
    // when the system has no more threads or files; then the library's connection is of no use.
    Relay(int socket, const RelayLimits& limits);
    ~Relay();
    Relay(const Relay&) = delete;
    Relay& operator=(const Relay&) = delete;

private:
    using Pair = std::array<int, 2>;
    Relay(int socket, const RelayLimits& limits, const Pair& pair);
    static Pair NewPair();

    const Descriptor near_, far_, service_;
    std::thread thread_;
};

}  // namespace DeviceSpecificModule::Platform
