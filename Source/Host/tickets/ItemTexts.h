#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "Host/tickets/PrintTicket.h"

namespace TicketHost {

// What an item of a ticket says, for a person.

// The value of an item: a length of the published keywords, which is in micrometres, in millimetres, as in
// "148.512 mm"; any other as it stands, in quotes where it is empty or has blanks at an end.
std::string ShownValue(const TicketItem& item);

// Two different values, shown so that they differ.
std::pair<std::string, std::string> ShownValues(const TicketItem& before, const TicketItem& after);

// Two different names "{namespace}local": without the namespace if they differ so.
std::pair<std::string, std::string> ShownNames(const std::string& before, const std::string& after);

// The item in short, without its own name unless it is an option: "Normal" for a feature, "Custom 148.512 x
// 105 mm", "none (Width 5)". A size that an option's name implies is left out. `root` is what the item stands
// in, by whose parameters references are shown.
std::string Summary(const TicketItem& item, const TicketItem& root);

}  // namespace TicketHost
