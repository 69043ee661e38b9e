#include "ticket/TicketEditing.h"

#include <string>

#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

constexpr std::u16string_view rootEndTag = u"</psf:PrintTicket>";

// The document's text up to where the last child of its root ends, the root still open.
std::u16string OpenRoot(std::u16string_view xml, bool hasChildren) {
    if (hasChildren) return std::u16string(xml.substr(0, xml.rfind(u'<')));
    const std::size_t slash = xml.rfind(u'/');
    if (slash == xml.npos) return std::u16string(xml);
    const bool hasEndTag = slash > 0 && xml[slash - 1] == u'<';
    if (hasEndTag) return std::u16string(xml.substr(0, slash - 1));
    return std::u16string(xml.substr(0, slash)) + u'>';
}

}  // namespace

const OptionRecord* FindOptionRecord(const OptionRecord* table, std::u16string_view option) {
    if (table == nullptr) return nullptr;
    for (const OptionRecord* row = table; !row->Keyword.IsNull(); ++row)
        if (row->Keyword == option) return row;
    return nullptr;
}

void ApplyOptionRecord(PTConverter& converter, const TicketDocument& ticket, std::u16string_view feature,
                       std::u16string_view option, const OptionRecord* table, OptionUse use) {
    if (table == nullptr) return;
    if (!use.JobPass) {
        std::u16string query = u"//psf:PrintTicket/psf:Feature[@name='";
        RemoveTicketNode(ticket, query.append(feature).append(u"']"));
    }
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
    const WideText xml = ticket->xml();
    const TicketNode root = FindTicketNode(ticket, u"//psf:PrintTicket");
    if (!root) return;
    std::u16string text = OpenRoot(xml.View(), root->childNodesLength() != 0);
    text.append(fragments.View()).append(rootEndTag);
    ticket->loadXML(WideText(text));
    RemoveTicketNode(ticket, PageDevmodeSnapshotQuery);
}

}  // namespace DeviceSpecificModule
