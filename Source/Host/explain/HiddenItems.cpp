#include "Host/explain/HiddenItems.h"

#include <algorithm>

namespace TicketHost {
namespace {

// Whether the change is there in another trial as well.
bool IsThere(const Changes& changes, std::size_t call, const LineChange& change) {
    const auto found = changes.find(call);
    return found != changes.end() && std::ranges::find(found->second, change) != found->second.end();
}

ItemSet With(ItemSet items, std::size_t item) {
    items.insert(std::ranges::lower_bound(items, item), item);
    return items;
}

class Search {
public:
    Search(Investigation& investigation, const std::vector<bool>& haveEffect, std::vector<SourceItem>& items)
        : investigation_(investigation), items_(items) {
        for (std::size_t item = 0; item < items.size(); ++item)
            if (!haveEffect[item] && (items[item].Parent == NoIndex || haveEffect[items[item].Parent]))
                idle_.push_back(item);
    }

    void BehindWhatGivesWay();
    void AmongNamesakes();

private:
    void Behind(std::size_t hider, const ItemSet& idle, std::size_t call, const LineChange& change);
    ItemSet Namesakes(std::size_t item) const;
    bool AreOther(const ItemSet& without, const ItemSet& also) const;

    Investigation& investigation_;
    std::vector<SourceItem>& items_;
    ItemSet idle_;  // the outermost items without effect
};

// A change that isn't there the second time has changed by itself, and says nothing.
void Search::Behind(std::size_t hider, const ItemSet& idle, std::size_t call, const LineChange& change) {
    const auto goes = [&](const ItemSet& items) {
        return !IsThere(investigation_.Try(With(items, hider), call + 1), call, change);
    };
    if (idle.empty() || !goes(idle) || !IsThere(investigation_.Try({hider}, call + 1), call, change)) return;
    for (const std::size_t item : investigation_.Smallest(idle, goes)) {
        std::vector<std::size_t>& hiders = items_[item].HiddenBy;
        if (std::ranges::find(hiders, hider) == hiders.end()) hiders.push_back(hider);
    }
}

void Search::BehindWhatGivesWay() {
    for (std::size_t hider = 0; hider < items_.size(); ++hider) {
        ItemSet idle;
        std::ranges::copy_if(idle_, std::back_inserter(idle),
                             [&](std::size_t item) { return !StandsIn(items_, item, hider); });
        // The last call first, so that one trial of all that is idle does for the others, too.
        const std::vector<Effect>& effects = items_[hider].Effects;
        for (auto effect = effects.rbegin(); effect != effects.rend(); ++effect) {
            if (!effect->Instead || effect->Kind == LineKind::Error) continue;
            for (const LineChange& change : investigation_.Results[hider]->at(effect->Call))
                if (change.Line == effect->Line && change.Kind == effect->Kind && change.Instead)
                    Behind(hider, idle, effect->Call, change);
        }
    }
}

ItemSet Search::Namesakes(std::size_t item) const {
    ItemSet namesakes;
    const SourceItem& named = items_[item];
    for (std::size_t at = 0; at < items_.size(); ++at) {
        const SourceItem& other = items_[at];
        const bool isNear = named.Kind == SourceKind::Setting
                                ? other.Ticket != NoIndex
                                : other.Ticket == named.Ticket && other.Parent == named.Parent;
        if (at != item && other.Kind == named.Kind && other.Name == named.Name && isNear)
            namesakes.push_back(at);
    }
    return namesakes;
}

// Where the time changes what the two trials say, they are made anew.
bool Search::AreOther(const ItemSet& without, const ItemSet& also) const {
    const Experiment& trials = investigation_.Trials;
    for (int attempt = 0; attempt < 4; ++attempt) {
        const Changes before = trials.Try(without, trials.CallCount());
        const Changes changes = trials.Try(also, trials.CallCount());
        if (changes == before) return false;
        if (before == trials.Try(without, trials.CallCount())) return true;
    }
    return false;
}

void Search::AmongNamesakes() {
    for (const std::size_t item : idle_) {
        if (!items_[item].HiddenBy.empty() || items_[item].Ticket == NoIndex) continue;
        const ItemSet namesakes = Namesakes(item);
        if (!namesakes.empty() && AreOther(namesakes, With(namesakes, item)))
            items_[item].HiddenBy = namesakes;
    }
}

}  // namespace

void FindHiddenItems(Investigation& investigation, const std::vector<bool>& haveEffect,
                     std::vector<SourceItem>& items) {
    Search search(investigation, haveEffect, items);
    search.BehindWhatGivesWay();
    search.AmongNamesakes();
}

}  // namespace TicketHost
