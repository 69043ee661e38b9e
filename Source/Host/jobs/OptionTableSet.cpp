#include "Host/jobs/OptionTableSet.h"

#include <algorithm>
#include <stdexcept>

#include "Host/ground/Nearest.h"
#include "devicespecific/ExportedTables.h"

namespace TicketHost {
namespace {

using namespace DeviceSpecificModule;

struct ExportedTable {
    std::int32_t (*GetSize)(std::uint32_t* count);
    std::int32_t (*GetRows)(OptionRecord* rows);
    const OptionRecord* OptionTables::*Slot;
};

// In the order of OptionTableNames.
constexpr ExportedTable exportedTables[] = {
    {GetSizeOfPageMediaSize, GetPageMediaSize, &OptionTables::PageMediaSizes},
    {GetSizeOfPageMediaType, GetPageMediaType, &OptionTables::PageMediaTypes},
    {GetSizeOfPageInputBin, GetPageInputBin, &OptionTables::PageInputBins},
    {GetSizeOfSimplexPageMode, GetSimplexPageMode, &OptionTables::SimplexPageModes},
    {GetSizeOfDuplexPageMode, GetDuplexPageMode, &OptionTables::DuplexPageModes},
};
static_assert(std::size(exportedTables) == OptionTableNames.size());

const ExportedTable& FindTable(std::string_view name) {
    const auto found = std::find(OptionTableNames.begin(), OptionTableNames.end(), name);
    if (found == OptionTableNames.end()) throw std::logic_error("no such option table");
    return exportedTables[found - OptionTableNames.begin()];
}

}  // namespace

bool IsOptionTableName(std::string_view name) {
    return std::find(OptionTableNames.begin(), OptionTableNames.end(), name) != OptionTableNames.end();
}

std::string ListOptionTableNames() {
    std::string list;
    for (const std::string_view name : OptionTableNames) list.append(list.empty() ? "" : ", ").append(name);
    return list;
}

std::string DescribeUnknownTable(std::string_view name, const std::string& shown) {
    const std::string hint = DidYouMean(name, OptionTableNames);
    return shown + (hint.empty() ? "; the tables are " + ListOptionTableNames() : hint);
}

std::vector<OptionRecord> CopyOptionTable(std::string_view name) {
    const ExportedTable& table = FindTable(name);
    std::uint32_t count = 0;
    table.GetSize(&count);
    std::vector<OptionRecord> rows(count);
    table.GetRows(rows.data());
    return rows;
}

OptionTableSet::OptionTableSet(std::span<const std::string> names) {
    tables_.reserve(names.size());
    for (const std::string& name : names) {
        tables_.push_back(CopyOptionTable(name));
        record_.*FindTable(name).Slot = tables_.back().data();
    }
}

}  // namespace TicketHost
