#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "devicespecific/OptionRecord.h"

namespace TicketHost {

using DeviceSpecificModule::OptionRecord;
using DeviceSpecificModule::OptionTables;

// The names of the tables that the module exports, in the order of their slots.
inline constexpr std::array<std::string_view, 5> OptionTableNames = {
    "PageMediaSize", "PageMediaType", "PageInputBin", "SimplexPageMode", "DuplexPageMode"};

bool IsOptionTableName(std::string_view name);
// The names as a sentence gives them: "A, B, C".
std::string ListOptionTableNames();
// The end of a message about an unknown table, which shall appear as `shown`: with the name that is near, or
// all of them.
std::string DescribeUnknownTable(std::string_view name, const std::string& shown);

// A host's own copy of one exported table, with the row that ends it. The name must be one of the above.
std::vector<OptionRecord> CopyOptionTable(std::string_view name);

// A record for the module with the host's copies of the named tables; the other slots are null.
class OptionTableSet {
public:
    explicit OptionTableSet(std::span<const std::string> names);
    OptionTableSet(const OptionTableSet&) = delete;
    OptionTableSet& operator=(const OptionTableSet&) = delete;

    const OptionTables* Record() const { return &record_; }

private:
    std::vector<std::vector<OptionRecord>> tables_;
    OptionTables record_;
};

}  // namespace TicketHost
