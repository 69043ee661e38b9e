#include "Host/report/CallSection.h"

#include <algorithm>
#include <span>

#include "Host/ground/Texts.h"
#include "Host/output/CallWords.h"
#include "Host/report/ReportWords.h"

namespace TicketHost {
namespace {

constexpr std::size_t mostRows = 2000;      // of one table
constexpr std::size_t longestValue = 2000;  // characters
constexpr std::size_t deepestLevel = 2;     // that is still indented

std::string NumbersOf(const CallAccount& call) {
    if (call.First == call.Last) return "Call " + std::to_string(call.First);
    return "Calls " + std::to_string(call.First) + " to " + std::to_string(call.Last);
}

void PutValue(HtmlWriter& html, HtmlName element, const std::optional<std::string>& value) {
    const auto cell = html.In("td");
    if (!value) return html.Put("span", {{"class", "quiet"}}, "\u2013");
    html.Put(element, value->empty() ? "(empty)" : Shortened(*value, longestValue));
}

// What is in both is no change of its own colour: only the new value stands out.
void PutBeforeAndAfter(HtmlWriter& html, const std::optional<std::string>& before,
                       const std::optional<std::string>& after) {
    PutValue(html, before == after ? HtmlName("span") : HtmlName("del"), before);
    PutValue(html, before == after ? HtmlName("span") : HtmlName("ins"), after);
}

void PutHeadings(HtmlWriter& html, std::initializer_list<std::string_view> headings) {
    const auto head = html.In("thead");
    const auto row = html.In("tr");
    for (const std::string_view heading : headings) html.Put("th", {{"scope", "col"}}, heading);
}

void PutRowName(HtmlWriter& html, const std::string& name, std::size_t level = 0) {
    html.Put("th", {{"scope", "row"}, {"class", "level-" + std::to_string(std::min(level, deepestLevel))}},
             name);
}

void PutRowsLeftOut(HtmlWriter& html, std::size_t rows) {
    if (rows > mostRows)
        html.Put("p", {{"class", "doubt"}}, CountOf(rows - mostRows, "more row") + " not shown");
}

void WriteError(HtmlWriter& html, const CallReport& call) {
    if (call.Error.empty()) return;
    html.Put("p", {{"class", "bad"}}, "Failed: " + call.Error);
    if (!call.ErrorCause.empty()) html.Put("p", call.ErrorCause);
}

void WriteDataLine(HtmlWriter& html, const DataLine& line) {
    const auto item = html.In("li", {{"class", line.IsMarker ? "page" : "line"}});
    if (line.Text.empty())
        html.Put("span", {{"class", "quiet"}}, "(empty line)");
    else
        html.Put("code", line.Text);
}

void WriteData(HtmlWriter& html, const CallAccount& call) {
    if (call.What.Data.empty()) return;
    html.Put("h4", call.What.IsDataReplaced ? "Data lines, in place of what was there" : "Data lines");
    if (call.First != call.Last)
        html.Put("p", {{"class", "quiet"}},
                 "Of the first call; the others differ in the page's marker alone.");
    const auto list = html.In("ol", {{"class", "lines"}});
    for (const DataLine& line : call.What.Data) WriteDataLine(html, line);
}

void WriteProperties(HtmlWriter& html, const std::vector<ReportedProperty>& properties) {
    if (properties.empty()) return;
    html.Put("h4", "Other properties");
    const auto scroll = html.In("div", {{"class", "scroll"}});
    const auto table = html.In("table");
    PutHeadings(html, {"Property", "Before", "After"});
    const auto body = html.In("tbody");
    for (const ReportedProperty& property : properties) {
        const auto row = html.In("tr");
        PutRowName(html, property.Name);
        PutBeforeAndAfter(html, property.Before, property.After);
    }
}

void WriteSettings(HtmlWriter& html, const CallReport& call) {
    if (call.Settings.empty() && call.SettingFaults.empty()) return;
    html.Put("h4", "User settings in the ticket");
    for (const std::string& fault : call.SettingFaults) html.Put("p", {{"class", "doubt"}}, fault);
    if (call.Settings.empty()) return;
    const auto scroll = html.In("div", {{"class", "scroll"}});
    const auto table = html.In("table");
    PutHeadings(html, {"Setting", "Value", "Stands in"});
    const auto body = html.In("tbody");
    for (const ReportedSetting& setting : call.Settings) {
        const auto row = html.In("tr");
        PutRowName(html, setting.Name);
        PutValue(html, "span", setting.Value);
        PutValue(html, "span", setting.Series + ", " + setting.Group);
    }
}

std::optional<std::string> TextUnless(ChangeKind absent, const TicketChange& change,
                                      const std::string& text) {
    return change.Kind == absent ? std::nullopt : std::optional(text);
}

void WriteTicketChanges(HtmlWriter& html, const std::vector<TicketChange>& changes) {
    html.Put("h4", changes.empty() ? "Ticket: nothing in it changed" : "Ticket: what changed");
    if (changes.empty()) return;
    const auto scroll = html.In("div", {{"class", "scroll"}});
    const auto table = html.In("table");
    PutHeadings(html, {"Item", "Before the call", "After it"});
    const auto body = html.In("tbody");
    for (const TicketChange& change : std::span(changes).first(std::min(changes.size(), mostRows))) {
        const auto row = html.In("tr");
        PutRowName(html, change.Subject);
        PutBeforeAndAfter(html, TextUnless(ChangeKind::Added, change, change.Before),
                          TextUnless(ChangeKind::Removed, change, change.After));
    }
}

void WriteTicketRows(HtmlWriter& html, const CallReport& call) {
    if (call.Ticket.empty()) return;
    const auto details = html.In("details");
    {
        const auto summary = html.In("summary");
        html.Put("h4", "All that the ticket says now: " + CountOf(call.Ticket.size(), "item"));
    }
    {
        const auto scroll = html.In("div", {{"class", "scroll"}});
        const auto table = html.In("table");
        PutHeadings(html, {"Item", "Value after the call"});
        const auto body = html.In("tbody");
        for (const TicketRow& item : std::span(call.Ticket).first(std::min(call.Ticket.size(), mostRows))) {
            const auto row = html.In("tr");
            PutRowName(html, item.Name, item.Level);
            PutValue(html, "span", item.Value);
        }
    }
    PutRowsLeftOut(html, call.Ticket.size());
}

std::string SourcesOf(const CallAccount& call) {
    return call.FirstSource == call.LastSource ? call.FirstSource
                                               : call.FirstSource + " to " + call.LastSource;
}

void WriteSummary(HtmlWriter& html, const CallAccount& call) {
    const auto summary = html.In("summary");
    html.Put("h3", NumbersOf(call) + ": " + NameOfLevel(call.What.Level));
    html.Put("span", {{"class", "quiet"}}, " " + SourcesOf(call));
    if (!call.What.Error.empty()) html.Put("span", {{"class", "bad"}}, " failed");
}

void WriteWhatChanged(HtmlWriter& html, const CallAccount& call) {
    WriteData(html, call);
    WriteProperties(html, call.What.Properties);
    WriteTicketChanges(html, call.What.TicketChanges);
    PutRowsLeftOut(html, call.What.TicketChanges.size());
}

void WriteExplained(HtmlWriter& html, const CallAccount& call, ExplanationWriter& explanation) {
    if (call.First != call.Last) html.Put("p", {{"class", "quiet"}}, "Of the first call:");
    explanation.WriteLines(call.First,
                           {LineKind::Error, LineKind::Data, LineKind::Property, LineKind::Ticket});
}

// A browser that goes to the body opens what it stands in.
void WriteBody(HtmlWriter& html, const CallAccount& call, ExplanationWriter* explanation) {
    const auto body = html.In("div", {{"id", HtmlPlace{"call", call.First}.Id()}});
    WriteError(html, call.What);
    if (!call.What.Pjl.empty())
        html.Put("p", {{"class", "quiet"}},
                 "Wrote the header above, " + CountOf(call.What.Pjl.size(), "line"));
    if (explanation != nullptr)
        WriteExplained(html, call, *explanation);
    else
        WriteWhatChanged(html, call);
    WriteSettings(html, call.What);
    WriteTicketRows(html, call.What);
}

void WriteCall(HtmlWriter& html, const CallAccount& call, ExplanationWriter* explanation) {
    if (call.What.Error.empty()) {
        const auto details = html.In("details");
        WriteSummary(html, call);
        return WriteBody(html, call, explanation);
    }
    const auto details = html.In("details", {{"open", "open"}});
    WriteSummary(html, call);
    WriteBody(html, call, explanation);
}

}  // namespace

void WriteHeaderSection(HtmlWriter& html, const CallAccounts& calls) {
    const auto section = html.In("section", {{"aria-labelledby", "header"}});
    html.Put("h2", {{"id", "header"}, {"tabindex", "-1"}}, "Header (PJL)");
    bool isEmpty = true;
    for (const CallAccount& call : calls.All()) {
        if (call.What.Pjl.empty()) continue;
        if (!isEmpty) html.Put("h3", "As call " + std::to_string(call.First) + " left it");
        const auto list = html.In("ol", {{"class", "lines"}});
        for (const std::string& line : call.What.Pjl) {
            const auto item = html.In("li");
            html.Put("code", line);
        }
        isEmpty = false;
    }
    if (isEmpty) html.Put("p", {{"class", "quiet"}}, "No call wrote one.");
}

void WriteCallSection(HtmlWriter& html, const CallAccounts& calls, ExplanationWriter* explanation) {
    const auto section = html.In("section", {{"aria-labelledby", "calls"}});
    html.Put("h2", {{"id", "calls"}, {"tabindex", "-1"}}, "Calls");
    {
        const auto list = html.In("div", {{"class", "calls"}});
        for (const CallAccount& call : calls.All()) WriteCall(html, call, explanation);
    }
    if (calls.CallsLeftOut() > 0)
        html.Put("p", {{"class", "doubt wide"}},
                 CountOf(calls.CallsLeftOut(), "more call") + " not told here, since more than " +
                     std::to_string(CallAccounts::Most) +
                     " differ from the one before; --format jsonl has them all.");
}

}  // namespace TicketHost
