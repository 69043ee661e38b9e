#include "Host/tickets/SettingsChanges.h"

#include <algorithm>
#include <set>
#include <string>

#include "Host/ground/Texts.h"

namespace TicketHost {
namespace {

const TicketSettings* Find(const std::vector<TicketSettings>& all, const SettingsSeries& series) {
    const auto found = std::ranges::find(all, &series, &TicketSettings::Series);
    return found == all.end() ? nullptr : &*found;
}

// A series that isn't there says nothing.
const TicketSettings& OrEmpty(const TicketSettings* settings) {
    static const TicketSettings empty = [] {
        TicketSettings none;
        none.IsWellFormed = true;
        return none;
    }();
    return settings == nullptr ? empty : *settings;
}

std::string Shown(const Json::Value& value) {
    if (!value.isString()) return Visible(WriteSettings(value));
    const std::string text = value.asString();
    return text.empty() || text.front() == ' ' || text.back() == ' ' ? '"' + Visible(text) + '"'
                                                                     : Visible(text);
}

TicketChange ChangeOf(std::string subject, const Json::Value* before, const Json::Value* after) {
    if (before == nullptr) return {ChangeKind::Added, std::move(subject), "", Shown(*after)};
    if (after == nullptr) return {ChangeKind::Removed, std::move(subject), Shown(*before), ""};
    std::string was = Shown(*before), is = Shown(*after);
    if (was == is) was = Visible(WriteSettings(*before)), is = Visible(WriteSettings(*after));
    return {ChangeKind::Changed, std::move(subject), std::move(was), std::move(is)};
}

const Json::Value* Member(const Json::Value& object, const std::string& name) {
    return object.isObject() ? object.find(name.data(), name.data() + name.size()) : nullptr;
}

bool AreSame(const Json::Value* left, const Json::Value* right) {
    return left == nullptr || right == nullptr ? left == right : *left == *right;
}

void AddMembers(const Json::Value& before, const Json::Value& after, const std::string& where,
                std::vector<TicketChange>& changes) {
    std::set<std::string> names;
    for (const Json::Value* each : {&before, &after})
        if (each->isObject())
            for (const std::string& name : each->getMemberNames()) names.insert(name);
    for (const std::string& name : names) {
        const Json::Value *was = Member(before, name), *is = Member(after, name);
        if (!AreSame(was, is)) changes.push_back(ChangeOf("setting " + Visible(name) + where, was, is));
    }
}

// Takes a group's members out of the values, so that what is left is what nobody reads.
Json::Value TakeGroup(Json::Value& values, const char* group) {
    Json::Value members;
    if (values.isObject() && values.isMember(group) && values[group].isObject())
        values.removeMember(group, &members);
    return members;
}

// The count and the pieces that it counts, as they stand.
std::vector<std::string> RawTextsOf(const TicketSettings& settings) {
    std::vector<std::string> texts = {settings.CountText};
    for (const SettingsPiece& piece : settings.Pieces)
        if (IsCounted(settings, piece)) texts.push_back(std::to_string(piece.Index) + ":" + piece.Text);
    return texts;
}

void AddSeries(const SettingsSeries& series, const TicketSettings& before, const TicketSettings& after,
               std::vector<TicketChange>& changes) {
    const std::size_t known = changes.size();
    const bool isJobs = &series == &AllSettingsSeries.front();
    const std::string scope = isJobs ? "" : " of the " + std::string(series.Scope);
    Json::Value was = before.Values, is = after.Values;
    for (const char* group : SettingsGroups) {
        const std::string where =
            std::string_view(group) == SettingsGroups[0] ? scope : " in " + std::string(group) + scope;
        const Json::Value membersBefore = TakeGroup(was, group), membersAfter = TakeGroup(is, group);
        AddMembers(membersBefore, membersAfter, where, changes);
    }
    const std::string all = "settings of the " + std::string(series.Scope);
    if (was != is && !(was.empty() && is.empty()))
        changes.push_back(ChangeOf(all + " beside features and paraminits", &was, &is));
    if (changes.size() == known && RawTextsOf(before) != RawTextsOf(after))
        changes.push_back({ChangeKind::Rewritten, all, "", ""});
}

// The names and places of the parameters that make up a series.
std::set<std::string> PathsOf(const TicketSettings& settings) {
    std::set<std::string> paths;
    if (settings.Series != nullptr) paths.insert(settings.CountPath);
    for (const SettingsPiece& piece : settings.Pieces)
        if (IsCounted(settings, piece)) paths.insert(piece.Path);
    return paths;
}

std::set<std::string> NamesOf(const std::set<std::string>& paths, const TicketItem& root) {
    std::set<std::string> names;
    for (const TicketItem& item : root.Items)
        if (paths.contains(item.Path)) names.insert(item.Local);
    return names;
}

// Of those that the other ticket has, too, all stays but the value.
void Hide(const std::set<std::string>& paths, const std::set<std::string>& others, TicketItem& root) {
    std::erase_if(root.Items, [&](TicketItem& item) {
        if (!paths.contains(item.Path)) return false;
        item.Value.clear();
        return !others.contains(item.Local);
    });
}

}  // namespace

std::vector<TicketChange> TakeSettingsChanges(const std::vector<TicketSettings>& before,
                                              TicketItem& rootBefore,
                                              const std::vector<TicketSettings>& after,
                                              TicketItem& rootAfter) {
    std::vector<TicketChange> changes;
    for (const SettingsSeries& series : AllSettingsSeries) {
        const TicketSettings& was = OrEmpty(Find(before, series));
        const TicketSettings& is = OrEmpty(Find(after, series));
        if (!was.IsWellFormed || !is.IsWellFormed) continue;
        AddSeries(series, was, is, changes);
        const std::set<std::string> pathsBefore = PathsOf(was), pathsAfter = PathsOf(is);
        const std::set<std::string> namesBefore = NamesOf(pathsBefore, rootBefore);
        const std::set<std::string> namesAfter = NamesOf(pathsAfter, rootAfter);
        Hide(pathsBefore, namesAfter, rootBefore);
        Hide(pathsAfter, namesBefore, rootAfter);
    }
    return changes;
}

}  // namespace TicketHost
