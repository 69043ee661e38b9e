#include "Host/check/JobChecks.h"

#include <json/value.h>

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>

#include "Host/check/PropertyChecks.h"
#include "Host/check/SettingsChecks.h"
#include "Host/check/TicketChecks.h"
#include "Host/check/ValueChecks.h"
#include "Host/ground/Errors.h"
#include "Host/ground/Json.h"
#include "Host/ground/Texts.h"
#include "Platform/PrintQueue.h"
#include "Platform/XmlElement.h"
#include "devicespecific/DeviceSpecificModule.h"

namespace TicketHost {
namespace {

using DeviceSpecificModule::DocumentLevel;
using DeviceSpecificModule::JobLevel;
using DeviceSpecificModule::PageLevel;

Level LevelOf(const Call& call) {
    return call.Level == JobLevel ? AtJob : call.Level == DocumentLevel ? AtDocument : AtPage;
}

std::string ElementPlace(const std::string& list, std::size_t index) {
    return list + "[" + std::to_string(index) + "]";
}

std::string MemberPlace(const std::string& object, const std::string& name) { return object + "." + name; }

std::string PlaceOf(std::size_t call) { return ElementPlace("calls", call); }

bool IsInline(const Ticket& ticket) { return ticket.Name == "inline ticket"; }

std::optional<TicketContent> Read(const Ticket& ticket) {
    Platform::ParseError error;
    const auto read = [&error](const auto& content) { return Platform::ReadXml(content, error); };
    auto root = std::visit(read, ticket.Content);
    if (!root) return std::nullopt;
    std::vector<TicketItem> items = ItemsOf(*root);
    return TicketContent{std::move(*root), std::move(items)};
}

class JobChecker {
public:
    JobChecker(const Job& job, Findings& findings) : job_(job), findings_(findings) {}

    void Check();

private:
    void CheckOrder();
    void CheckCall(std::size_t index);
    void CheckTicketOf(const Call& call, std::size_t index, Level level, Findings& findings);
    bool IsNew(const Call& call, Level level);
    void CheckPassword();
    void Warn(std::string place, std::string text, std::string hint = "") {
        findings_.push_back(
            {FindingKind::Warning, job_.Name, std::move(place), 0, std::move(text), std::move(hint)});
    }

    const Job& job_;
    Findings& findings_;
    JobState state_;
    std::set<std::int32_t> oddLevels_;
    std::unordered_map<std::u16string_view, const Ticket*> inlineTickets_;  // the first of each text
    std::set<std::tuple<const Ticket*, Level, std::string>> checked_;
};

void JobChecker::CheckOrder() {
    if (job_.Calls.empty()) return Warn("calls", "there are none");
    if (LevelOf(job_.Calls.front()) != AtJob)
        Warn(PlaceOf(0), "no call at job level comes first, so this one has neither settings nor a header",
             "begin with the job's ticket at level 2");
    if (!job_.Settings.Snapshot && job_.Calls.size() > 1)
        Warn("snapshot", "without a snapshot no call knows what the job's ticket says");
}

// Inline tickets of one text are checked as one, and files are read as one ticket in the first place. What is
// said of a ticket depends on two settings alone, unless it is the job's.
bool JobChecker::IsNew(const Call& call, Level level) {
    const Ticket* ticket = call.Source.get();
    const auto* text = std::get_if<Platform::WideText>(&ticket->Content);
    if (text != nullptr && IsInline(*ticket))
        ticket = inlineTickets_.try_emplace(text->View(), ticket).first->second;
    std::string known = level == AtJob ? "" : state_.Setting("OutPSize") + ' ' + state_.Setting("Layout");
    return checked_.emplace(ticket, level, std::move(known)).second;
}

// The password's key is chosen by two numbers of the pipeline.
void JobChecker::CheckPassword() {
    const std::string security = state_.Setting("CopySecurity");
    if (security.empty() || security == "Off" || state_.Setting("CopySecurityOption") != "PasswordCopy")
        return;
    const std::string id = ToUtf8(FindText(job_.Settings.Pipeline, u"EncryptionID"));
    const std::size_t comma = id.find(',');
    const Values number = {.Kind = Form::Number};
    const bool isGood = id.starts_with('[') && id.ends_with(']') && comma != id.npos &&
                        !FaultOf(number, id.substr(1, comma - 1)) &&
                        !FaultOf(number, id.substr(comma + 1, id.size() - comma - 2));
    if (!isGood)
        Warn("pipeline.EncryptionID",
             (id.empty() ? "is missing" : Quoted(id) + " is no pair of numbers") +
                 std::string(", and the setting CopySecurityOption \"PasswordCopy\" needs it: the conversion "
                             "may throw"),
             "write it as \"[1,2]\"");
}

void JobChecker::CheckTicketOf(const Call& call, std::size_t index, Level level, Findings& findings) {
    const bool isInline = IsInline(*call.Source);
    const auto ticket = Read(*call.Source);
    if (!ticket) return;
    const std::size_t before = findings.size();
    TicketReport report(isInline ? job_.Name : call.Source->Name, isInline ? PlaceOf(index) + ".ticket" : "",
                        findings);
    CheckSettings(*ticket, level, state_, report);
    CheckTicket(*ticket, level, state_, report);
    std::ranges::stable_sort(findings.begin() + static_cast<std::ptrdiff_t>(before), findings.end(), {},
                             &Finding::Line);
}

void JobChecker::CheckCall(std::size_t index) {
    const Call& call = job_.Calls[index];
    const Level level = LevelOf(call);
    if (level == AtPage && call.Level != PageLevel && oddLevels_.insert(call.Level).second)
        Warn(PlaceOf(index) + ".level", std::to_string(call.Level) + " converts as a page",
             "a page's level is 0");
    if (!job_.Settings.Snapshot) state_.Settings = Json::Value();
    Findings known;
    const bool isNew = IsNew(call, level);
    if (isNew || level == AtJob) CheckTicketOf(call, index, level, isNew ? findings_ : known);
    if (isNew && level == AtJob) CheckPassword();
}

void JobChecker::Check() {
    CheckProperties(job_, findings_);
    CheckOrder();
    for (std::size_t index = 0; index < job_.Calls.size(); ++index) CheckCall(index);
}

// Where the parts of a manifest stand, as byte offsets by the names of their places.
std::map<std::string, std::ptrdiff_t> PlacesOf(const Json::Value& manifest) {
    std::map<std::string, std::ptrdiff_t> places;
    for (const std::string& key : manifest.getMemberNames()) {
        const Json::Value& value = manifest[key];
        places[key] = value.getOffsetStart();
        if (value.isObject())
            for (const std::string& name : value.getMemberNames())
                places[MemberPlace(key, name)] = value[name].getOffsetStart();
        if (value.isArray())
            for (Json::ArrayIndex at = 0; at < value.size(); ++at)
                places[ElementPlace(key, at)] = value[at].getOffsetStart();
    }
    return places;
}

// The place itself or what it is a part of.
std::ptrdiff_t OffsetOf(const std::map<std::string, std::ptrdiff_t>& places, std::string place) {
    for (auto found = places.find(place);; found = places.find(place)) {
        if (found != places.end()) return found->second;
        const std::size_t point = place.rfind('.');
        if (point == place.npos) return -1;
        place.resize(point);
    }
}

}  // namespace

Findings CheckJob(const Job& job) {
    Findings findings;
    JobChecker(job, findings).Check();
    return findings;
}

void CheckQueue(const Job& job, Findings& findings) {
    Platform::WideText wideName = job.Settings.DocumentName.value_or(Platform::WideText());
    const Platform::WideText queue = FindText(job.Settings.Pipeline, u"PrinterName");
    if (!job.Settings.DocumentName && !queue.IsNull()) Platform::GetFirstDocumentName(queue, wideName);
    const std::string name = ToUtf8(wideName);
    const std::string harm = HarmInHeader(name);
    if (!harm.empty())
        findings.push_back({FindingKind::Warning, job.Name, "pipeline.PrinterName", 0,
                            "the document's name " + Quoted(name) + " " + harm, ""});
}

void AddManifestLines(const std::string& bytes, const Job& job, Findings& findings) {
    std::map<std::string, std::ptrdiff_t> places;
    try {
        const Json::Value manifest = ReadJson(job.Name, bytes);
        if (manifest.isObject()) places = PlacesOf(manifest);
    } catch (const InputError&) {  // a job of another form
    }
    for (Finding& finding : findings) {
        if (finding.Line > 0 || finding.Place.empty() || finding.File != job.Name) continue;
        const std::ptrdiff_t offset = OffsetOf(places, finding.Place);
        if (offset >= 0)
            finding.Line = 1 + static_cast<int>(std::count(bytes.begin(), bytes.begin() + offset, '\n'));
    }
}

}  // namespace TicketHost
