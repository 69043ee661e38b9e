#include "ticket/CustomProperties.h"

#include <stdexcept>
#include <string>

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

std::u16string PieceName(std::u16string_view prefix, std::int32_t index) {
    constexpr std::size_t indexLength = 3;
    std::u16string digits = DecimalText(index);
    if (digits.size() > indexLength) throw std::length_error("string too long");
    digits.insert(0, indexLength - digits.size(), u'0');
    return std::u16string(prefix) + digits;
}

WideText JoinPieces(const TicketDocument& ticket, const Series& series) {
    const std::int32_t count = GetCustomCount(ticket, series.Level);
    WideText joined;
    for (std::int32_t index = 0; index < count; ++index)
        AppendWideText(joined, GetParameterInitValue(ticket, PieceName(series.PiecePrefix, index), false));
    return joined;
}

}  // namespace

std::int32_t GetCustomCount(const TicketDocument& ticket, std::u16string_view level) {
    std::u16string query = u"//psf:PrintTicket/psf:ParameterInit[@name='ns0000:";
    query.append(level).append(u"XR").append(level).append(u"CustomCount']");
    const TicketNode node = FindTicketNode(ticket, query);
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
