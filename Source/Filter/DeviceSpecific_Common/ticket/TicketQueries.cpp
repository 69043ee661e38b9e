#include "ticket/TicketQueries.h"

#include <initializer_list>
#include <string>

#include "Platform/ResultError.h"
#include "ticket/TicketNamespaces.h"

namespace DeviceSpecificModule {
namespace {

std::u16string Join(std::initializer_list<std::u16string_view> pieces) {
    std::u16string joined;
    for (std::u16string_view piece : pieces) joined += piece;
    return joined;
}

// A step to a child element whose name attribute has this local part under whatever prefix stands for the
// namespace.
std::u16string NamedStep(std::u16string_view element, std::u16string_view name, std::u16string_view uri) {
    return Join({element, u"[substring-after(@name,':')='", name, u"'][name(namespace::*[.='", uri,
                 u"'])=substring-before(@name,':')]"});
}

std::u16string FeatureStep(std::u16string_view feature) {
    return NamedStep(u"psf:PrintTicket/psf:Feature", feature, KeywordsNamespace);
}

// Errors of the query itself count as no match. Lack of memory doesn't: it must not look like a missing
// feature.
WideText TextOfFirst(const TicketDocument& ticket, std::u16string_view query) {
    TicketNode node;
    try {
        ticket->selectSingleNode(query, node);
    } catch (const Platform::ResultError&) {
        throw;
    } catch (const std::exception&) {
        node = nullptr;
    }
    return node ? node->text() : WideText();
}

}  // namespace

WideText GetFeatureOptionName(const TicketDocument& ticket, std::u16string_view feature,
                              std::u16string_view subFeature) {
    std::u16string query = FeatureStep(feature);
    if (subFeature.data() != nullptr) query += NamedStep(u"/psf:Feature", subFeature, DevmodeNamespace);
    return TextOfFirst(ticket, query + u"/psf:Option/@name");
}

WideText GetScoredPropertyValue(const TicketDocument& ticket, std::u16string_view feature,
                                std::u16string_view scoredProperty) {
    return TextOfFirst(ticket,
                       Join({FeatureStep(feature),
                             NamedStep(u"/psf:Option//psf:ScoredProperty", scoredProperty, KeywordsNamespace),
                             u"/psf:Value"}));
}

WideText GetParameterInitValue(const TicketDocument& ticket, std::u16string_view name,
                               bool useKeywordsNamespace) {
    const std::u16string_view uri = useKeywordsNamespace ? KeywordsNamespace : DevmodeNamespace;
    return TextOfFirst(ticket, NamedStep(u"psf:PrintTicket/psf:ParameterInit", name, uri) + u"//psf:Value");
}

TicketNode FindTicketNode(const TicketDocument& ticket, std::u16string_view query) {
    TicketNode node;
    ticket->selectSingleNode(query, node);
    return node;
}

void RemoveTicketNode(const TicketDocument& ticket, std::u16string_view query) {
    const TicketNode node = FindTicketNode(ticket, query);
    const TicketNode parent = node ? node->parentNode() : nullptr;
    if (parent) parent->removeChild(node);
}

}  // namespace DeviceSpecificModule
