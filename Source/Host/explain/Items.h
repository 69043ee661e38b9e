#pragma once

#include <span>
#include <string>
#include <vector>

#include "Host/explain/Explanation.h"
#include "Host/jobs/Job.h"
#include "Host/tickets/Settings.h"

namespace TicketHost {

// A ticket of a job, once however many calls it serves, as it was read.
struct ReadTicket {
    std::shared_ptr<const Ticket> Source;
    Platform::XmlElement Root{};
    std::vector<TicketSettings> Settings{};
    std::size_t FirstCall = 0;         // from 1
    bool IsJobTicket = false;          // whether it serves a call at job level
    std::vector<std::size_t> Calls{};  // all that it serves
};

// Where an item stands, for taking it away.
struct ItemPlace {
    std::size_t Ticket = NoIndex;      // in JobItems::Tickets; NoIndex: in a bag
    std::vector<std::string> Paths{};  // of its elements, as TicketItem::Path
    std::size_t Series = NoIndex;      // in ReadTicket::Settings: what the item is a part of
    std::string Group{}, Member{};     // the item's own in there
    Json::ArrayIndex Entry = 0;        // of a PageEntry
    std::u16string Property{};         // of a bag
};

struct JobItems {
    std::vector<SourceItem> Items;
    std::vector<ItemPlace> Places;  // one for each item
    std::vector<ReadTicket> Tickets;
};

// All that a job says, ticket by ticket in the order of its calls, at last the bags.
JobItems ListItems(const Job& job);

// The name of the setting whose text is the per-page list.
inline constexpr const char* PageListSetting = "PerPagePageDetails";

// The list as the module reads it: what stands ahead of a fault.
Json::Value ReadPageList(const std::string& text);

}  // namespace TicketHost
