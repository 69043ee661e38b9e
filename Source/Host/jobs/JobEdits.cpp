#include "Host/jobs/JobEdits.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "Host/ground/Errors.h"
#include "Host/jobs/EditedTickets.h"
#include "Host/tickets/Settings.h"
#include "Host/tickets/TicketEdits.h"
#include "devicespecific/DeviceSpecificModule.h"

namespace TicketHost {
namespace {

bool IsOfJob(const Call& call) { return call.Level == DeviceSpecificModule::JobLevel; }

const Json::Value* FindMember(const Json::Value& values, const char* group, const std::string& name) {
    if (!values.isObject() || !values[group].isObject()) return nullptr;
    return values[group].find(name.data(), name.data() + name.size());
}

// Where a setting stands.
struct Place {
    const SettingsSeries* Series = &AllSettingsSeries.front();
    const char* Group = SettingsGroups.front();
    const Json::Value* Member = nullptr;  // null: nowhere, and there is where it would go
};

// The groups are looked through in their order, and of a group the series that is merged last.
Place FindSetting(const std::vector<TicketSettings>& all, const std::string& name) {
    for (const char* group : SettingsGroups)
        for (auto settings = all.rbegin(); settings != all.rend(); ++settings)
            if (const Json::Value* member = FindMember(settings->Values, group, name))
                return {settings->Series, group, member};
    return {};
}

Json::Value ValuesOf(const std::vector<TicketSettings>& all, const SettingsSeries& series) {
    const auto found = std::ranges::find(all, &series, &TicketSettings::Series);
    return found == all.end() ? Json::Value() : found->Values;
}

bool IsObjectOrNull(const Json::Value& value) { return value.isObject() || value.isNull(); }

// A text that isn't all of a number stays one.
Json::Value NumberOrText(const std::string& text) {
    const char *begin = text.data(), *end = begin + text.size();
    Json::Int64 whole = 0;
    if (const auto [rest, error] = std::from_chars(begin, end, whole); error == std::errc() && rest == end)
        return whole;
    double number = 0;
    if (const auto [rest, error] = std::from_chars(begin, end, number);
        error == std::errc() && rest == end && std::isfinite(number))
        return number;
    return text;
}

bool PutSetting(const OpenTicket& ticket, const SettingEdit& edit) {
    const std::vector<TicketSettings> all = ReadSettings(ticket.Root);
    const Place place = FindSetting(all, edit.Name);
    Json::Value values = ValuesOf(all, *place.Series);
    if (!IsObjectOrNull(values) || (values.isObject() && !IsObjectOrNull(values[place.Group])))
        throw InputError(ticket.Name, "its settings are no object of objects");
    const bool isNumber = place.Member != nullptr && place.Member->isNumeric() &&
                          std::string_view(place.Group) != SettingsGroups.front();
    values[place.Group][edit.Name] = isNumber ? NumberOrText(*edit.Value) : Json::Value(*edit.Value);
    if (!PutSettings(*ticket.Document, ticket.Root, *place.Series, values))
        throw InputError(ticket.Name + " takes no settings");
    return true;
}

// From each group of each series.
bool TakeSetting(const OpenTicket& ticket, const std::string& name) {
    bool isThere = false;
    for (const TicketSettings& settings : ReadSettings(ticket.Root)) {
        Json::Value values = settings.Values;
        bool isHere = false;
        for (const char* group : SettingsGroups)
            if (FindMember(values, group, name) != nullptr) {
                values[group].removeMember(name);
                isHere = true;
            }
        if (isHere) PutSettings(*ticket.Document, ticket.Root, *settings.Series, values);
        isThere |= isHere;
    }
    return isThere;
}

}  // namespace

void EditSetting(const SettingEdit& edit, Job& job) {
    if (std::ranges::none_of(job.Calls, IsOfJob))
        throw InputError(edit.Said, job.Name + " has no ticket of job level, where settings are read");
    bool isDone = false;
    try {
        EditTickets(job, IsOfJob, [&](const OpenTicket& ticket) {
            const bool done = edit.Value ? PutSetting(ticket, edit) : TakeSetting(ticket, edit.Name);
            isDone |= done;
            return done;
        });
    } catch (const InputError& error) {
        throw InputError(edit.Said, error.what());
    }
    if (!isDone) throw InputError(edit.Said, job.Name + " has no such setting");
}

}  // namespace TicketHost
