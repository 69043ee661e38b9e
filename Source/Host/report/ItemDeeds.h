#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Host/explain/Explanation.h"

namespace TicketHost {

// Something that an item did.
struct ItemDeed {
    std::string Line;
    bool KeepsAway = false;              // the line comes only without the item
    std::optional<std::string> Instead;  // what stands there without it
    std::vector<std::size_t> Others;     // indices of the items without which it wouldn't do it
    std::vector<std::size_t> Calls;      // the numbers of those in which it did it, growing
};

// What each item of an explanation did, by its index, ordered by the first call. What it did alike in several
// calls is one.
std::vector<std::vector<ItemDeed>> DeedsOf(const Explanation& explanation);

// The items without effect that are worth a word. What stands in one of them has none either, and is told of
// only where another hides it.
std::vector<std::size_t> ItemsWithoutEffect(const Explanation& explanation);

}  // namespace TicketHost
