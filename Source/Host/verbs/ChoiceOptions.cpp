#include "Host/verbs/ChoiceOptions.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "Host/ground/Nearest.h"
#include "Host/ground/Platform.h"
#include "Platform/Process.h"

namespace TicketHost {
namespace {

// "a", "a or b", "a, b or c".
std::string ListOf(const std::vector<std::string_view>& choices) {
    std::string list;
    for (std::size_t at = 0; at < choices.size(); ++at) {
        if (at > 0) list += at + 1 == choices.size() ? " or " : ", ";
        list += choices[at];
    }
    return list;
}

}  // namespace

CLI::Option* AddChoice(CLI::App& verb, const char* option, const char* valueName, std::string& value,
                       std::initializer_list<std::string_view> choices, const std::string& help) {
    const std::vector<std::string_view> known(choices);
    const auto check = [known](const std::string& given) -> std::string {
        if (std::ranges::find(known, given) != known.end()) return "";
        return "must be " + ListOf(known) + ", is " + given + DidYouMean(given, known);
    };
    return verb.add_option(option, value, help)->check(check)->type_name(valueName);
}

void AddColor(CLI::App& verb, std::string& when) {
    AddChoice(verb, "--color", "WHEN", when, {"auto", "always", "never"},
              "Colour the text: auto, on a terminal, unless NO_COLOR is set (default); always; never");
}

bool WantsColor(std::string_view when) {
    if (when != "auto") return when == "always";
    const char* refused = std::getenv("NO_COLOR");
    return (refused == nullptr || *refused == '\0') && Platform::IsTerminal(Platform::StandardStream::Output);
}

}  // namespace TicketHost
