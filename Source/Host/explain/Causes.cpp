#include "Host/explain/Causes.h"

#include <algorithm>

namespace TicketHost {
namespace {

std::optional<std::string> Shown(const LineChange& change) {
    if (!change.Instead) return std::nullopt;
    return ShownLine(change.Kind, *change.Instead);
}

class CauseFinder {
public:
    CauseFinder(Investigation& found, const std::function<bool(LinePlace)>& isAsked, Explanation& explanation)
        : found_(found), items_(found.Items), explanation_(explanation) {
        for (std::size_t call = 0; call < explanation.Calls.size(); ++call)
            for (std::size_t line = 0; line < explanation.Calls[call].Lines.size(); ++line)
                if (isAsked({call, line})) asked_.push_back({call, line});
        for (std::size_t item = 0; item < items_.size(); ++item)
            if (items_[item].Parent == NoIndex) outermost_.push_back(item);
    }

    void NameThoseAlone();
    void NameSubjects();
    void OpenOuterOnes();
    void NameSets();

private:
    ExplainedLine& At(LinePlace place) { return explanation_.Calls[place.Call].Lines[place.Line]; }
    void KeepInnermost(std::vector<Cause>& causes) const;
    void Open(LinePlace place, Cause& cause);
    void NameSet(LinePlace place, const ItemSet& among);
    Cause CauseOf(const ItemSet& items, LinePlace place);
    ItemSet Without(const ItemSet& some) const;
    std::size_t CallCount() const { return found_.Trials.CallCount(); }

    Investigation& found_;
    const std::vector<SourceItem>& items_;
    Explanation& explanation_;
    std::vector<LinePlace> asked_;
    ItemSet outermost_;
    std::vector<ItemSet> sets_;  // that turned out to be causes
};

// Items come behind those that they stand in.
void CauseFinder::KeepInnermost(std::vector<Cause>& causes) const {
    std::vector<Cause> kept;
    for (auto cause = causes.begin(); cause != causes.end(); ++cause)
        if (std::none_of(cause + 1, causes.end(), [&](const Cause& inner) {
                return StandsIn(items_, inner.Items[0], cause->Items[0]);
            }))
            kept.push_back(std::move(*cause));
    causes = std::move(kept);
}

void CauseFinder::NameThoseAlone() {
    for (std::size_t item = 0; item < items_.size(); ++item) {
        if (!found_.Results[item]) continue;
        for (const auto& [call, changes] : *found_.Results[item])
            for (const LineChange& change : changes)
                if (change.Line != NoIndex) At({call, change.Line}).Causes.push_back({{item}, Shown(change)});
    }
    for (const LinePlace place : asked_) KeepInnermost(At(place).Causes);
}

// What a ticket says was edited has no prefix, and behind its name what stands in it.
void CauseFinder::NameSubjects() {
    std::map<std::pair<std::size_t, std::string>, ItemSet> named;  // by ticket and the outermost one's name
    for (std::size_t item = 0; item < items_.size(); ++item) {
        if (items_[item].Ticket == NoIndex) continue;
        const std::string& name = items_[OutermostOf(items_, item)].Name;
        named[{items_[item].Ticket, name.substr(name.find(':') + 1)}].push_back(item);
    }
    for (const LinePlace place : asked_) {
        ExplainedLine& line = At(place);
        if (line.Kind != LineKind::Ticket) continue;
        const std::string& key = found_.Trials.Lines()[place.Call][place.Line].Key;
        const std::string name = key.substr(0, key.find(' '));
        line.Subjects = named[{explanation_.Calls[place.Call].TicketIndex, name.substr(name.find(':') + 1)}];
        std::erase_if(line.Causes, [&](const Cause& cause) {
            return std::ranges::binary_search(line.Subjects, cause.Items[0]);
        });
    }
}

Cause CauseFinder::CauseOf(const ItemSet& items, LinePlace place) {
    const LineChange* change = found_.ChangeOf(items, place, place.Call + 1);
    return {items, change == nullptr ? std::nullopt : Shown(*change)};
}

// What stands in the item may cause the line together where none of it does alone.
void CauseFinder::Open(LinePlace place, Cause& cause) {
    const ItemSet& inner = found_.Inner[cause.Items[0]];
    const auto goes = [&](const ItemSet& items) {
        return found_.ChangeOf(items, place, place.Call + 1) != nullptr;
    };
    if (inner.empty() || found_.ChangeOf(inner, place, CallCount()) == nullptr) return;
    cause = CauseOf(found_.Smallest(inner, goes), place);
}

void CauseFinder::OpenOuterOnes() {
    for (const LinePlace place : asked_)
        for (Cause& cause : At(place).Causes) Open(place, cause);
}

ItemSet CauseFinder::Without(const ItemSet& some) const {
    ItemSet rest;
    std::ranges::set_difference(outermost_, some, std::back_inserter(rest));
    return rest;
}

// Sets that were found before are tried first, since many lines have the same causes.
void CauseFinder::NameSet(LinePlace place, const ItemSet& among) {
    const auto goes = [&](const ItemSet& items) {
        return found_.ChangeOf(items, place, place.Call + 1) != nullptr;
    };
    const ItemSet& subjects = At(place).Subjects;
    for (const ItemSet& set : sets_) {
        const auto isSubject = [&](std::size_t item) { return std::ranges::binary_search(subjects, item); };
        if (std::ranges::any_of(set, isSubject) || found_.ChangeOf(set, place, CallCount()) == nullptr)
            continue;
        At(place).Causes.push_back(CauseOf(set.size() > 2 ? found_.Smallest(set, goes) : set, place));
        return;
    }
    sets_.push_back(found_.Smallest(among, goes));
    At(place).Causes.push_back(CauseOf(sets_.back(), place));
}

void CauseFinder::NameSets() {
    ItemSet subjects;
    for (const LinePlace place : asked_)
        subjects.insert(subjects.end(), At(place).Subjects.begin(), At(place).Subjects.end());
    std::ranges::sort(subjects);
    subjects.erase(std::unique(subjects.begin(), subjects.end()), subjects.end());
    const ItemSet others = Without(subjects);
    for (const LinePlace place : asked_) {
        if (!At(place).Causes.empty()) continue;
        const ItemSet& among = At(place).Subjects.empty() ? outermost_ : others;
        if (found_.ChangeOf(among, place, CallCount()) != nullptr) NameSet(place, among);
    }
}

}  // namespace

void FindCauses(Investigation& found, const std::function<bool(LinePlace)>& isAsked, bool withSets,
                Explanation& explanation) {
    CauseFinder finder(found, isAsked, explanation);
    finder.NameThoseAlone();
    finder.NameSubjects();
    finder.OpenOuterOnes();
    if (withSets) finder.NameSets();
}

}  // namespace TicketHost
