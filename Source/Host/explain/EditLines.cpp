#include "Host/explain/EditLines.h"

#include <algorithm>
#include <map>

#include "Host/tickets/PrintTicket.h"

namespace TicketHost {
namespace {

std::string Describe(const TicketItem& item) {
    std::string text = item.Value;
    for (const TicketItem& inner : item.Items) {
        const std::string said = Describe(inner);
        text += (text.empty() ? "" : ", ") + inner.Name + (said.empty() ? "" : " " + said);
    }
    return text;
}

using Said = std::map<std::string, std::vector<std::string>>;

Said ReadItems(const Platform::WideText& ticket) {
    Platform::ParseError ignored;
    Said said;
    if (const auto root = Platform::ReadXml(ticket, ignored))
        for (const TicketItem& item : ItemsOf(*root)) said[item.Name].push_back(Describe(item));
    return said;
}

}  // namespace

std::vector<EditLine> EditLinesOf(const Platform::WideText& before, const Platform::WideText& after) {
    std::vector<EditLine> lines;
    if (before == after) return lines;
    Said left = ReadItems(before), right = ReadItems(after);
    for (const auto& [name, items] : right) left.try_emplace(name);
    for (const auto& [name, items] : left) {
        const std::vector<std::string>& others = right[name];
        for (std::size_t at = 0; at < std::max(items.size(), others.size()); ++at) {
            if (at >= others.size())
                lines.push_back({name, name + " (" + items[at] + ") is gone"});
            else if (at >= items.size())
                lines.push_back({name, name + " is new: " + others[at]});
            else if (items[at] != others[at])
                lines.push_back({name, name + ": " + items[at] + " -> " + others[at]});
        }
    }
    return lines;
}

}  // namespace TicketHost
