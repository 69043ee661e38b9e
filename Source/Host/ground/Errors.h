#pragma once

#include <stdexcept>
#include <string>

namespace TicketHost {

// Input that can't be read or makes no sense, the command line included. what() is the whole line for the
// user: "file: place: cause", as far as there is a file and a place.
class InputError : public std::runtime_error {
public:
    explicit InputError(const std::string& line) : std::runtime_error(line) {}
    InputError(const std::string& file, const std::string& cause) : InputError(file + ": " + cause) {}
    InputError(const std::string& file, const std::string& place, const std::string& cause)
        : InputError(place.empty() ? file : file + ": " + place, cause) {}
};

// A result that can't be written. what() names the file, or the standard output, and the cause.
class OutputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The standard output is a pipe whose reader has gone. No reason to complain: the tool ends without a word.
class NobodyReads : public OutputError {
public:
    NobodyReads() : OutputError("standard output: nobody reads it any more") {}
};

}  // namespace TicketHost
