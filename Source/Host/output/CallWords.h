#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Host/jobs/JobRunner.h"

namespace TicketHost {

// How a call and what came of it are called in whatever a person reads.

// "job level", "document level" or "page level", with the number where it isn't the usual one.
std::string NameOfLevel(std::int32_t level);

// What an error's own message leaves unsaid; empty where that is nothing.
std::string ExplainError(const CallError& error);

// "calls 1, 3 to 9", from numbers that grow.
std::string NameCalls(const std::vector<std::size_t>& numbers);

// Whether a line of "DATA" begins a page: "Page_" and a number.
bool IsPageMarker(std::string_view line);

}  // namespace TicketHost
