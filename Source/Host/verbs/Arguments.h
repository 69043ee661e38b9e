#pragma once

#include <CLI/App.hpp>
#include <span>
#include <string>

namespace TicketHost {

inline constexpr const char* helpVerb = "help";

// What the arguments ask for in place of a verb's work.
struct Request {
    const CLI::App* Help = nullptr;  // the verb, or the tool, to tell all about
    bool Version = false;
};

// Looks over the arguments before CLI11 reads them, which takes the neighbour of an option without a value
// for its value and names what it couldn't use in the end rather than what was at fault. Throws InputError
// for the first of the faults; a verb's faults don't count where help is asked for. What is missing, and
// values that an option doesn't take, CLI11 finds.
Request LookOver(const CLI::App& tool, std::span<const std::string> arguments);

}  // namespace TicketHost
