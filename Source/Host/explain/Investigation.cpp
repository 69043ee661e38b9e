#include "Host/explain/Investigation.h"

#include <algorithm>

#include "Host/explain/Minimize.h"

namespace TicketHost {
namespace {

std::vector<ItemSet> InnerOf(const std::vector<SourceItem>& items) {
    std::vector<ItemSet> inner(items.size());
    for (std::size_t item = 0; item < items.size(); ++item)
        if (items[item].Parent != NoIndex) inner[items[item].Parent].push_back(item);
    return inner;
}

// The set with what stands in one of its items instead of that item.
ItemSet Opened(const ItemSet& set, std::size_t item, const ItemSet& inner) {
    ItemSet opened = inner;
    std::ranges::copy_if(set, std::back_inserter(opened), [item](std::size_t at) { return at != item; });
    std::ranges::sort(opened);
    return opened;
}

}  // namespace

Investigation::Investigation(const Conversions& conversions, const std::vector<SourceItem>& items,
                             std::size_t calls, const Progress& progress)
    : Items(items), Inner(InnerOf(items)), Results(items.size()), Trials(conversions, calls, progress) {}

const Changes& Investigation::Try(const ItemSet& without, std::size_t calls) {
    Known& known = known_[without];
    if (known.Calls < calls) known = {calls, Trials.Try(without, calls)};
    return known.Found;
}

const LineChange* Investigation::ChangeOf(const ItemSet& without, LinePlace place, std::size_t calls) {
    return FindChange(Try(without, calls), place);
}

ItemSet Investigation::Smallest(const ItemSet& all, const std::function<bool(const ItemSet&)>& holds) const {
    ItemSet smallest = Minimize(all, holds);
    for (std::size_t at = 0; at < smallest.size();) {
        const ItemSet& inner = Inner[smallest[at]];
        const ItemSet opened = Opened(smallest, smallest[at], inner);
        if (inner.empty() || !holds(opened)) {
            ++at;
            continue;
        }
        smallest = Minimize(opened, holds);
        at = 0;
    }
    return smallest;
}

const LineChange* FindChange(const Changes& changes, LinePlace place) {
    const auto call = changes.find(place.Call);
    if (call == changes.end()) return nullptr;
    const auto change = std::ranges::find(call->second, place.Line, &LineChange::Line);
    return change == call->second.end() ? nullptr : &*change;
}

bool StandsIn(const std::vector<SourceItem>& items, std::size_t item, std::size_t outer) {
    for (std::size_t at = items[item].Parent; at != NoIndex; at = items[at].Parent)
        if (at == outer) return true;
    return false;
}

std::size_t OutermostOf(const std::vector<SourceItem>& items, std::size_t item) {
    while (items[item].Parent != NoIndex) item = items[item].Parent;
    return item;
}

}  // namespace TicketHost
