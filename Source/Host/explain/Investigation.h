#pragma once

#include <functional>
#include <map>
#include <optional>

#include "Host/explain/Experiment.h"

namespace TicketHost {

// Where a line of the unchanged job stands: its call and its place among that call's lines.
struct LinePlace {
    std::size_t Call = 0, Line = 0;
};

// What is known of a job while it is explained.
class Investigation {
public:
    Investigation(const Conversions& conversions, const std::vector<SourceItem>& items, std::size_t calls,
                  const Progress& progress);

    // What is other without these items in the first so many calls; asked again, it is remembered.
    const Changes& Try(const ItemSet& without, std::size_t calls);
    // The change of a line without them, null where it stays as it is. `calls` must be enough for its call.
    const LineChange* ChangeOf(const ItemSet& without, LinePlace place, std::size_t calls);

    // A part of `all` for which a test holds, as it must for `all`, and of which none can be left out. Where
    // the test holds as well for what stands in one of them, that is there instead of it.
    ItemSet Smallest(const ItemSet& all, const std::function<bool(const ItemSet&)>& holds) const;

    const std::vector<SourceItem>& Items;
    const std::vector<ItemSet> Inner;             // what stands right in each item
    std::vector<std::optional<Changes>> Results;  // of each item taken away by itself; absent: it wasn't
    const Experiment Trials;

private:
    struct Known {
        std::size_t Calls = 0;
        Changes Found;
    };
    std::map<ItemSet, Known> known_;
};

// The change of a line among a call's changes; null: there is none.
const LineChange* FindChange(const Changes& changes, LinePlace place);

// Whether `item` stands in `outer`, at whatever depth.
bool StandsIn(const std::vector<SourceItem>& items, std::size_t item, std::size_t outer);

// The item itself where it stands in none.
std::size_t OutermostOf(const std::vector<SourceItem>& items, std::size_t item);

}  // namespace TicketHost
