#include "Host/explain/Items.h"

#include <json/reader.h>

#include <algorithm>
#include <map>

#include "Host/ground/Texts.h"
#include "devicespecific/DeviceSpecificModule.h"

namespace TicketHost {
namespace {

constexpr std::size_t longestValue = 60;  // characters in a label

std::string ShownValue(const std::string& value) { return Shortened(Visible(value), longestValue); }

SourceKind KindOf(ItemKind kind) {
    constexpr SourceKind kinds[] = {SourceKind::Feature,  SourceKind::Option,    SourceKind::ScoredProperty,
                                    SourceKind::Property, SourceKind::Parameter, SourceKind::Element};
    return kinds[static_cast<int>(kind)];
}

// What a person sees of a value that the JSON of a setting holds.
std::string TextOf(const Json::Value& value) {
    return value.isString() ? value.asString() : WriteSettings(value);
}

// Adds the items of one ticket to those of the job.
class TicketLister {
public:
    TicketLister(JobItems& all, std::size_t ticket)
        : all_(all), ticket_(ticket), source_(all.Tickets[ticket]) {}

    void List() {
        for (const TicketItem& item : ItemsOf(source_.Root))
            if (!IsOfSeries(item.Path)) AddItem(item, NoIndex, "");
        for (std::size_t series = 0; series < source_.Settings.size(); ++series) AddSeries(series);
    }

private:
    bool IsOfSeries(const std::string& path) const;
    std::size_t Add(SourceItem item, ItemPlace place);
    void AddItem(const TicketItem& item, std::size_t parent, const std::string& labelOfParent);
    void AddSeries(std::size_t series);
    void AddSetting(const ItemPlace& place, std::size_t parent, const Json::Value& value);
    void AddPageEntries(const ItemPlace& setting, std::size_t parent, const Json::Value& value);
    int LineOf(const TicketSettings& settings, std::ptrdiff_t byte) const;

    JobItems& all_;
    std::size_t ticket_;
    const ReadTicket& source_;
};

// A count and the pieces that it counts are no parameters of their own.
bool TicketLister::IsOfSeries(const std::string& path) const {
    return std::ranges::any_of(source_.Settings, [&](const TicketSettings& settings) {
        return settings.CountPath == path || std::ranges::any_of(settings.Pieces, [&](const auto& piece) {
                   return IsCounted(settings, piece) && piece.Path == path;
               });
    });
}

std::size_t TicketLister::Add(SourceItem item, ItemPlace place) {
    item.File = source_.Source->Name;
    item.Call = source_.FirstCall;
    item.Ticket = place.Ticket = ticket_;
    all_.Items.push_back(std::move(item));
    all_.Places.push_back(std::move(place));
    return all_.Items.size() - 1;
}

void TicketLister::AddItem(const TicketItem& item, std::size_t parent, const std::string& labelOfParent) {
    SourceItem source{KindOf(item.Kind), Visible(item.Name), Visible(item.Value)};
    const std::string value = ShownValue(item.Value);
    source.Label = labelOfParent + source.Name + (value.empty() ? "" : " = " + value);
    const std::string labelForItems = source.Label + ": ";
    if (item.Kind == ItemKind::Feature)
        if (const TicketItem* option = ChosenOption(item)) source.Label += " (" + Visible(option->Name) + ")";
    source.Line = item.Line;
    source.Parent = parent;
    const std::size_t index = Add(std::move(source), {.Paths = {item.Path}});
    for (const TicketItem& inner : item.Items) AddItem(inner, index, labelForItems);
}

void TicketLister::AddSeries(std::size_t series) {
    const TicketSettings& settings = source_.Settings[series];
    ItemPlace place{.Paths = {settings.CountPath}, .Series = series};
    for (const SettingsPiece& piece : settings.Pieces)
        if (IsCounted(settings, piece)) place.Paths.push_back(piece.Path);
    SourceItem source{SourceKind::Series, std::string(settings.Series->Scope) + " settings"};
    source.Label = source.Name;
    source.Line = settings.Line;
    const std::size_t index = Add(std::move(source), std::move(place));
    if (!settings.Values.isObject()) return;
    for (const char* group : SettingsGroups) {
        const Json::Value& members = settings.Values[group];
        if (!members.isObject()) continue;
        std::vector<std::string> names = members.getMemberNames();
        std::ranges::sort(names, {}, [&](const auto& name) { return members[name].getOffsetStart(); });
        for (const std::string& name : names)
            AddSetting({.Series = series, .Group = group, .Member = name}, index, members[name]);
    }
}

void TicketLister::AddSetting(const ItemPlace& place, std::size_t parent, const Json::Value& value) {
    const TicketSettings& settings = source_.Settings[place.Series];
    SourceItem source{SourceKind::Setting, Visible(place.Member), Visible(TextOf(value))};
    const std::string where = " (" + std::string(settings.Series->Scope) + " " + place.Group + ")";
    source.Label = source.Name + " = " + ShownValue(TextOf(value)) + where;
    source.Line = LineOf(settings, value.getOffsetStart());
    source.Parent = parent;
    const std::size_t index = Add(std::move(source), place);
    if (place.Member == PageListSetting && value.isString()) AddPageEntries(place, index, value);
}

void TicketLister::AddPageEntries(const ItemPlace& setting, std::size_t parent, const Json::Value& value) {
    const Json::Value list = ReadPageList(value.asString());
    if (!list.isArray()) return;
    for (Json::ArrayIndex entry = 0; entry < list.size(); ++entry) {
        SourceItem source{SourceKind::PageEntry};
        source.Name = std::string(PageListSetting) + "[" + std::to_string(entry) + "]";
        source.Value = Visible(WriteSettings(list[entry]));
        const Json::Value page = list[entry].isObject() ? list[entry]["PageNumber"] : Json::Value();
        source.Label = source.Name + (page.isNull() ? "" : " (pages " + ShownValue(TextOf(page)) + ")");
        source.Line = all_.Items[parent].Line;
        source.Parent = parent;
        ItemPlace place = setting;
        place.Entry = entry;
        Add(std::move(source), std::move(place));
    }
}

// The line of a byte of the joined text, as far as it is known.
int TicketLister::LineOf(const TicketSettings& settings, std::ptrdiff_t byte) const {
    const auto [piece, at] = PlaceInPieces(settings, static_cast<std::size_t>(byte));
    if (piece.Line == 0) return settings.Line;
    const auto end = piece.Text.begin() + static_cast<std::ptrdiff_t>(at);
    return piece.Line + static_cast<int>(std::count(piece.Text.begin(), end, '\n'));
}

void ListTickets(const Job& job, JobItems& all) {
    std::map<const Ticket*, std::size_t> known;
    for (std::size_t call = 0; call < job.Calls.size(); ++call) {
        const auto [found, isNew] = known.try_emplace(job.Calls[call].Source.get(), all.Tickets.size());
        if (isNew) {
            Platform::ParseError ignored;  // it was found to load
            const auto read = [&](const auto& content) { return Platform::ReadXml(content, ignored); };
            ReadTicket ticket{job.Calls[call].Source};
            if (auto root = std::visit(read, ticket.Source->Content)) ticket.Root = std::move(*root);
            ticket.Settings = ReadSettings(ticket.Root);
            ticket.FirstCall = call + 1;
            all.Tickets.push_back(std::move(ticket));
        }
        ReadTicket& ticket = all.Tickets[found->second];
        ticket.Calls.push_back(call + 1);
        if (job.Calls[call].Level == DeviceSpecificModule::JobLevel) ticket.IsJobTicket = true;
    }
}

template <typename Properties>
void ListBag(const Job& job, SourceKind kind, const char* bag, const Properties& properties, JobItems& all) {
    for (const auto& [name, value] : properties) {
        SourceItem source{kind, Visible(ToUtf8(name))};
        source.Value = std::visit([](const auto& held) { return DescribeValue(held); }, value);
        source.Label = std::string(bag) + " " + source.Name + " = " + Shortened(source.Value, longestValue);
        source.File = job.Name;
        source.Call = 1;
        all.Items.push_back(std::move(source));
        all.Places.push_back({.Property = name});
    }
}

}  // namespace

JobItems ListItems(const Job& job) {
    JobItems all;
    ListTickets(job, all);
    for (std::size_t ticket = 0; ticket < all.Tickets.size(); ++ticket) TicketLister(all, ticket).List();
    ListBag(job, SourceKind::PipelineProperty, "pipeline", job.Settings.Pipeline, all);
    ListBag(job, SourceKind::DriverProperty, "driver", job.Settings.Driver, all);
    ListBag(job, SourceKind::QueueProperty, "queue", job.Settings.Queue, all);
    return all;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
Json::Value ReadPageList(const std::string& text) {
    Json::Value list;
    try {
        Json::Reader().parse(text, list, false);
    } catch (const Json::Exception&) {
        return Json::Value();
    }
    return list;
}
#pragma GCC diagnostic pop

}  // namespace TicketHost
