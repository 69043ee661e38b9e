#pragma once

#include <cstdint>
#include <string_view>

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// How many pieces of custom property text a ticket announces for a level ("Job", "Doc" or "Page"); -1 when it
// announces none.
std::int32_t GetCustomCount(const TicketDocument& ticket, std::u16string_view level);

// Joins the numbered pieces of the ticket's three series of custom property text (job, document, page),
// parses each series as one JSON document and merges them into `properties`, a later one over an earlier one.
// Missing pieces are passed over; of a malformed document what was read ahead of the error counts. A null
// ticket changes nothing. Throws the JSON library's errors for documents of the wrong shape, and
// std::length_error for a series of more than 1000 pieces; `properties` is then as it was.
void ReadCustomProperties(const TicketDocument& ticket, SharedJson& properties);

}  // namespace DeviceSpecificModule
