#include "ticket/TicketEditing.h"

#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

constexpr std::u16string_view rootEndTag = u"</psf:PrintTicket>";

// The front part of a document's text, up to where the last child of its root ends, and what keeps the root
// open behind it.
struct OpenText {
    std::u16string_view Front;
    std::u16string_view Opening;
};

OpenText OpenRoot(std::u16string_view xml, bool hasChildren) {
    if (hasChildren) return {xml.substr(0, xml.rfind(u'<')), u""};
    const std::size_t slash = xml.rfind(u'/');
    if (slash == xml.npos) return {xml, u""};
    const bool hasEndTag = slash > 0 && xml[slash - 1] == u'<';
    if (hasEndTag) return {xml.substr(0, slash - 1), u""};
    return {xml.substr(0, slash), u">"};
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
    if (!use.JobPass)
        RemoveTicketNode(ticket,
                         WideText::Join({u"//psf:PrintTicket/psf:Feature[@name='", feature, u"']"}).View());
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
    const auto [front, opening] = OpenRoot(xml.View(), root->childNodesLength() != 0);
    ticket->loadXML(WideText::Join({front, opening, fragments.View(), rootEndTag}));
    RemoveTicketNode(ticket, PageDevmodeSnapshotQuery);
}

}  // namespace DeviceSpecificModule
