#include "TicketCalls.h"

#include <algorithm>

#include "devicespecific/DeviceSpecificModule.h"

namespace Fuzz {
namespace {

constexpr std::size_t mostCalls = 8;

// -1 for what is no call.
std::int32_t LevelOf(char letter) {
    switch (letter | 0x20) {
        case 'j':
            return DeviceSpecificModule::JobLevel;
        case 'd':
            return DeviceSpecificModule::DocumentLevel;
        case 'p':
            return DeviceSpecificModule::PageLevel;
        default:
            return -1;
    }
}

}  // namespace

std::vector<TicketCall> ReadTicketCalls(std::string_view input) {
    std::string_view order = "jdp";
    if (!input.starts_with('<')) {
        order = input.substr(0, input.find('\n'));
        input.remove_prefix(std::min(order.size() + 1, input.size()));
    }
    const std::vector<std::string_view> tickets = SplitParts(input);
    std::vector<TicketCall> calls;
    std::size_t next = 0;
    TicketDocument ticket;
    for (const char letter : order) {
        const std::int32_t level = LevelOf(letter);
        if (level < 0) continue;
        const bool isFresh = letter >= 'a';
        if (isFresh) ticket = LoadTicket(tickets[next++ % tickets.size()]);
        if (ticket) calls.push_back({level, ticket});
        if (calls.size() == mostCalls) break;
    }
    return calls;
}

}  // namespace Fuzz
