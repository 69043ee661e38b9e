#include "Host/report/ExplanationSection.h"

#include <algorithm>
#include <span>
#include <utility>

#include "Host/ground/Texts.h"
#include "Host/output/CallWords.h"
#include "Host/report/ReportWords.h"

namespace TicketHost {
namespace {

using Indices = std::vector<std::size_t>;

constexpr std::size_t longestText = 500;  // characters of a line or of a label

constexpr const char* namesOfKinds[] = {"Error", "PJL", "Data lines", "Other properties",
                                        "Ticket: what changed"};

std::string PlaceOf(const SourceItem& item) {
    return item.File + (item.Line > 0 ? ":" + std::to_string(item.Line) : "");
}

std::string LabelOf(const SourceItem& item) { return Shortened(item.Label, longestText); }

HtmlPlace TargetOf(std::size_t item) { return {"item", item + 1}; }

bool HasKind(const ExplainedCall& call, LineKind kind) {
    return std::ranges::find(call.Lines, kind, &ExplainedLine::Kind) != call.Lines.end();
}

}  // namespace

ExplanationWriter::ExplanationWriter(HtmlWriter& html, const Explanation& explanation)
    : html_(html), explanation_(explanation), deeds_(DeedsOf(explanation)), told_(deeds_.size()) {
    std::size_t count = 0;
    for (std::size_t item = 0; item < deeds_.size(); ++item)
        if (!deeds_[item].empty()) told_[item] = ++count <= MostItems;
    leftOut_ = count - std::min(count, MostItems);
}

void ExplanationWriter::WriteLines(std::size_t call, std::initializer_list<LineKind> kinds) {
    const auto found = std::ranges::find(explanation_.Calls, call, &ExplainedCall::Number);
    if (found == explanation_.Calls.end())
        return html_.Put("p", {{"class", "quiet"}}, "This call was not to be explained.");
    for (const LineKind kind : kinds) {
        if (!HasKind(*found, kind)) continue;
        html_.Put("h4", namesOfKinds[static_cast<int>(kind)]);
        WriteKind(*found, kind);
    }
}

void ExplanationWriter::WriteHeader() {
    const auto section = html_.In("section", {{"aria-labelledby", "header"}});
    html_.Put("h2", {{"id", "header"}, {"tabindex", "-1"}}, "Header (PJL)");
    bool isEmpty = true;
    for (const ExplainedCall& call : explanation_.Calls) {
        if (!HasKind(call, LineKind::Pjl)) continue;
        if (!std::exchange(isEmpty, false))
            html_.Put("h3", "As call " + std::to_string(call.Number) + " left it");
        WriteKind(call, LineKind::Pjl);
    }
    if (isEmpty) html_.Put("p", {{"class", "quiet"}}, "No explained call wrote one.");
}

void ExplanationWriter::WriteItems() {
    WriteItemsWithEffect();
    WriteItemsWithout();
}

void ExplanationWriter::PutLine(const std::string& line) {
    if (line.empty())
        html_.Put("span", {{"class", "quiet"}}, "(empty line)");
    else
        html_.Put("code", Shortened(line, longestText));
}

void ExplanationWriter::PutItem(std::size_t index) {
    const SourceItem& item = explanation_.Items[index];
    if (told_[index])
        html_.PutLink(TargetOf(index), LabelOf(item));
    else
        html_.Text(LabelOf(item));
    html_.Put("span", {{"class", "quiet"}}, ", " + PlaceOf(item));
}

void ExplanationWriter::PutInstead(const std::optional<std::string>& instead) {
    if (!instead) return;
    html_.Text("; without: ");
    PutLine(*instead);
}

void ExplanationWriter::WriteKind(const ExplainedCall& call, LineKind kind) {
    const auto list = html_.In("ol", {{"class", "lines"}});
    for (const ExplainedLine& line : call.Lines)
        if (line.Kind == kind) WriteLine(line);
}

void ExplanationWriter::WriteLine(const ExplainedLine& line) {
    const auto item = html_.In("li");
    PutLine(line.Text);
    html_.Put("span", {{"class", "by"}, {"aria-hidden", "true"}}, ShortCause(line));
    WriteCauses(line);
}

void ExplanationWriter::WriteCauses(const ExplainedLine& line) {
    if (line.Causes.empty() && line.Subjects.empty()) return;
    const auto list = html_.In("ul", {{"class", "why"}});
    for (const Cause& cause : line.Causes) WriteCause(cause);
    for (const std::size_t subject : line.Subjects) {
        const SourceItem& item = explanation_.Items[subject];
        html_.Put("li", "Edited " + LabelOf(item) + ", " + PlaceOf(item));
    }
}

void ExplanationWriter::WriteCause(const Cause& cause) {
    const auto entry = html_.In("li");
    html_.Text(cause.Items.size() > 1 ? "Caused only together by " : "Caused by ");
    for (const std::size_t item : cause.Items) {
        if (item != cause.Items.front()) html_.Text("; ");
        PutItem(item);
    }
    PutInstead(cause.Instead);
}

// The first cause, and how many there are besides.
std::string ExplanationWriter::ShortCause(const ExplainedLine& line) const {
    if (line.Causes.empty()) return "the module\u2019s own";
    std::string text;
    for (const std::size_t item : line.Causes.front().Items)
        text += (text.empty() ? "" : " + ") + LabelOf(explanation_.Items[item]);
    return line.Causes.size() == 1 ? text : text + ", " + std::to_string(line.Causes.size() - 1) + " more";
}

void ExplanationWriter::WriteItemsWithEffect() {
    const auto section = html_.In("section", {{"aria-labelledby", "items"}});
    html_.Put("h2", {{"id", "items"}, {"tabindex", "-1"}}, "What each item did");
    {
        const auto list = html_.In("ul", {{"class", "items"}});
        for (std::size_t item = 0; item < told_.size(); ++item)
            if (told_[item]) WriteItem(item);
    }
    if (leftOut_ > 0) html_.Put("p", {{"class", "doubt"}}, CountOf(leftOut_, "more item") + " not told here");
}

void ExplanationWriter::WriteItem(std::size_t index) {
    const SourceItem& item = explanation_.Items[index];
    const auto entry = html_.In("li", {{"id", TargetOf(index).Id()}, {"tabindex", "-1"}});
    html_.Put("h3", LabelOf(item));
    html_.Put("p", {{"class", "path"}}, PlaceOf(item));
    const auto list = html_.In("ul");
    for (const ItemDeed& deed : deeds_[index]) WriteDeed(deed);
}

void ExplanationWriter::WriteDeed(const ItemDeed& deed) {
    const auto entry = html_.In("li");
    html_.Put("span", {{"class", "quiet"}},
              NameCalls(deed.Calls) + (deed.KeepsAway ? ", keeps away: " : ": "));
    PutLine(deed.Line);
    PutInstead(deed.Instead);
    for (const std::size_t other : deed.Others) {
        html_.Text(other == deed.Others.front() ? "; only together with " : ", ");
        PutItem(other);
    }
}

void ExplanationWriter::WriteItemsWithout() {
    const Indices items = ItemsWithoutEffect(explanation_);
    const auto section = html_.In("section", {{"aria-labelledby", "without"}});
    html_.Put("h2", {{"id", "without"}, {"tabindex", "-1"}}, "Without effect");
    if (items.empty()) return html_.Put("p", {{"class", "quiet"}}, "None of the items that were tried.");
    {
        const auto list = html_.In("ul", {{"class", "items"}});
        for (const std::size_t index : std::span(items).first(std::min(items.size(), MostItems))) {
            const auto entry = html_.In("li");
            PutItem(index);
            const Indices& hiding = explanation_.Items[index].HiddenBy;
            for (const std::size_t other : hiding)
                html_.Text((other == hiding.front() ? "; hidden by " : ", ") +
                           LabelOf(explanation_.Items[other]));
        }
    }
    if (items.size() > MostItems)
        html_.Put("p", {{"class", "doubt"}},
                  CountOf(items.size() - MostItems, "more item") + " not told here");
}

}  // namespace TicketHost
