#include "Host/report/ItemDeeds.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace TicketHost {
namespace {

using Indices = std::vector<std::size_t>;
using Key = std::tuple<std::string, bool, std::optional<std::string>, Indices>;  // as the fields of ItemDeed
using Deeds = std::map<Key, Indices>;

void Add(Deeds& deeds, const Key& key, std::size_t call) {
    Indices& calls = deeds[key];
    if (calls.empty() || calls.back() != call) calls.push_back(call);
}

void AddEffects(const Explanation& explanation, std::vector<Deeds>& deeds) {
    for (std::size_t item = 0; item < explanation.Items.size(); ++item)
        for (const Effect& effect : explanation.Items[item].Effects) {
            const ExplainedCall& call = explanation.Calls[effect.Call];
            if (effect.Line == NoIndex)
                Add(deeds[item], {effect.Instead.value_or(""), true, {}, {}}, call.Number);
            else
                Add(deeds[item], {call.Lines[effect.Line].Text, false, effect.Instead, {}}, call.Number);
        }
}

void AddSet(const Cause& cause, const std::string& line, std::size_t call, std::vector<Deeds>& deeds) {
    for (const std::size_t item : cause.Items) {
        Indices others = cause.Items;
        std::erase(others, item);
        if (!others.empty()) Add(deeds[item], {line, false, cause.Instead, others}, call);
    }
}

std::vector<ItemDeed> InOrder(const Deeds& deeds) {
    std::vector<ItemDeed> ordered;
    for (const auto& [key, calls] : deeds) {
        const auto& [line, keepsAway, instead, others] = key;
        ordered.push_back({line, keepsAway, instead, others, calls});
    }
    std::ranges::stable_sort(ordered, {}, [](const ItemDeed& deed) { return deed.Calls.front(); });
    return ordered;
}

}  // namespace

std::vector<std::vector<ItemDeed>> DeedsOf(const Explanation& explanation) {
    std::vector<Deeds> deeds(explanation.Items.size());
    AddEffects(explanation, deeds);
    for (const ExplainedCall& call : explanation.Calls)
        for (const ExplainedLine& line : call.Lines)
            for (const Cause& cause : line.Causes) AddSet(cause, line.Text, call.Number, deeds);
    std::vector<std::vector<ItemDeed>> ordered(deeds.size());
    std::ranges::transform(deeds, ordered.begin(), InOrder);
    return ordered;
}

std::vector<std::size_t> ItemsWithoutEffect(const Explanation& explanation) {
    const std::vector<bool> withEffect = ItemsWithEffect(explanation);
    Indices items;
    for (std::size_t index = 0; index < explanation.Items.size(); ++index) {
        const SourceItem& item = explanation.Items[index];
        if (!item.Tried || withEffect[index]) continue;
        const std::size_t outer = item.Parent;
        const bool isTold = outer != NoIndex && explanation.Items[outer].Tried && !withEffect[outer];
        if (!isTold || !item.HiddenBy.empty()) items.push_back(index);
    }
    return items;
}

}  // namespace TicketHost
