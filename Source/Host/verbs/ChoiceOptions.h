#pragma once

#include <CLI/App.hpp>
#include <initializer_list>
#include <string>
#include <string_view>

namespace TicketHost {

// An option whose value is one of a few words, which `help` tells about. Another word is refused, with the
// nearest of them. `value` holds the default before the command line is read, and must live until then.
CLI::Option* AddChoice(CLI::App& verb, const char* option, const char* valueName, std::string& value,
                       std::initializer_list<std::string_view> choices, const std::string& help);

// --color auto|always|never, for a verb with coloured text.
void AddColor(CLI::App& verb, std::string& when);

// Whether the standard output shall be coloured: for "auto" if it is a terminal and the environment doesn't
// refuse colours by NO_COLOR.
bool WantsColor(std::string_view when);

}  // namespace TicketHost
