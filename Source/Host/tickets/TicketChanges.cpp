#include "Host/tickets/TicketChanges.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "Host/ground/Texts.h"
#include "Host/tickets/ItemTexts.h"
#include "Host/tickets/SettingsChanges.h"

namespace TicketHost {
namespace {

using Items = std::vector<TicketItem>;

std::string NameWithNamespace(const TicketItem& item) {
    return item.Space.empty() ? item.Name : "{" + item.Space + "}" + item.Local;
}

// Items of one key meet in their order. Options do so whatever their names.
using Key = std::pair<ItemKind, std::string>;

Key KeyOf(const TicketItem& item) {
    return {item.Kind, item.Kind == ItemKind::Option ? "" : NameWithNamespace(item)};
}

// Two items that meet, or one that meets none.
struct Pair {
    const TicketItem* Before = nullptr;
    const TicketItem* After = nullptr;
    std::size_t Number = 1;  // among those of its key, from 1

    const TicketItem& Any() const { return Before == nullptr ? *After : *Before; }
};

// In the order of the items before, and behind them the new ones in theirs.
std::vector<Pair> Match(const Items& before, const Items& after) {
    std::map<Key, std::vector<std::size_t>> places;
    std::vector<Pair> pairs;
    for (const TicketItem& item : before) {
        std::vector<std::size_t>& known = places[KeyOf(item)];
        known.push_back(pairs.size());
        pairs.push_back({&item, nullptr, known.size()});
    }
    std::map<Key, std::size_t> met;
    for (const TicketItem& item : after) {
        const std::size_t number = met[KeyOf(item)]++;
        const std::vector<std::size_t>& known = places[KeyOf(item)];
        if (number < known.size())
            pairs[known[number]].After = &item;
        else
            pairs.push_back({nullptr, &item, number + 1});
    }
    return pairs;
}

class Comparison {
public:
    Comparison(const TicketItem& before, const TicketItem& after, std::vector<TicketChange>& changes)
        : before_(before), after_(after), changes_(changes) {}

    void Run() {
        const std::string place = "/" + Visible(before_.Local);
        if (NameWithNamespace(before_) != NameWithNamespace(after_)) {
            auto [was, is] = ShownNames(NameWithNamespace(before_), NameWithNamespace(after_));
            changes_.push_back({ChangeKind::Changed, "the root element", std::move(was), std::move(is)});
        }
        CompareInside(before_, after_, place);
    }

private:
    void CompareInside(const TicketItem& before, const TicketItem& after, const std::string& place);
    void CompareValues(const TicketItem& before, const TicketItem& after, const std::string& place);
    void CompareDetails(const TicketItem& before, const TicketItem& after, const std::string& place);
    void CompareItems(const TicketItem& before, const TicketItem& after, const std::string& place);
    void CompareOptions(const TicketItem& before, const TicketItem& after, const std::string& subject);
    void Compare(const Pair& pair, const std::string& subject);

    const TicketItem& before_;
    const TicketItem& after_;
    std::vector<TicketChange>& changes_;
};

// White space around the elements in an element is no text of it.
std::string_view TextOf(const TicketItem& item) {
    const bool isFormat = item.Kind == ItemKind::Other && !item.Items.empty() &&
                          item.Value.find_first_not_of(" \t\r\n") == item.Value.npos;
    return isFormat ? std::string_view() : std::string_view(item.Value);
}

void Comparison::CompareValues(const TicketItem& before, const TicketItem& after, const std::string& place) {
    if (TextOf(before) == TextOf(after)) return;
    auto [was, is] = ShownValues(before, after);
    changes_.push_back({ChangeKind::Changed, place, std::move(was), std::move(is)});
}

void Comparison::CompareDetails(const TicketItem& before, const TicketItem& after, const std::string& place) {
    std::map<std::string_view, std::pair<const std::string*, const std::string*>> all;
    for (const ItemDetail& detail : before.Details) all[detail.Name].first = &detail.Value;
    for (const ItemDetail& detail : after.Details) all[detail.Name].second = &detail.Value;
    for (const auto& [name, values] : all) {
        const auto [was, is] = values;
        const std::string subject = place + " " + Visible(name);
        if (was == nullptr)
            changes_.push_back({ChangeKind::Added, subject, "", Visible(*is)});
        else if (is == nullptr)
            changes_.push_back({ChangeKind::Removed, subject, Visible(*was), ""});
        else if (*was != *is) {
            auto [shownWas, shownIs] = ShownNames(*was, *is);
            changes_.push_back({ChangeKind::Changed, subject, std::move(shownWas), std::move(shownIs)});
        }
    }
}

// The local names that stand for more than one full name.
std::set<std::string_view> FindAmbiguous(const std::vector<Pair>& pairs) {
    std::map<std::string_view, std::string> full;
    std::set<std::string_view> ambiguous;
    for (const Pair& pair : pairs) {
        for (const TicketItem* item : {pair.Before, pair.After}) {
            if (item == nullptr || item->Kind == ItemKind::Option) continue;
            const auto [found, isNew] = full.try_emplace(item->Local, NameWithNamespace(*item));
            if (!isNew && found->second != NameWithNamespace(*item)) ambiguous.insert(item->Local);
        }
    }
    return ambiguous;
}

// The name of what stands in `place`. Only what the schema knows stands in the root without a path.
std::string SubjectOf(const Pair& pair, const std::string& place, bool inRoot, bool isAmbiguous) {
    const TicketItem& item = pair.Any();
    const std::string number = pair.Number > 1 ? " #" + std::to_string(pair.Number) : "";
    if (item.Kind == ItemKind::Option) {
        const bool isClear = pair.Number == 1 && pair.Before != nullptr && pair.After != nullptr;
        return isClear ? place : place + " option" + number;
    }
    std::string name = Visible(isAmbiguous ? NameWithNamespace(item) : item.Local);
    if (item.Kind == ItemKind::Other) return place + "/" + Visible(isAmbiguous ? name : item.Name) + number;
    if (name.empty()) name = "(no name)";
    return (inRoot ? name : place + " " + name) + number;
}

void Comparison::CompareItems(const TicketItem& before, const TicketItem& after, const std::string& place) {
    const std::vector<Pair> pairs = Match(before.Items, after.Items);
    const std::set<std::string_view> ambiguous = FindAmbiguous(pairs);
    for (const Pair& pair : pairs)
        Compare(pair, SubjectOf(pair, place, &before == &before_, ambiguous.contains(pair.Any().Local)));
}

void Comparison::CompareInside(const TicketItem& before, const TicketItem& after, const std::string& place) {
    CompareValues(before, after, place);
    CompareDetails(before, after, place);
    CompareItems(before, after, place);
}

// Of different names, so that what is in one has nothing to do with what is in the other.
void Comparison::CompareOptions(const TicketItem& before, const TicketItem& after,
                                const std::string& subject) {
    std::string was = Summary(before, before_), is = Summary(after, after_);
    if (before.Local == after.Local) was = Visible(before.Name), is = Visible(after.Name);
    if (was == is) was = Visible(NameWithNamespace(before)), is = Visible(NameWithNamespace(after));
    changes_.push_back({ChangeKind::Changed, subject, std::move(was), std::move(is)});
}

void Comparison::Compare(const Pair& pair, const std::string& subject) {
    const auto [was, is, number] = pair;
    if (was == nullptr)
        changes_.push_back({ChangeKind::Added, subject, "", Summary(*is, after_)});
    else if (is == nullptr)
        changes_.push_back({ChangeKind::Removed, subject, Summary(*was, before_), ""});
    else if (NameWithNamespace(*was) == NameWithNamespace(*is))
        CompareInside(*was, *is, subject);
    else
        CompareOptions(*was, *is, subject);
}

constexpr std::size_t longestText = 120;  // characters
constexpr std::size_t longestAside = 60;

// Two texts that are long begin a little ahead of where they begin to differ.
void CutFront(std::string& before, std::string& after) {
    constexpr std::size_t kept = 40;  // bytes
    if (before.size() <= longestText && after.size() <= longestText) return;
    const auto differ = std::ranges::mismatch(before, after).in1;
    std::size_t start = static_cast<std::size_t>(differ - before.begin());
    if (start <= kept) return;
    start -= kept;
    while (start > 0 && (static_cast<unsigned char>(before[start]) & 0xC0) == 0x80) --start;
    for (std::string* text : {&before, &after}) *text = "..." + text->substr(start);
}

std::string InBrackets(const std::string& text) {
    return text.empty() ? "" : " (" + Shortened(text, longestAside) + ")";
}

}  // namespace

std::vector<TicketChange> CompareTickets(const Platform::XmlElement& before,
                                         const Platform::XmlElement& after) {
    TicketItem rootBefore = ItemOfRoot(before), rootAfter = ItemOfRoot(after);
    const std::vector<TicketChange> settings =
        TakeSettingsChanges(ReadSettings(before), rootBefore, ReadSettings(after), rootAfter);
    std::vector<TicketChange> changes;
    Comparison(rootBefore, rootAfter, changes).Run();
    changes.insert(changes.end(), settings.begin(), settings.end());
    return changes;
}

std::vector<TicketChange> CompareTickets(const Platform::WideText& before, const Platform::WideText& after) {
    if (before == after) return {};
    Platform::ParseError error;
    const auto was = Platform::ReadXml(before, error), is = Platform::ReadXml(after, error);
    if (was && is) return CompareTickets(*was, *is);
    const auto describe = [](const auto& root) { return root ? "XML" : "no XML"; };
    return {{ChangeKind::Changed, "the ticket", describe(was), describe(is)}};
}

std::string LineOf(const TicketChange& change) {
    if (change.Kind == ChangeKind::Added) return change.Subject + InBrackets(change.After) + " is new";
    if (change.Kind == ChangeKind::Removed) return change.Subject + InBrackets(change.Before) + " is gone";
    if (change.Kind == ChangeKind::Rewritten) return change.Subject + ": the same, written in another way";
    std::string before = change.Before, after = change.After;
    CutFront(before, after);
    return change.Subject + ": " + Shortened(before, longestText) + " -> " + Shortened(after, longestText);
}

}  // namespace TicketHost
