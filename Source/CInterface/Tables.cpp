#include "CInterface/Tables.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "devicespecific/ExportedTables.h"

namespace DeviceSpecificModule::CInterface {
namespace {

struct Table {
    std::string_view Name;
    std::int32_t (*GetSize)(std::uint32_t* count);
    std::int32_t (*GetRows)(OptionRecord* rows);
    const OptionRecord* OptionTables::*Slot;
};
constexpr Table tables[] = {
    {"PageMediaSize", GetSizeOfPageMediaSize, GetPageMediaSize, &OptionTables::PageMediaSizes},
    {"PageMediaType", GetSizeOfPageMediaType, GetPageMediaType, &OptionTables::PageMediaTypes},
    {"PageInputBin", GetSizeOfPageInputBin, GetPageInputBin, &OptionTables::PageInputBins},
    {"SimplexPageMode", GetSizeOfSimplexPageMode, GetSimplexPageMode, &OptionTables::SimplexPageModes},
    {"DuplexPageMode", GetSizeOfDuplexPageMode, GetDuplexPageMode, &OptionTables::DuplexPageModes},
};

// By their numbers, from DSM_KEYWORD on.
constexpr WideText OptionRecord::*fields[] = {
    &OptionRecord::Keyword,           &OptionRecord::PairedKeyword,       &OptionRecord::TicketFragment,
    &OptionRecord::JobCommand,        &OptionRecord::FourInOneJobCommand, &OptionRecord::NamespacePrefix,
    &OptionRecord::PostScriptCommand, &OptionRecord::DataCommand,         &OptionRecord::ExtraText,
    &OptionRecord::DeviceName,
};
static_assert(std::size(fields) == DSM_DEVICE_NAME);

std::size_t IndexOf(const char* name) {
    Require(name, "a table's name");
    const auto* found = std::ranges::find(tables, std::string_view(name), &Table::Name);
    if (found != std::end(tables)) return static_cast<std::size_t>(found - tables);
    throw Refusal(DSM_BAD_ARGUMENT, "no table \"" + std::string(name) + "\"");
}

}  // namespace

Tables::Tables() {
    for (std::size_t index = 0; index < rows_.size(); ++index) {
        std::uint32_t count = 0;
        tables[index].GetSize(&count);
        rows_[index].resize(count);
        tables[index].GetRows(rows_[index].data());
        record_.*tables[index].Slot = rows_[index].data();
    }
}

void Tables::Use(std::span<const char* const> names) {
    OptionTables record;
    for (const char* name : names) {
        const std::size_t index = IndexOf(name);
        record.*tables[index].Slot = rows_[index].data();
    }
    record_ = record;
    isUsed_ = true;
}

WideText* Tables::FindField(const char* table, std::size_t row, std::int32_t field) {
    std::vector<OptionRecord>& rows = rows_[IndexOf(table)];
    if (field < DSM_KEYWORD || field > DSM_DEVICE_NAME)
        throw Refusal(DSM_BAD_ARGUMENT, "no field " + std::to_string(field));
    return row < rows.size() - 1 ? &(rows[row].*fields[field - DSM_KEYWORD]) : nullptr;
}

}  // namespace DeviceSpecificModule::CInterface
