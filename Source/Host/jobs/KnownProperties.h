#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace TicketHost {

enum class Bag { Pipeline, Driver, Queue };

enum class PropertyType { Text, Number, Other };

// A property that the module reads, and what its value must be to count.
struct KnownProperty {
    std::string_view Name;  // in the driver's bag with the series behind it, which the pipeline names
    Bag In;
    PropertyType Type;
};
std::span<const KnownProperty> KnownProperties();

// Whether the module ever asks a bag for a property of this name.
bool IsPropertyRead(Bag bag, std::string_view name);

// The names that it asks a bag for, but for those that depend on the job.
std::vector<std::string_view> PropertiesRead(Bag bag);

}  // namespace TicketHost
