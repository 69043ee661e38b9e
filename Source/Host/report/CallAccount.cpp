#include "Host/report/CallAccount.h"

#include <algorithm>
#include <iterator>

#include "Host/ground/Texts.h"
#include "Host/output/CallWords.h"
#include "Host/tickets/Settings.h"
#include "devicespecific/DeviceSpecificModule.h"

namespace TicketHost {
namespace {

using Platform::WideText;

constexpr std::u16string_view pjlName = u"PJL";
constexpr std::u16string_view dataName = u"DATA";

void AddError(CallReport& outcome, const CallResult& result) {
    if (!result.Error) return;
    outcome.Error = result.Error->Type + ": " + Visible(result.Error->Message);
    outcome.ErrorCause = ExplainError(*result.Error);
}

void AddPjl(CallReport& outcome, const PipelineProperties& now, const PipelineProperties& before) {
    const WideText pjl = FindText(now, pjlName);
    if (!AreSame(pjl, FindText(before, pjlName))) outcome.Pjl = SplitCommandLines(pjl.View());
}

void AddData(CallReport& outcome, const PipelineProperties& now, const PipelineProperties& before) {
    const WideText data = FindText(now, dataName), earlier = FindText(before, dataName);
    outcome.IsDataReplaced = !BeginsWith(data, earlier);
    const std::u16string_view news = data.View().substr(outcome.IsDataReplaced ? 0 : earlier.Length());
    for (const std::string& line : SplitCommandLines(news))
        outcome.Data.push_back({line, IsPageMarker(line)});
}

// Whether the lines above tell of it; they have none for an empty text.
bool IsToldAsLines(const std::u16string& name, const PipelineProperties& now) {
    return (name == pjlName || name == dataName) && !FindText(now, name).IsEmpty();
}

void AddProperties(CallReport& outcome, const PipelineProperties& now, const PipelineProperties& before) {
    for (const auto& [name, value] : now) {
        const auto earlier = before.find(name);
        const bool isNew = earlier == before.end();
        if ((!isNew && AreSame(value, earlier->second)) || IsToldAsLines(name, now)) continue;
        outcome.Properties.push_back({Visible(ToUtf8(name)), {}, DescribeValue(value)});
        if (!isNew) outcome.Properties.back().Before = DescribeValue(earlier->second);
    }
    for (const auto& [name, value] : before)
        if (!now.contains(name))
            outcome.Properties.push_back({Visible(ToUtf8(name)), DescribeValue(value), {}});
}

std::string SettingText(const Json::Value& value) {
    return value.isString() ? value.asString() : WriteSettings(value);
}

void AddSeries(CallReport& outcome, const TicketSettings& series) {
    const std::string scope(series.Series->Scope);
    if (!series.IsWellFormed)
        outcome.SettingFaults.push_back("The " + scope + " settings are no JSON from byte " +
                                        std::to_string(series.FaultAt + 1) + " on: " + series.FaultCause);
    if (!series.Values.isObject()) return;
    for (const char* group : SettingsGroups) {
        const Json::Value& members = series.Values[group];
        if (!members.isObject()) continue;
        for (const std::string& name : members.getMemberNames())
            outcome.Settings.push_back({scope, group, name, SettingText(members[name])});
    }
}

}  // namespace

// The module gives well-formed documents, so nothing is left out here.
CallTickets ReadCallTickets(const CallResult& result) {
    Platform::ParseError ignored;
    CallTickets tickets;
    tickets.Before = Platform::ReadXml(result.TicketBefore, ignored).value_or(Platform::XmlElement());
    tickets.After = Platform::ReadXml(result.TicketAfter, ignored).value_or(Platform::XmlElement());
    tickets.ItemsAfter = ItemsOf(tickets.After);
    return tickets;
}

CallReport ReportOf(const CallResult& result, const CallTickets& tickets, const PipelineProperties& before) {
    CallReport outcome;
    outcome.Level = result.Made.Level;
    AddError(outcome, result);
    AddPjl(outcome, result.Properties, before);
    AddData(outcome, result.Properties, before);
    AddProperties(outcome, result.Properties, before);
    if (outcome.Level == DeviceSpecificModule::JobLevel)
        for (const TicketSettings& series : ReadSettings(tickets.Before)) AddSeries(outcome, series);
    outcome.TicketChanges = CompareTickets(tickets.Before, tickets.After);
    outcome.Ticket = TicketRowsOf(tickets.ItemsAfter);
    return outcome;
}

// The series are merged group by group, a later one over an earlier one.
std::string FindSetting(const std::vector<ReportedSetting>& settings, std::string_view name) {
    for (const char* group : SettingsGroups) {
        const auto isIt = [&](const ReportedSetting& row) { return row.Group == group && row.Name == name; };
        const auto found = std::find_if(settings.rbegin(), settings.rend(), isIt);
        if (found != settings.rend()) return found->Value;
    }
    return "";
}

void CallAccounts::Add(const CallResult& result, CallReport outcome) {
    const std::string& source = result.Made.Source->Name;
    if (left_ == 0 && !all_.empty() && all_.back().What == outcome) {
        all_.back().Last = result.Number;
        all_.back().LastSource = source;
    } else if (left_ == 0 && all_.size() < Most) {
        all_.push_back({result.Number, result.Number, source, source, std::move(outcome)});
    } else {
        ++left_;
    }
}

void CallAccounts::PutLink(HtmlWriter& html, std::size_t call, std::string_view text) const {
    const auto behind = std::ranges::upper_bound(all_, call, {}, &CallAccount::First);
    if (behind == all_.begin() || call > std::prev(behind)->Last) return html.Text(text);
    html.PutLink({"call", std::prev(behind)->First}, text);
}

}  // namespace TicketHost
