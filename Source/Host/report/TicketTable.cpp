#include "Host/report/TicketTable.h"

#include <map>

namespace TicketHost {
namespace {

struct Entry {
    std::string Key;  // the names on the way to it, with numbers that tell those of one name apart
    std::string Name;
    std::size_t Level;
    std::string Value;
};

struct Entries {
    std::vector<Entry> InOrder;
    std::map<std::string, std::size_t> Places;  // by their keys
    std::map<std::string, int> Counts;          // of those of one name, ahead of their numbers
};

std::string ValueOf(const TicketItem& item) {
    if (item.Kind != ItemKind::Feature) return item.Reference.empty() ? item.Value : "= " + item.Reference;
    std::string chosen;
    for (const TicketItem& option : item.Items)
        if (option.Kind == ItemKind::Option) chosen += (chosen.empty() ? "" : ", ") + option.Name;
    return chosen;
}

// An option has no entry of its own: it is its feature's value, and what stands in it stands in the feature.
void AddEntries(const std::vector<TicketItem>& items, const std::string& path, std::size_t level,
                Entries& entries) {
    for (const TicketItem& item : items) {
        if (item.Kind == ItemKind::Option) {
            AddEntries(item.Items, path, level, entries);
            continue;
        }
        const std::string name = path + "/" + item.Space + ":" + item.Local;
        const std::string key = name + "#" + std::to_string(++entries.Counts[name]);
        entries.Places[key] = entries.InOrder.size();
        entries.InOrder.push_back({key, item.Name, level, ValueOf(item)});
        AddEntries(item.Items, key, level + 1, entries);
    }
}

Entries EntriesOf(const std::vector<TicketItem>& items) {
    Entries entries;
    AddEntries(items, "", 0, entries);
    return entries;
}

}  // namespace

std::vector<TicketRow> CompareItems(const std::vector<TicketItem>& before,
                                    const std::vector<TicketItem>& after) {
    const Entries left = EntriesOf(before), right = EntriesOf(after);
    std::vector<TicketRow> rows;
    for (const Entry& entry : left.InOrder) {
        rows.push_back({entry.Name, entry.Level, entry.Value, {}});
        const auto still = right.Places.find(entry.Key);
        if (still != right.Places.end()) rows.back().After = right.InOrder[still->second].Value;
    }
    for (const Entry& entry : right.InOrder)
        if (!left.Places.contains(entry.Key)) rows.push_back({entry.Name, entry.Level, {}, entry.Value});
    return rows;
}

}  // namespace TicketHost
