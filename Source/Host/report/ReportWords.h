#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace TicketHost {

// "1 call", "2 calls".
inline std::string CountOf(std::size_t count, std::string_view one) {
    return std::to_string(count) + " " + std::string(one) + (count == 1 ? "" : "s");
}

}  // namespace TicketHost
