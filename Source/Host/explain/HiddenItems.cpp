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
    Search(Investigation& investigation, Explanation& explanation)
        : investigation_(investigation),
          haveEffect_(ItemsWithEffect(explanation)),
          calls_(explanation.Calls),
          items_(explanation.Items) {
        for (std::size_t item = 0; item < items_.size(); ++item)
            if (!haveEffect_[item] && (items_[item].Parent == NoIndex || haveEffect_[items_[item].Parent]))
                idle_.push_back(item);
    }

    void BehindWhatGivesWay();
    void AmongNamesakes();

private:
    ItemSet IdleFor(std::size_t hider, const Effect& effect) const;
    void Behind(std::size_t hider, const ItemSet& idle, std::size_t call, const LineChange& change);
    ItemSet Namesakes(std::size_t item) const;
    bool AreOther(const ItemSet& without, const ItemSet& also) const;

    Investigation& investigation_;
    const std::vector<bool> haveEffect_;
    const std::vector<ExplainedCall>& calls_;
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

// The items that may be behind what comes instead of a line. A ticket's own may not for an edit of that
// ticket: without what was edited there is nothing to edit.
ItemSet Search::IdleFor(std::size_t hider, const Effect& effect) const {
    ItemSet idle;
    std::ranges::copy_if(idle_, std::back_inserter(idle), [&](std::size_t item) {
        const bool isEdited =
            effect.Kind == LineKind::Ticket && items_[item].Ticket == calls_[effect.Call].TicketIndex;
        return !StandsIn(items_, item, hider) && !isEdited;
    });
    return idle;
}

// The last call first, so that one trial of all that is idle does for the others, too.
void Search::BehindWhatGivesWay() {
    for (std::size_t hider = 0; hider < items_.size(); ++hider) {
        const std::vector<Effect>& effects = items_[hider].Effects;
        for (auto effect = effects.rbegin(); effect != effects.rend(); ++effect) {
            if (!effect->Instead || effect->Kind == LineKind::Error) continue;
            const ItemSet idle = IdleFor(hider, *effect);
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
    for (std::size_t item = 0; item < items_.size(); ++item) {
        if (haveEffect_[item] || !items_[item].HiddenBy.empty() || items_[item].Ticket == NoIndex) continue;
        const ItemSet namesakes = Namesakes(item);
        if (!namesakes.empty() && AreOther(namesakes, With(namesakes, item)))
            items_[item].HiddenBy = namesakes;
    }
}

}  // namespace

void FindHiddenItems(Investigation& investigation, Explanation& explanation) {
    Search search(investigation, explanation);
    search.BehindWhatGivesWay();
    search.AmongNamesakes();
}

}  // namespace TicketHost
