#pragma once

#include <span>

#include "Host/explain/Items.h"

namespace TicketHost {

// The job without some of its items, each taken out of wherever it stands. What stands in one of them goes
// with it. The tickets that hold none of them stay the very same objects, so who compares knows them by that.
Job WithoutItems(const Job& job, const JobItems& all, std::span<const std::size_t> items);

}  // namespace TicketHost
