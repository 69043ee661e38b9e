#include "Host/ground/Nearest.h"

#include <algorithm>
#include <vector>

namespace TicketHost {
namespace {

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool AreAlike(char left, char right) { return LowerCase(left) == LowerCase(right); }

// How many slips make one word the other. Rows of the usual table, of which the last three are needed: a cell
// holds the slips between the beginnings of the two words that end there.
std::size_t CountSlips(std::string_view left, std::string_view right) {
    std::vector<std::size_t> beforeLast, last(right.size() + 1), row(right.size() + 1);
    for (std::size_t at = 0; at <= right.size(); ++at) last[at] = at;
    for (std::size_t i = 1; i <= left.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const std::size_t other = AreAlike(left[i - 1], right[j - 1]) ? 0 : 1;
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + other});
            if (i > 1 && j > 1 && AreAlike(left[i - 1], right[j - 2]) && AreAlike(left[i - 2], right[j - 1]))
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
        beforeLast = std::move(last);
        last = row;
    }
    return last.back();
}

// A word that is another one altogether isn't near, however short both are.
std::size_t MostSlips(std::string_view word, std::string_view name) {
    const auto [shorter, longer] = std::minmax({word.size(), name.size()});
    return shorter < 2 ? 0 : std::max<std::size_t>(longer / 3, 1);
}

}  // namespace

std::string_view FindNearest(std::string_view word, std::span<const std::string_view> names) {
    std::string_view nearest;
    std::size_t fewest = 0;
    for (const std::string_view name : names) {
        const auto [shorter, longer] = std::minmax({word.size(), name.size()});
        const std::size_t most = MostSlips(word, name);
        if (longer - shorter > most) continue;  // so that long words aren't compared
        const std::size_t slips = CountSlips(word, name);
        if (slips > most || (!nearest.empty() && slips >= fewest)) continue;
        nearest = name;
        fewest = slips;
    }
    return nearest;
}

std::string DidYouMean(std::string_view word, std::span<const std::string_view> names) {
    const std::string_view nearest = FindNearest(word, names);
    return nearest.empty() ? "" : "; did you mean " + std::string(nearest) + "?";
}

}  // namespace TicketHost
