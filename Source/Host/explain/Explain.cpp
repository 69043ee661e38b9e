#include "Host/explain/Explain.h"

#include <algorithm>
#include <map>

#include "Host/explain/Causes.h"
#include "Host/explain/HiddenItems.h"
#include "Host/explain/Investigation.h"
#include "Host/explain/Variants.h"
#include "Host/ground/Errors.h"
#include "Host/ground/Nearest.h"
#include "Platform/KeptAnswers.h"
#include "devicespecific/DeviceSpecificModule.h"

namespace TicketHost {
namespace {

std::string_view WithoutPrefix(std::string_view name) { return name.substr(name.find(':') + 1); }

class Explainer {
public:
    Explainer(const Conversions& conversions, const Question& question, const Progress& progress,
              Explanation& explanation)
        : question_(question),
          explanation_(explanation),
          items_(explanation.Items),
          found_(conversions, items_, question.Call.value_or(explanation.Calls.size()), progress) {}

    void Explain();

private:
    void ListLines();
    bool IsAsked(LinePlace place) const;
    bool IsAsked(std::size_t call, const LineChange& change) const;
    std::vector<bool> AskedItems() const;
    bool Waits(std::size_t item) const;
    void TryEach(ItemSet items);
    void TryItems(const std::vector<bool>& asked);
    bool DoAllSomething(const std::vector<bool>& asked) const;
    bool IsDoneInside(std::size_t item, std::size_t call, const LineChange& change) const;
    void DescribeEffects();
    bool SaysSomething(std::size_t item) const;
    bool IsKept(LinePlace place, const std::vector<bool>& asked) const;
    void Narrow(const std::vector<bool>& asked);

    const Question& question_;
    Explanation& explanation_;
    std::vector<SourceItem>& items_;
    Investigation found_;
};

void Explainer::ListLines() {
    const auto& lines = found_.Trials.Lines();
    explanation_.Calls.resize(lines.size());
    for (std::size_t call = 0; call < lines.size(); ++call)
        for (const OutcomeLine& line : lines[call])
            explanation_.Calls[call].Lines.push_back({line.Kind, ShownLine(line.Kind, line.Text), {}, {}});
}

bool Explainer::IsAsked(LinePlace place) const {
    if (question_.Call && *question_.Call != place.Call + 1) return false;
    const std::string& text = explanation_.Calls[place.Call].Lines[place.Line].Text;
    return !question_.Line || text.find(*question_.Line) != text.npos;
}

// By the line, or by what stands there or comes instead.
bool Explainer::IsAsked(std::size_t call, const LineChange& change) const {
    if (question_.Call && *question_.Call != call + 1) return false;
    if (change.Line != NoIndex && IsAsked({call, change.Line})) return true;
    if (!change.Instead) return !question_.Line;
    return !question_.Line ||
           ShownLine(change.Kind, *change.Instead).find(*question_.Line) != std::string::npos;
}

// What stands in an item that is asked for is asked for, too.
std::vector<bool> Explainer::AskedItems() const {
    std::vector<bool> asked(items_.size(), !question_.Item);
    if (!question_.Item) return asked;
    for (std::size_t at = 0; at < items_.size(); ++at) {
        const SourceItem& item = items_[at];
        asked[at] = item.Name == *question_.Item || WithoutPrefix(item.Name) == *question_.Item ||
                    (item.Parent != NoIndex && asked[item.Parent]);
    }
    if (std::ranges::find(asked, true) != asked.end()) return asked;
    std::vector<std::string_view> names;
    for (const SourceItem& item : items_) names.push_back(WithoutPrefix(item.Name));
    throw InputError(explanation_.Job,
                     "nothing in it is called " + *question_.Item + DidYouMean(*question_.Item, names));
}

void Explainer::TryEach(ItemSet items) {
    std::erase_if(items, [&](std::size_t item) {
        return found_.Results[item] || items_[item].Call > found_.Trials.CallCount();
    });
    std::vector<ItemSet> sets;
    for (const std::size_t item : items) sets.push_back({item});
    std::vector<Changes> changes = found_.Trials.TryAll(sets);
    for (std::size_t at = 0; at < items.size(); ++at) found_.Results[items[at]] = std::move(changes[at]);
}

// Whether it stands in a series of a ticket that serves no call at job level.
bool Explainer::Waits(std::size_t item) const {
    const std::size_t outermost = OutermostOf(items_, item);
    return outermost != item && items_[outermost].Kind == SourceKind::Series &&
           std::ranges::none_of(explanation_.Calls, [&](const ExplainedCall& call) {
               return call.TicketIndex == items_[item].Ticket && call.Level == DeviceSpecificModule::JobLevel;
           });
}

void Explainer::TryItems(const std::vector<bool>& asked) {
    ItemSet now, later, series;
    for (std::size_t item = 0; item < items_.size(); ++item) {
        if (!asked[item]) continue;
        (Waits(item) ? later : now).push_back(item);
        if (Waits(item)) series.push_back(OutermostOf(items_, item));
    }
    now.insert(now.end(), series.begin(), series.end());
    std::ranges::sort(now);
    now.erase(std::unique(now.begin(), now.end()), now.end());
    TryEach(now);
    std::erase_if(later, [&](std::size_t item) {
        const auto& result = found_.Results[OutermostOf(items_, item)];
        return !result || result->empty();
    });
    TryEach(later);
}

// Whether each item that is asked for does something by itself, or something in it does.
bool Explainer::DoAllSomething(const std::vector<bool>& asked) const {
    std::vector<bool> does(items_.size());
    for (std::size_t item = items_.size(); item-- > 0;) {
        if (found_.Results[item] && !found_.Results[item]->empty()) does[item] = true;
        if (does[item] && items_[item].Parent != NoIndex) does[items_[item].Parent] = true;
    }
    for (std::size_t item = 0; item < items_.size(); ++item)
        if (asked[item] && !does[item]) return false;
    return true;
}

bool Explainer::IsDoneInside(std::size_t item, std::size_t call, const LineChange& change) const {
    for (std::size_t at = item + 1; at < items_.size() && items_[at].Parent != NoIndex; ++at) {
        if (!StandsIn(items_, at, item) || !found_.Results[at]) continue;
        const auto changes = found_.Results[at]->find(call);
        if (changes == found_.Results[at]->end()) continue;
        if (change.Line != NoIndex ? FindChange(*found_.Results[at], {call, change.Line}) != nullptr
                                   : std::ranges::find(changes->second, change) != changes->second.end())
            return true;
    }
    return false;
}

void Explainer::DescribeEffects() {
    for (std::size_t item = 0; item < items_.size(); ++item) {
        if (!found_.Results[item]) continue;
        items_[item].Tried = true;
        for (const auto& [call, changes] : *found_.Results[item]) {
            for (const LineChange& change : changes) {
                if (!IsAsked(call, change) || IsDoneInside(item, call, change)) continue;
                Effect effect{call, change.Line, change.Kind, {}};
                if (change.Instead) effect.Instead = ShownLine(change.Kind, *change.Instead);
                items_[item].Effects.push_back(std::move(effect));
            }
        }
    }
}

// Whether it says something that an item does nothing to what is asked for. That it does nothing to one line
// does not, unless another hides it; that it does nothing to a call does if it is of that call's ticket.
bool Explainer::SaysSomething(std::size_t item) const {
    if (!items_[item].HiddenBy.empty()) return true;
    return !question_.Line &&
           (!question_.Call || items_[item].Ticket == explanation_.Calls.back().TicketIndex);
}

bool Explainer::IsKept(LinePlace place, const std::vector<bool>& asked) const {
    if (!IsAsked(place)) return false;
    if (!question_.Item) return true;
    const auto isAsked = [&](std::size_t item) { return asked[item]; };
    const ExplainedLine& line = explanation_.Calls[place.Call].Lines[place.Line];
    return std::ranges::any_of(line.Subjects, isAsked) ||
           std::ranges::any_of(line.Causes,
                               [&](const Cause& cause) { return std::ranges::any_of(cause.Items, isAsked); });
}

// Leaves out what isn't asked for.
void Explainer::Narrow(const std::vector<bool>& asked) {
    explanation_.IsNarrowed = question_.Call || question_.Line || question_.Item;
    std::map<std::pair<std::size_t, std::size_t>, std::size_t> kept;  // where a call's line is now
    for (std::size_t call = 0; call < explanation_.Calls.size(); ++call) {
        std::vector<ExplainedLine> lines;
        for (std::size_t line = 0; line < explanation_.Calls[call].Lines.size(); ++line) {
            if (!IsKept({call, line}, asked)) continue;
            kept[{call, line}] = lines.size();
            lines.push_back(explanation_.Calls[call].Lines[line]);
        }
        explanation_.Calls[call].Lines = std::move(lines);
    }
    for (std::size_t item = 0; item < items_.size(); ++item) {
        if (!asked[item]) items_[item].Effects.clear();
        if (!asked[item] || !SaysSomething(item)) items_[item].Tried = false;
        for (Effect& effect : items_[item].Effects) {
            if (effect.Line != NoIndex) effect.Line = kept.at({effect.Call, effect.Line});
            if (question_.Call) effect.Call = 0;
        }
    }
    if (question_.Call) explanation_.Calls = {explanation_.Calls.back()};
}

void Explainer::Explain() {
    ListLines();
    const std::vector<bool> asked = AskedItems();
    TryItems(asked);
    const bool all = !question_.Item || !DoAllSomething(asked);
    if (all && question_.Item) TryItems(std::vector<bool>(items_.size(), true));
    FindCauses(
        found_, [this](LinePlace place) { return IsAsked(place); }, all, explanation_);
    DescribeEffects();
    if (all) FindHiddenItems(found_, explanation_);
    Narrow(asked);
}

class JobConversions final : public Conversions {
public:
    JobConversions(const Job& job, const JobItems& items) : job_(job), items_(items) {}

    Trial Run(const ItemSet& without, std::size_t calls, const Trial* known) const override {
        return Convert(without.empty() ? job_ : WithoutItems(job_, items_, without), calls, known);
    }

private:
    const Job& job_;
    const JobItems& items_;
};

}  // namespace

std::vector<bool> ItemsWithEffect(const Explanation& explanation) {
    const std::vector<SourceItem>& items = explanation.Items;
    std::vector<bool> have(items.size());
    for (const ExplainedCall& call : explanation.Calls)
        for (const ExplainedLine& line : call.Lines)
            for (const Cause& cause : line.Causes)
                for (const std::size_t item : cause.Items) have[item] = true;
    for (std::size_t item = items.size(); item-- > 0;) {
        if (!items[item].Effects.empty()) have[item] = true;
        if (have[item] && items[item].Parent != NoIndex) have[items[item].Parent] = true;
    }
    return have;
}

void Explain(const Conversions& conversions, const Question& question, const Progress& progress,
             Explanation& explanation) {
    Explainer(conversions, question, progress, explanation).Explain();
}

Explanation Explain(const Job& job, const Question& question, const Progress& progress) {
    JobItems items = ListItems(job);
    Explanation explanation{job.Name, job.Calls.size(), {}, items.Items};
    if (question.Call && (*question.Call == 0 || *question.Call > job.Calls.size()))
        throw InputError(
            "--call " + std::to_string(*question.Call),
            "the job has " + std::to_string(job.Calls.size()) + (job.Calls.size() == 1 ? " call" : " calls"));
    for (std::size_t call = 0; call < job.Calls.size(); ++call)
        explanation.Calls.push_back({call + 1, job.Calls[call].Level, job.Calls[call].Source->Name, 0, {}});
    for (std::size_t ticket = 0; ticket < items.Tickets.size(); ++ticket)
        for (const std::size_t call : items.Tickets[ticket].Calls)
            explanation.Calls[call - 1].TicketIndex = ticket;
    const Platform::KeptAnswers kept;
    Explain(JobConversions(job, items), question, progress, explanation);
    return explanation;
}

}  // namespace TicketHost
