#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "conversion/PTConverter.h"
#include "tables/KeywordCommand.h"

namespace DeviceSpecificModule {

// Which of the converter's texts receives a command.
enum class CommandTarget : std::uint32_t {
    Pjl = 0,
    Data = 1,
    DataToo = 2,
    // any value above: none; the command is worked out and dropped
};

// One line of a stage's list.
struct FeatureRow {
    std::u16string_view Feature;  // may be empty
    KeywordCommandTable Table;
    std::optional<std::u16string_view> Gate = {};       // a setting that must be on for the row to count
    std::optional<std::u16string_view> Parameter = {};  // the setting that fills a format table
    CommandTarget Target = CommandTarget::Pjl;
};

using FeatureList = std::span<const FeatureRow>;

// What a row whose gate is "Off", "Host" or empty does to the list.
enum class GateRule { PassOverRow, EndList };

// Appends the command for a user setting. Of an option table, the command of the first row that equals the
// setting's value. Of a format table, the format with the named settings filled in, in order, and as it is
// without any; when one of them is empty, nothing at all. The ticket is not read.
void ApplySettingCommand(PTConverter& converter, std::u16string_view feature, KeywordCommandTable table,
                         ParameterList parameters, CommandTarget target);

// Appends the command of the first row that equals the ticket's option for a feature. The orientation is
// turned over first when the job puts 2 or 6 pages on a sheet. The user settings are not read.
void ApplyTicketCommand(PTConverter& converter, const TicketDocument& ticket, std::u16string_view feature,
                        KeywordCommandTable table, CommandTarget target);

// Applies the rows of a list as settings, in order. A row's gate is looked up ahead of its setting.
void RunFeatureList(PTConverter& converter, FeatureList list, GateRule rule);

// The first row with this keyword, null when there is none.
const KeywordCommand* FindKeyword(KeywordCommandTable table, std::u16string_view keyword);

}  // namespace DeviceSpecificModule
