#pragma once

#include <string>
#include <vector>

namespace TicketHost {

// A line that went ('-') or came ('+').
struct LineEdit {
    char Mark;
    std::string Line;

    bool operator==(const LineEdit&) const = default;
};

// The fewest changes that make one list of lines the other, in order, what went ahead of what came. Past
// 4 million pairs of lines, without those that both share at their ends, all goes and all comes: finding less
// would take long.
std::vector<LineEdit> DiffLines(const std::vector<std::string>& before,
                                const std::vector<std::string>& after);

}  // namespace TicketHost
