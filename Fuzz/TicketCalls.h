#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "Contract.h"

namespace Fuzz {

// Tickets with the order of the calls to make on them, as the input of a target writes them:
//
//   ORDER LF TICKET LF %% LF TICKET ...
//
// Each letter of the order is a call, the first eight of them: "j", "d" and "p" convert the next of the
// tickets, which go round, at job, document and page level; a capital converts the ticket of the call before
// once more. An input that begins with "<" has the order "jdp".
struct TicketCall {
    std::int32_t Level;
    TicketDocument Ticket;
};

// The calls on tickets that load, each on a document of its own but where a capital says otherwise.
std::vector<TicketCall> ReadTicketCalls(std::string_view input);

}  // namespace Fuzz
