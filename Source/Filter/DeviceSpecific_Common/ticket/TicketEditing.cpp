#include "ticket/TicketEditing.h"

#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
const OptionRecord* FindOptionRecord(const OptionRecord* table, std::u16string_view option) {
    if (table == nullptr) return nullptr;
    for (const OptionRecord* row = table; !row->Keyword.IsNull(); ++row)
        if (row->Keyword == option) return row;
    return nullptr;
}

void ApplyOptionRecord(PTConverter& converter, const TicketDocument& ticket, std::u16string_view feature,
                       std::u16string_view option, const OptionRecord* table, OptionUse use) {
    if (table == nullptr) return;
    if (!use.JobPass) RemoveTicketNode(ticket, PathToFeature(feature));
    const OptionRecord* row = FindOptionRecord(table, option);
    if (row == nullptr) return;
    if (!use.JobPass) {
        AppendWideText(converter.PjlText, row->TicketFragment);
        return;
    }
    const bool fourInOne = LookupCustomProperty(converter.CustomProperties, u"Layout") == u"Bl4in1";
    AppendWideText(converter.PjlText,
                   fourInOne && use.FourInOneApplies ? row->FourInOneJobCommand : row->JobCommand);
}

void AppendOptionDataCommand(PTConverter& converter, const OptionRecord* table, std::u16string_view option) {
    if (table == nullptr) return;
    for (const OptionRecord* row = table; !row->Keyword.IsNull(); ++row)
        if (row->Keyword == option) AppendWideText(converter.DataText, row->DataCommand);
}

void InsertTicketFragments(const TicketDocument& ticket, const WideText& fragments) {
    RequireWhole(fragments);
    if (ticket->appendToRoot(u"psf:PrintTicket", fragments))
        RemoveTicketNode(ticket, PathToParameter(u"ns0000:PageDevmodeSnapshot"));
}

}  // namespace DeviceSpecificModule
