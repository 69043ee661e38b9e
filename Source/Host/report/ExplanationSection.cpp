#include "Host/report/ExplanationSection.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <string>
#include <utility>

#include "Host/ground/Texts.h"
#include "Host/report/ReportWords.h"

namespace TicketHost {
namespace {

using Indices = std::vector<std::size_t>;

constexpr std::size_t longestText = 500;  // characters of a line or of a label
constexpr std::size_t mostItems = 2000;   // of one section

constexpr const char* namesOfKinds[] = {"Error", "PJL", "Data lines", "Other properties",
                                        "Ticket: what changed"};

std::string PlaceOf(const SourceItem& item) {
    return item.File + (item.Line > 0 ? ":" + std::to_string(item.Line) : "");
}

HtmlPlace TargetOf(std::size_t item) { return {"item", item + 1}; }

void PutLine(HtmlWriter& html, const std::string& line) {
    if (line.empty())
        html.Put("span", {{"class", "quiet"}}, "(empty line)");
    else
        html.Put("code", Shortened(line, longestText));
}

void PutItem(HtmlWriter& html, const Explanation& explanation, std::size_t index) {
    const SourceItem& item = explanation.Items[index];
    html.PutLink(TargetOf(index), Shortened(item.Label, longestText));
    html.Put("span", {{"class", "quiet"}}, ", " + PlaceOf(item));
}

void PutInstead(HtmlWriter& html, const std::optional<std::string>& instead) {
    if (!instead) return;
    html.Text("; without: ");
    PutLine(html, *instead);
}

void WriteCause(HtmlWriter& html, const Explanation& explanation, const Cause& cause) {
    const auto entry = html.In("li");
    html.Text(cause.Items.size() > 1 ? "Caused only together by " : "Caused by ");
    for (const std::size_t item : cause.Items) {
        if (item != cause.Items.front()) html.Text("; ");
        PutItem(html, explanation, item);
    }
    PutInstead(html, cause.Instead);
}

void WriteCauses(HtmlWriter& html, const Explanation& explanation, const ExplainedLine& line) {
    if (line.Causes.empty() && line.Subjects.empty()) return;
    const auto list = html.In("ul", {{"class", "why"}});
    for (const Cause& cause : line.Causes) WriteCause(html, explanation, cause);
    for (const std::size_t subject : line.Subjects) {
        const SourceItem& item = explanation.Items[subject];
        html.Put("li", "Edited " + Shortened(item.Label, longestText) + ", " + PlaceOf(item));
    }
}

// The first cause, and how many there are besides.
std::string ShortCause(const Explanation& explanation, const ExplainedLine& line) {
    if (line.Causes.empty()) return "the module\u2019s own";
    const Indices& items = line.Causes.front().Items;
    std::string text;
    for (const std::size_t item : items)
        text += (text.empty() ? "" : " + ") + Shortened(explanation.Items[item].Label, longestText);
    return line.Causes.size() == 1 ? text : text + ", " + std::to_string(line.Causes.size() - 1) + " more";
}

void WriteLine(HtmlWriter& html, const Explanation& explanation, const ExplainedLine& line) {
    const auto item = html.In("li");
    PutLine(html, line.Text);
    html.Put("span", {{"class", "by"}, {"aria-hidden", "true"}}, ShortCause(explanation, line));
    WriteCauses(html, explanation, line);
}

const ExplainedCall* FindCall(const Explanation& explanation, std::size_t number) {
    const auto found = std::ranges::find(explanation.Calls, number, &ExplainedCall::Number);
    return found == explanation.Calls.end() ? nullptr : &*found;
}

bool HasKind(const ExplainedCall& call, LineKind kind) {
    return std::ranges::find(call.Lines, kind, &ExplainedLine::Kind) != call.Lines.end();
}

void WriteLines(HtmlWriter& html, const Explanation& explanation, const ExplainedCall& call, LineKind kind) {
    const auto list = html.In("ol", {{"class", "lines"}});
    for (const ExplainedLine& line : call.Lines)
        if (line.Kind == kind) WriteLine(html, explanation, line);
}

// "calls 1, 3 to 9", of numbers that grow.
std::string NameCalls(const Indices& numbers) {
    std::string text = numbers.size() == 1 ? "call " : "calls ";
    for (std::size_t at = 0, end = 0; at < numbers.size(); at = end) {
        for (end = at + 1; end < numbers.size() && numbers[end] == numbers[end - 1] + 1;) ++end;
        text += (at == 0 ? "" : ", ") + std::to_string(numbers[at]);
        if (end - at > 1) text += " to " + std::to_string(numbers[end - 1]);
    }
    return text;
}

// Something that an item did, perhaps in several calls.
struct Deed {
    std::string Line;
    bool KeepsAway = false;
    std::optional<std::string> Instead;
    Indices Others;  // the items without which it wouldn't do it

    auto operator<=>(const Deed&) const = default;
};

// The deeds of an item with the numbers of the calls in which it did them.
using Deeds = std::map<Deed, Indices>;

void AddDeed(Deeds& deeds, const Deed& deed, std::size_t call) {
    Indices& calls = deeds[deed];
    if (calls.empty() || calls.back() != call) calls.push_back(call);
}

void AddEffects(const Explanation& explanation, std::vector<Deeds>& deeds) {
    for (std::size_t item = 0; item < explanation.Items.size(); ++item)
        for (const Effect& effect : explanation.Items[item].Effects) {
            const ExplainedCall& call = explanation.Calls[effect.Call];
            if (effect.Line == NoIndex)
                AddDeed(deeds[item], {effect.Instead.value_or(""), true, {}, {}}, call.Number);
            else
                AddDeed(deeds[item], {call.Lines[effect.Line].Text, false, effect.Instead, {}}, call.Number);
        }
}

void AddDeedsOfSets(const Explanation& explanation, std::vector<Deeds>& deeds) {
    for (const ExplainedCall& call : explanation.Calls)
        for (const ExplainedLine& line : call.Lines)
            for (const Cause& cause : line.Causes)
                for (const std::size_t item : cause.Items) {
                    Indices others = cause.Items;
                    std::erase(others, item);
                    if (!others.empty())
                        AddDeed(deeds[item], {line.Text, false, cause.Instead, others}, call.Number);
                }
}

void WriteDeed(HtmlWriter& html, const Explanation& explanation, const Deed& deed, const Indices& calls) {
    const auto entry = html.In("li");
    html.Put("span", {{"class", "quiet"}}, NameCalls(calls) + (deed.KeepsAway ? ", keeps away: " : ": "));
    PutLine(html, deed.Line);
    PutInstead(html, deed.Instead);
    for (const std::size_t other : deed.Others) {
        html.Text(other == deed.Others.front() ? "; only together with " : ", ");
        PutItem(html, explanation, other);
    }
}

void WriteItem(HtmlWriter& html, const Explanation& explanation, std::size_t index, const Deeds& deeds) {
    const SourceItem& item = explanation.Items[index];
    const auto entry = html.In("li", {{"id", TargetOf(index).Id()}, {"tabindex", "-1"}});
    html.Put("h3", Shortened(item.Label, longestText));
    html.Put("p", {{"class", "path"}}, PlaceOf(item));
    const auto list = html.In("ul");
    for (const auto& [deed, calls] : deeds) WriteDeed(html, explanation, deed, calls);
}

// Items that nothing links to may be left out; those that caused a line are always there.
void WriteItemsWithEffect(HtmlWriter& html, const Explanation& explanation) {
    std::vector<Deeds> deeds(explanation.Items.size());
    AddEffects(explanation, deeds);
    AddDeedsOfSets(explanation, deeds);
    const auto section = html.In("section", {{"aria-labelledby", "items"}});
    html.Put("h2", {{"id", "items"}, {"tabindex", "-1"}}, "What each item did");
    const auto list = html.In("ul", {{"class", "items"}});
    for (std::size_t item = 0; item < deeds.size(); ++item)
        if (!deeds[item].empty()) WriteItem(html, explanation, item, deeds[item]);
}

// What stands in an item without effect has none either, and is told of only where it is hidden by another.
Indices ItemsWithout(const Explanation& explanation) {
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

void WriteItemsWithout(HtmlWriter& html, const Explanation& explanation) {
    const Indices items = ItemsWithout(explanation);
    const auto section = html.In("section", {{"aria-labelledby", "without"}});
    html.Put("h2", {{"id", "without"}, {"tabindex", "-1"}}, "Without effect");
    if (items.empty()) return html.Put("p", {{"class", "quiet"}}, "None of the items that were tried.");
    {
        const auto list = html.In("ul", {{"class", "items"}});
        for (const std::size_t index : std::span(items).first(std::min(items.size(), mostItems))) {
            const SourceItem& item = explanation.Items[index];
            const auto entry = html.In("li");
            html.Text(Shortened(item.Label, longestText));
            html.Put("span", {{"class", "quiet"}}, ", " + PlaceOf(item));
            for (const std::size_t hiding : item.HiddenBy)
                html.Text((hiding == item.HiddenBy.front() ? "; hidden by " : ", ") +
                          explanation.Items[hiding].Label);
        }
    }
    if (items.size() > mostItems)
        html.Put("p", {{"class", "doubt"}}, CountOf(items.size() - mostItems, "more item") + " not shown");
}

}  // namespace

void WriteExplainedLines(HtmlWriter& html, const Explanation& explanation, std::size_t call,
                         std::initializer_list<LineKind> kinds) {
    const ExplainedCall* explained = FindCall(explanation, call);
    if (explained == nullptr)
        return html.Put("p", {{"class", "quiet"}}, "This call was not to be explained.");
    for (const LineKind kind : kinds) {
        if (!HasKind(*explained, kind)) continue;
        html.Put("h4", namesOfKinds[static_cast<int>(kind)]);
        WriteLines(html, explanation, *explained, kind);
    }
}

void WriteExplainedHeader(HtmlWriter& html, const Explanation& explanation) {
    const auto section = html.In("section", {{"aria-labelledby", "header"}});
    html.Put("h2", {{"id", "header"}, {"tabindex", "-1"}}, "Header (PJL)");
    bool isEmpty = true;
    for (const ExplainedCall& call : explanation.Calls) {
        if (!HasKind(call, LineKind::Pjl)) continue;
        if (!std::exchange(isEmpty, false))
            html.Put("h3", "As call " + std::to_string(call.Number) + " left it");
        WriteLines(html, explanation, call, LineKind::Pjl);
    }
    if (isEmpty) html.Put("p", {{"class", "quiet"}}, "No explained call wrote one.");
}

void WriteItemSections(HtmlWriter& html, const Explanation& explanation) {
    WriteItemsWithEffect(html, explanation);
    WriteItemsWithout(html, explanation);
}

}  // namespace TicketHost
