#include "ticket/CustomProperties.h"

#include <stdexcept>

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

WideText PieceName(std::u16string_view prefix, std::int32_t index) {
    constexpr std::u16string_view zeros = u"000";
    const DecimalText number(index);
    const std::u16string_view digits = number;
    if (digits.size() > zeros.size()) throw std::length_error("string too long");
    return WideText::Join({prefix, zeros.substr(digits.size()), digits});
}

WideText JoinPieces(const TicketDocument& ticket, const Series& series) {
    const std::int32_t count = GetCustomCount(ticket, series.Level);
    WideText joined;
    for (std::int32_t index = 0; index < count; ++index)
        AddPieces(joined,
                  {GetParameterInitValue(ticket, PieceName(series.PiecePrefix, index).View(), false).View()});
    return joined;
}

}  // namespace

std::int32_t GetCustomCount(const TicketDocument& ticket, std::u16string_view level) {
    const WideText query = WideText::Join(
        {u"//psf:PrintTicket/psf:ParameterInit[@name='ns0000:", level, u"XR", level, u"CustomCount']"});
    const TicketNode node = FindTicketNode(ticket, query.View());
    return node ? ReadDecimal(node->text().View()) : -1;
}

void ReadCustomProperties(const TicketDocument& ticket, SharedJson& properties) {
    if (!ticket) return;
    auto merged = properties ? std::make_shared<Json::Value>(*properties) : std::make_shared<Json::Value>();
    for (const Series& series : allSeries) {
        const WideText joined = JoinPieces(ticket, series);
        if (joined.IsEmpty()) continue;
        Json::Value document;
        ParseJsonText(joined, document);
        MergeCustomProperties(*merged, document);
    }
    properties = std::move(merged);
}

}  // namespace DeviceSpecificModule
