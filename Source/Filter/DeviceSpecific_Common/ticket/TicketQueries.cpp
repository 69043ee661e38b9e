#include "ticket/TicketQueries.h"

#include <exception>

#include "Platform/ResultError.h"
#include "ticket/TicketNamespaces.h"

namespace DeviceSpecificModule {
namespace {

// A step to a child element whose name attribute has this local part under whatever prefix stands for the
// namespace.
WideText NamedStep(std::u16string_view element, std::u16string_view name, std::u16string_view uri) {
    return WideText::Join({element, u"[substring-after(@name,':')='", name, u"'][name(namespace::*[.='", uri,
                           u"'])=substring-before(@name,':')]"});
}

WideText FeatureStep(std::u16string_view feature) {
    return NamedStep(u"psf:PrintTicket/psf:Feature", feature, KeywordsNamespace);
}

WideText FeatureOptionQuery(std::u16string_view feature, std::optional<std::u16string_view> subFeature) {
    const WideText inner =
        subFeature ? NamedStep(u"/psf:Feature", *subFeature, DevmodeNamespace) : WideText();
    return WideText::Join({FeatureStep(feature).View(), inner.View(), u"/psf:Option/@name"});
}

WideText ScoredPropertyQuery(std::u16string_view feature, std::u16string_view scoredProperty) {
    return WideText::Join(
        {FeatureStep(feature).View(),
         NamedStep(u"/psf:Option//psf:ScoredProperty", scoredProperty, KeywordsNamespace).View(),
         u"/psf:Value"});
}

WideText ParameterInitQuery(std::u16string_view name, bool useKeywordsNamespace) {
    const std::u16string_view uri = useKeywordsNamespace ? KeywordsNamespace : DevmodeNamespace;
    return WideText::Join(
        {NamedStep(u"psf:PrintTicket/psf:ParameterInit", name, uri).View(), u"//psf:Value"});
}

// Errors of the query itself count as no match. Lack of memory doesn't: it must not look like a missing
// feature.
WideText TextOfFirst(const TicketDocument& ticket, const WideText& query) {
    TicketNode node;
    try {
        ticket->selectSingleNode(query.View(), node);
    } catch (const Platform::ResultError&) {
        throw;
    } catch (const std::exception&) {
        node = nullptr;
    }
    return node ? node->text() : WideText();
}

}  // namespace

WideText GetFeatureOptionName(const TicketDocument& ticket, std::u16string_view feature,
                              std::optional<std::u16string_view> subFeature) {
    return TextOfFirst(ticket, FeatureOptionQuery(feature, subFeature));
}

WideText GetScoredPropertyValue(const TicketDocument& ticket, std::u16string_view feature,
                                std::u16string_view scoredProperty) {
    return TextOfFirst(ticket, ScoredPropertyQuery(feature, scoredProperty));
}

WideText GetParameterInitValue(const TicketDocument& ticket, std::u16string_view name,
                               bool useKeywordsNamespace) {
    return TextOfFirst(ticket, ParameterInitQuery(name, useKeywordsNamespace));
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
