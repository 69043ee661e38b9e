#include "Host/explain/Variants.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <tuple>

#include "Host/tickets/TicketEdits.h"

namespace TicketHost {
namespace {

// What goes out of one ticket.
struct TicketCuts {
    std::vector<std::string> Paths;
    // By series, group, member and entry from the last on; the greatest entry stands for the whole member,
    // which so comes ahead of its entries.
    std::set<std::tuple<std::size_t, std::string, std::string, Json::ArrayIndex>, std::greater<>> Settings;
};

constexpr auto wholeMember = std::numeric_limits<Json::ArrayIndex>::max();

std::vector<int> PositionsOf(const std::string& path) {
    std::vector<int> positions;
    for (std::size_t at = path.find('['); at != path.npos; at = path.find('[', at + 1)) {
        positions.push_back(0);
        std::from_chars(path.data() + at + 1, path.data() + path.size(), positions.back());
    }
    return positions;
}

// The last of the document first, so that the paths of the others stay good.
void OrderFromTheLast(std::vector<std::string>& paths) {
    std::ranges::sort(paths, std::greater<>(), PositionsOf);
}

void RemoveFromList(Json::Value& list, Json::ArrayIndex entry) {
    Json::Value array = ReadPageList(list.asString());
    array.removeIndex(entry, nullptr);
    list = WriteSettings(array);
}

// Entries of one list go from the last on.
void CutSettings(Platform::IXMLDOMDocument2& ticket, const ReadTicket& read, const TicketCuts& cuts) {
    std::map<std::size_t, Json::Value> changed;
    for (const auto& [series, group, member, entry] : cuts.Settings) {
        Json::Value& values = changed.try_emplace(series, read.Settings[series].Values).first->second;
        if (!values[group].isMember(member)) continue;
        if (entry == wholeMember)
            values[group].removeMember(member);
        else
            RemoveFromList(values[group][member], entry);
    }
    for (const auto& [series, values] : changed)
        PutSettings(ticket, read.Root, *read.Settings[series].Series, values);
}

std::shared_ptr<const Ticket> Cut(const ReadTicket& read, TicketCuts cuts) {
    const Platform::TicketDocument document = LoadTicket(*read.Source);
    CutSettings(*document, read, cuts);
    OrderFromTheLast(cuts.Paths);
    for (const std::string& path : cuts.Paths) RemoveElement(*document, path);
    return std::make_shared<Ticket>(Ticket{read.Source->Name, document->xml()});
}

void AddCut(const SourceItem& item, const ItemPlace& place, TicketCuts& cuts) {
    if (item.Kind == SourceKind::Setting)
        cuts.Settings.emplace(place.Series, place.Group, place.Member, wholeMember);
    else if (item.Kind == SourceKind::PageEntry)
        cuts.Settings.emplace(place.Series, place.Group, place.Member, place.Entry);
    else
        cuts.Paths.insert(cuts.Paths.end(), place.Paths.begin(), place.Paths.end());
}

void RemoveProperty(JobSettings& settings, SourceKind kind, const std::u16string& name) {
    if (kind == SourceKind::PipelineProperty) settings.Pipeline.erase(name);
    if (kind == SourceKind::DriverProperty) settings.Driver.erase(name);
    if (kind == SourceKind::QueueProperty) settings.Queue.erase(name);
}

}  // namespace

Job WithoutItems(const Job& job, const JobItems& all, std::span<const std::size_t> items) {
    Job variant = job;
    std::map<std::size_t, TicketCuts> cuts;
    for (const std::size_t item : items) {
        const ItemPlace& place = all.Places[item];
        if (place.Ticket == NoIndex)
            RemoveProperty(variant.Settings, all.Items[item].Kind, place.Property);
        else
            AddCut(all.Items[item], place, cuts[place.Ticket]);
    }
    for (auto& [ticket, cut] : cuts) {
        const std::shared_ptr<const Ticket> without = Cut(all.Tickets[ticket], std::move(cut));
        for (const std::size_t call : all.Tickets[ticket].Calls)
            if (call <= variant.Calls.size()) variant.Calls[call - 1].Source = without;
    }
    return variant;
}

}  // namespace TicketHost
