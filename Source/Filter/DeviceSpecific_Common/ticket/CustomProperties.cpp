#include "ticket/CustomProperties.h"

#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

struct Series {
    std::u16string_view Level;
    std::u16string_view PiecePrefix;
};

// In the order of merging.
constexpr Series allSeries[] = {
    {u"Job", u"JobXRJobCustomProperties"},
    {u"Doc", u"DocumentXRDocumentCustomProperties"},
    {u"Page", u"PageXRPageCustomProperties"},
};

}  // namespace

std::int32_t GetCustomCount(const TicketDocument& ticket, std::u16string_view level) {
    const WideText name = WideText::Join({u"ns0000:", level, u"XR", level, u"CustomCount"});
    const TicketNode node = FindTicketNode(ticket, PathToParameter(name.View()));
    return node ? ReadDecimal(node->text().View()) : -1;
}

void ReadCustomProperties(const TicketDocument& ticket, SharedJson& properties) {
    if (!ticket) return;
    auto merged = CopyDocument(properties);
    for (const Series& series : allSeries) {
        const WideText joined =
            JoinParameterInitValues(ticket, series.PiecePrefix, GetCustomCount(ticket, series.Level));
        if (joined.IsEmpty()) continue;
        Json::Value document;
        ParseJsonText(joined, document);
        MergeCustomProperties(*merged, document);
    }
    properties = std::move(merged);
}

}  // namespace DeviceSpecificModule
