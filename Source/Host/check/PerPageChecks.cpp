#include "Host/check/PerPageChecks.h"

#include <algorithm>

#include "Host/check/ValueChecks.h"
#include "Host/tickets/Settings.h"

namespace TicketHost {
namespace {

constexpr const char* throws = "the conversion throws";

// One of the two texts: parsed, and reported where it isn't JSON.
Json::Value Parse(const JobState& job, const std::string& setting, int line, TicketReport& report) {
    const SettingsJson reading = ReadSettingsJson(job.Setting(setting));
    if (!reading.IsWellFormed)
        report.Warn(line,
                    "setting " + setting + " is malformed JSON, character " +
                        std::to_string(reading.FaultAt + 1) + ": " + reading.FaultCause,
                    "what stands ahead of it counts, what stands behind it doesn't");
    return reading.Values;
}

// The keys of an entry, or of the list's common values.
class KeyChecker {
public:
    KeyChecker(std::string owner, bool isEntry, int line, TicketReport& report)
        : owner_(std::move(owner)), isEntry_(isEntry), line_(line), report_(report) {}

    void Check(const Json::Value& object) {
        for (const std::string& key : object.getMemberNames()) CheckKey(key, object[key]);
    }

private:
    void CheckKey(const std::string& key, const Json::Value& value);

    std::string owner_;
    bool isEntry_;
    int line_;
    TicketReport& report_;
};

void KeyChecker::CheckKey(const std::string& key, const Json::Value& value) {
    std::vector<std::string_view> names;
    const PerPageRow* row = nullptr;
    for (const PerPageRow& each : PerPageRows()) {
        if (each.InEntry != isEntry_) continue;
        names.push_back(each.Name);
        if (each.Name == key) row = &each;
    }
    if (row == nullptr)
        return report_.Warn(line_, owner_ + " has " + Quoted(key) + ", which is never read",
                            HintOf(key, names));
    if (value.isArray() || value.isObject())
        return report_.Warn(line_, owner_ + ": " + key + " is no text: " + throws);
    const std::string text = value.asString();
    if (text.empty() && row->Allowed.Kind != Form::PageList) return;
    const auto fault = FaultOf(row->Allowed, text);
    if (!fault) return;
    const std::string otherwise = row->Otherwise.empty() ? "" : "; " + std::string(row->Otherwise);
    const std::string what = row->Allowed.Kind == Form::PageList ? "" : " " + Quoted(text);
    report_.Warn(line_, owner_ + ": " + key + what + " " + fault->Text + otherwise, fault->Hint);
}

void CheckEntry(const Json::Value& entry, std::size_t number, int line, TicketReport& report) {
    const std::string owner = "exception " + std::to_string(number) + " of PerPagePageDetails";
    if (!entry.isObject() && !entry.isNull()) return report.Warn(line, owner + " is no object: " + throws);
    if (!entry.isMember("PageNumber")) report.Warn(line, owner + " has no PageNumber");
    if (!entry.isNull()) KeyChecker(owner, true, line, report).Check(entry);
}

}  // namespace

void CheckPerPageSettings(const JobState& job, int detailsLine, int listLine, TicketReport& report) {
    const Json::Value details = Parse(job, "PerPagePageDetails", detailsLine, report);
    if (details.isObject() && !details.empty())
        report.Warn(detailsLine,
                    "setting PerPagePageDetails is an object and no list: " + std::string(throws));
    else if (!details.isArray() && !details.isNull())
        report.Warn(detailsLine, "setting PerPagePageDetails is no list and counts for nothing");
    for (Json::ArrayIndex at = 0; details.isArray() && at < details.size(); ++at)
        CheckEntry(details[at], at + 1, detailsLine, report);
    const Json::Value list = Parse(job, "PerPageListDetails", listLine, report);
    if (list.isObject()) KeyChecker("setting PerPageListDetails", false, listLine, report).Check(list);
    if (!list.isObject() && !list.isNull())
        report.Warn(listLine, "setting PerPageListDetails is no object: " + std::string(throws) +
                                  " where tab paper is used");
}

}  // namespace TicketHost
