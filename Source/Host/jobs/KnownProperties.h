#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TicketHost {

enum class Bag { Pipeline, Driver, Queue };

// Whether the module ever asks a bag for a property of this name.
bool IsPropertyRead(Bag bag, std::string_view name);

// The names that it asks a bag for, but for those that depend on the job.
std::vector<std::string_view> PropertiesRead(Bag bag);

}  // namespace TicketHost
