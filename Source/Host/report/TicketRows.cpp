#include "Host/report/TicketRows.h"

namespace TicketHost {
namespace {

std::string ValueOf(const TicketItem& item) {
    if (item.Kind != ItemKind::Feature) return item.Reference.empty() ? item.Value : "= " + item.Reference;
    std::string chosen;
    for (const TicketItem& option : item.Items)
        if (option.Kind == ItemKind::Option) chosen += (chosen.empty() ? "" : ", ") + option.Name;
    return chosen;
}

void AddRows(const std::vector<TicketItem>& items, std::size_t level, std::vector<TicketRow>& rows) {
    for (const TicketItem& item : items) {
        const bool isOption = item.Kind == ItemKind::Option;
        if (!isOption) rows.push_back({item.Name, level, ValueOf(item)});
        AddRows(item.Items, isOption ? level : level + 1, rows);
    }
}

}  // namespace

std::vector<TicketRow> TicketRowsOf(const std::vector<TicketItem>& ticket) {
    std::vector<TicketRow> rows;
    AddRows(ticket, 0, rows);
    return rows;
}

}  // namespace TicketHost
