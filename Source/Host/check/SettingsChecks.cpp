#include "Host/check/SettingsChecks.h"

#include <algorithm>
#include <map>
#include <set>

#include "Host/check/PerPageChecks.h"
#include "Host/check/ValueChecks.h"
#include "Host/ground/Texts.h"
#include "Host/tickets/Settings.h"

namespace TicketHost {
namespace {

constexpr std::int64_t mostPieces = 1000;  // that three digits can name
constexpr std::size_t mostNamed = 5;
constexpr const char* throws = "the conversion throws";

std::string Digits(std::size_t index) {
    const std::string digits = std::to_string(index);
    return std::string(digits.size() < 3 ? 3 - digits.size() : 0, '0') + digits;
}

std::string NameOfCount(const SettingsSeries& series) { return "ns0000:" + std::string(series.Count); }

// The parameters of the ticket that are pieces of a series, by their names.
std::vector<const TicketItem*> PiecesOf(const std::vector<TicketItem>& items, const SettingsSeries& series) {
    std::vector<const TicketItem*> pieces;
    for (const TicketItem& item : items)
        if (item.Kind == ItemKind::Parameter && item.Space == DevmodeNamespace &&
            item.Local.size() == series.Piece.size() + 3 && item.Local.starts_with(series.Piece))
            pieces.push_back(&item);
    return pieces;
}

void CheckDuplicates(const std::vector<const TicketItem*>& pieces, TicketReport& report) {
    std::set<std::string_view> names;
    for (const TicketItem* piece : pieces)
        if (!names.insert(piece->Local).second)
            report.Warn(piece->Line, "parameter " + Quoted(piece->Name) +
                                         " stands there a second time; only the first counts");
}

void CheckCount(const TicketSettings& settings, TicketReport& report) {
    const std::string name = NameOfCount(*settings.Series);
    const std::string text(Trimmed(settings.CountText));
    if (const auto fault = FaultOf({Form::Number}, text))
        report.Warn(settings.Line,
                    "value " + Quoted(text) + " of " + name + " " + fault->Text + " and counts as " +
                        std::to_string(settings.Count),
                    fault->Hint);
    if (settings.Count > mostPieces)
        report.Warn(settings.Line, name + " counts " + std::to_string(settings.Count) +
                                       " pieces and no more than 1000 can be named: " + throws);
}

// Pieces that are counted and not there, and the other way round.
void CheckPieces(const TicketSettings& settings, TicketReport& report) {
    std::vector<std::string> missing;
    std::size_t next = 0;
    const auto expect = [&](std::size_t end) {
        for (; next < end; ++next) missing.push_back(Digits(next));
    };
    for (const SettingsPiece& piece : settings.Pieces) {
        if (IsCounted(settings, piece)) {
            expect(piece.Index);
            next = piece.Index + 1;
            continue;
        }
        report.Warn(piece.Line, "piece " + Digits(piece.Index) + " of the " +
                                    std::string(settings.Series->Scope) +
                                    " settings counts for nothing: " + NameOfCount(*settings.Series) +
                                    " counts " + std::to_string(settings.Count));
    }
    expect(static_cast<std::size_t>(std::clamp<std::int64_t>(settings.Count, 0, mostPieces)));
    if (missing.empty()) return;
    std::string list;
    for (std::size_t at = 0; at < std::min(missing.size(), mostNamed); ++at)
        list.append(at == 0 ? "" : ", ").append(missing[at]);
    if (missing.size() > mostNamed) list += " and " + std::to_string(missing.size() - mostNamed) + " more";
    report.Warn(settings.Line, "pieces of the " + std::string(settings.Series->Scope) + " settings that " +
                                   NameOfCount(*settings.Series) + " counts are missing: " + list);
}

// The piece and the place in it, and the ticket's line where the piece begins.
void CheckForm(const TicketSettings& settings, TicketReport& report) {
    if (settings.IsWellFormed) return;
    const auto [piece, at] = PlaceInPieces(settings, settings.FaultAt);
    report.Warn(piece.Line,
                "the " + std::string(settings.Series->Scope) + " settings are malformed JSON, piece " +
                    Digits(piece.Index) + ", character " + std::to_string(at + 1) + ": " +
                    settings.FaultCause,
                "what stands ahead of it counts, what stands behind it doesn't");
}

// A member of a series as it stands in the ticket.
struct Member {
    const SettingsSeries* Series;
    const char* Group;
    int Line;
    const Json::Value* Value;
};

class SettingsChecker {
public:
    SettingsChecker(const TicketContent& ticket, JobState& job, TicketReport& report)
        : all_(ReadSettings(ticket.Root)), items_(ticket.Items), job_(job), report_(report) {}

    void Check();

private:
    void CheckSeries(const TicketSettings& settings);
    void CheckUncounted();
    void CheckMembers(const TicketSettings& settings);
    void CheckMember(const std::string& name, const Member& member);
    void CheckText(const SettingRow& row, const Member& member, const std::string& text);
    void CheckHidden(const std::string& name, const Member& member);
    void CheckTogether();
    int LineOf(const std::string& name) const;

    std::vector<TicketSettings> all_;
    const std::vector<TicketItem>& items_;
    JobState& job_;
    TicketReport& report_;
    std::map<std::string, std::vector<Member>> members_;
};

// Whether the ticket has the count, if under another prefix, of which is said elsewhere.
bool HasCount(const std::vector<TicketItem>& items, const SettingsSeries& series) {
    return FindItem(items, ItemKind::Parameter, DevmodeNamespace, series.Count) != nullptr;
}

void SettingsChecker::CheckUncounted() {
    for (const SettingsSeries& series : AllSettingsSeries) {
        const std::vector<const TicketItem*> pieces = PiecesOf(items_, series);
        CheckDuplicates(pieces, report_);
        const bool isRead = std::ranges::find(all_, &series, &TicketSettings::Series) != all_.end();
        if (pieces.empty() || isRead || HasCount(items_, series)) continue;
        report_.Warn(pieces.front()->Line,
                     "the " + std::string(series.Scope) + " settings count for nothing without parameter " +
                         NameOfCount(series),
                     "say there how many pieces there are: " + std::to_string(pieces.size()));
    }
}

bool Throws(const Json::Value& value, bool mustBeText) {
    if (value.isString() || value.isNull()) return false;
    return mustBeText || !(value.isNumeric() && value.isConvertibleTo(Json::intValue));
}

void SettingsChecker::CheckText(const SettingRow& row, const Member& member, const std::string& text) {
    if (text.empty()) return;
    const std::string value = "value " + Quoted(text) + " of setting " + std::string(row.Name) + " ";
    if (row.FillsCommand && HasControls(text))
        return report_.Warn(member.Line, value +
                                             "has control characters and goes into a command as it stands, "
                                             "where it can begin another one");
    if (const auto fault = FaultOf(row.Allowed, text))
        report_.Warn(member.Line, value + fault->Text, fault->Hint);
}

void SettingsChecker::CheckMember(const std::string& name, const Member& member) {
    const SettingRow* row = FindSetting(name);
    if (row == nullptr) {
        std::vector<std::string_view> names;
        for (const SettingRow& each : SettingRows()) names.push_back(each.Name);
        return report_.Warn(member.Line, "setting " + Quoted(name) + " is unknown to the device",
                            HintOf(name, names));
    }
    const Json::Value& value = *member.Value;
    const bool mustBeText = std::string_view(member.Group) == "features";
    if (Throws(value, mustBeText))
        return report_.Warn(member.Line,
                            "setting " + name + " in " + Quoted(member.Group) +
                                (mustBeText ? " is no text" : " is neither a text nor a number of 32 bits") +
                                ": " + throws + " where it is read",
                            mustBeText && value.isNumeric() ? "put it in quotes" : "");
    CheckText(*row, member, value.isDouble() ? std::to_string(value.asInt()) : value.asString());
}

void SettingsChecker::CheckHidden(const std::string& name, const Member& member) {
    for (const Member& earlier : members_[name]) {
        if (*earlier.Value == *member.Value) continue;
        const bool isText = std::string_view(member.Group) == SettingsGroups[0];
        if (std::string_view(earlier.Group) == member.Group)
            report_.Warn(earlier.Line, "setting " + name + " of the " + std::string(earlier.Series->Scope) +
                                           " settings counts for nothing: the " +
                                           std::string(member.Series->Scope) + " settings have it, too");
        else
            report_.Warn(
                isText ? earlier.Line : member.Line,
                "setting " + name + " in \"paraminits\" counts for nothing: \"features\" has it, too");
    }
    members_[name].push_back(member);
}

void SettingsChecker::CheckMembers(const TicketSettings& settings) {
    for (const std::string& key : settings.Values.getMemberNames())
        if (std::ranges::find(SettingsGroups, key) == SettingsGroups.end())
            report_.Warn(settings.Line,
                         "member " + Quoted(key) + " of the " + std::string(settings.Series->Scope) +
                             " settings is never read",
                         HintOf(key, std::vector<std::string>(SettingsGroups.begin(), SettingsGroups.end())));
    for (const char* group : SettingsGroups) {
        const Json::Value& members = settings.Values[group];
        if (!members.isNull() && !members.isObject()) {
            report_.Warn(settings.Line, Quoted(group) + " of the " + std::string(settings.Series->Scope) +
                                            " settings is no object: " + throws);
            continue;
        }
        for (const std::string& name :
             members.isNull() ? std::vector<std::string>() : members.getMemberNames()) {
            const Json::Value& value = members[name];
            const auto at = static_cast<std::size_t>(value.getOffsetStart());
            const Member member{settings.Series, group, PlaceInPieces(settings, at).Piece.Line, &value};
            CheckHidden(name, member);
            CheckMember(name, member);
            job_.Settings[group][name] = value;
        }
    }
}

void SettingsChecker::CheckSeries(const TicketSettings& settings) {
    CheckCount(settings, report_);
    CheckPieces(settings, report_);
    CheckForm(settings, report_);
    if (settings.Values.isNull()) return;
    if (!settings.Values.isObject())
        return report_.Warn(settings.Line, "the " + std::string(settings.Series->Scope) +
                                               " settings are no JSON object: " + throws);
    CheckMembers(settings);
}

int SettingsChecker::LineOf(const std::string& name) const {
    const auto found = members_.find(name);
    return found == members_.end() ? 0 : found->second.back().Line;
}

// What one setting makes of another.
void SettingsChecker::CheckTogether() {
    const auto isOff = [&](const char* name) {
        const std::string value = job_.Setting(name);
        return value.empty() || value == "Off" || value == "Host";
    };
    if (!isOff("OverlayPrint") && isOff("DeviceOverlayPrintOnFrontSide") &&
        !isOff("DeviceOverlayPrintOnBackSide"))
        report_.Warn(LineOf("DeviceOverlayPrintOnBackSide"),
                     "setting DeviceOverlayPrintOnBackSide counts for nothing while "
                     "DeviceOverlayPrintOnFrontSide is not on");
    const std::string perPage = job_.Setting("PerPageSetting");
    if (perPage.empty() && !job_.Setting("PerPagePageDetails").empty())
        report_.Warn(LineOf("PerPagePageDetails"),
                     "the exceptions for single pages count for nothing without setting PerPageSetting",
                     "set it to \"On\"");
    if (!perPage.empty() && perPage != "Off")
        CheckPerPageSettings(job_, LineOf("PerPagePageDetails"), LineOf("PerPageListDetails"), report_);
}

void SettingsChecker::Check() {
    CheckUncounted();
    for (const TicketSettings& settings : all_) CheckSeries(settings);
    CheckTogether();
}

}  // namespace

void CheckSettings(const TicketContent& ticket, Level level, JobState& job, TicketReport& report) {
    if (level == AtJob) return SettingsChecker(ticket, job, report).Check();
    for (const SettingsSeries& series : AllSettingsSeries)
        if (const auto pieces = PiecesOf(ticket.Items, series); !pieces.empty())
            report.Warn(
                pieces.front()->Line,
                "the settings in this ticket count for nothing: only those of the job's ticket are read");
}

}  // namespace TicketHost
