#include "stages/FeatureEngine.h"

#include <algorithm>

#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

void Send(PTConverter& converter, std::u16string_view command, CommandTarget target) {
    switch (target) {
        case CommandTarget::Pjl:
            AppendWideChars(converter.PjlText, command);
            break;
        case CommandTarget::Data:
        case CommandTarget::DataToo:
            AppendWideChars(converter.DataText, command);
            break;
    }
}

void SendKeyword(PTConverter& converter, KeywordCommandTable table, std::u16string_view keyword,
                 CommandTarget target) {
    const KeywordCommand* row = FindKeyword(table, keyword);
    if (row != nullptr) Send(converter, row->Command, target);
}

void SendFormat(PTConverter& converter, std::u16string_view format, ParameterList parameters,
                CommandTarget target) {
    WideText command(format);
    for (const std::u16string_view name : parameters) {
        const WideText value = LookupCustomProperty(converter.CustomProperties, name);
        if (value.IsEmpty()) return;
        FillFirstPlaceholder(command, value.View());
    }
    Send(converter, command.View(), target);
}

// Pages that share a sheet by two or six stand across its orientation.
std::u16string_view TurnOver(std::u16string_view orientation) {
    return orientation == u"psk:Landscape" ? u"psk:Portrait" : u"psk:Landscape";
}

bool IsGateOpen(const PTConverter& converter, const std::optional<std::u16string_view>& gate) {
    if (!gate) return true;
    const WideText value = LookupCustomProperty(converter.CustomProperties, *gate);
    return !value.IsEmpty() && value != u"Off" && value != u"Host";
}

ParameterList ParametersOf(const FeatureRow& row) {
    return row.Parameter ? ParameterList(&*row.Parameter, 1) : ParameterList();
}

}  // namespace

const KeywordCommand* FindKeyword(KeywordCommandTable table, std::u16string_view keyword) {
    const auto row = std::ranges::find(table, keyword, &KeywordCommand::Keyword);
    return row == table.end() ? nullptr : &*row;
}

void ApplySettingCommand(PTConverter& converter, std::u16string_view feature, KeywordCommandTable table,
                         ParameterList parameters, CommandTarget target) {
    if (IsFormatTable(table)) return SendFormat(converter, table[0].Command, parameters, target);
    const WideText value = LookupCustomProperty(converter.CustomProperties, feature);
    if (!value.IsEmpty()) SendKeyword(converter, table, value.View(), target);
}

void ApplyTicketCommand(PTConverter& converter, const TicketDocument& ticket, std::u16string_view feature,
                        KeywordCommandTable table, CommandTarget target) {
    const WideText option = GetFeatureOptionName(ticket, feature);
    if (option.IsEmpty()) return;
    std::u16string_view keyword = option.View();
    if (feature == u"PageOrientation") {
        const WideText pagesPerSheet = GetFeatureOptionName(ticket, u"JobNUpAllDocumentsContiguously");
        if (pagesPerSheet == u"ns0000:_2" || pagesPerSheet == u"ns0000:_6") keyword = TurnOver(keyword);
    }
    SendKeyword(converter, table, keyword, target);
}

void RunFeatureList(PTConverter& converter, FeatureList list, GateRule rule) {
    for (const FeatureRow& row : list) {
        if (IsGateOpen(converter, row.Gate))
            ApplySettingCommand(converter, row.Feature, row.Table, ParametersOf(row), row.Target);
        else if (rule == GateRule::EndList)
            return;
    }
}

}  // namespace DeviceSpecificModule
