#include "ticket/TicketQueries.h"

#include <exception>
#include <stdexcept>
#include <vector>

#include "conversion/TextOperations.h"
#include "ticket/TicketNamespaces.h"

namespace DeviceSpecificModule {
namespace {

constexpr PathStep rootStep = {.Element = u"psf:PrintTicket"};
constexpr PathStep optionStep = {.Element = u"psf:Option"};
constexpr PathStep nameStep = {.Element = u"@name"};
constexpr PathStep valueStep = {.Element = u"psf:Value"};

constexpr PathStep FeatureStep(std::u16string_view name, std::u16string_view uri = KeywordsNamespace) {
    return {.Element = u"psf:Feature", .Name = name, .Namespace = uri};
}

constexpr auto FeatureOptionQuery(std::u16string_view feature) {
    return std::to_array({rootStep, FeatureStep(feature), optionStep, nameStep});
}

constexpr auto FeatureOptionQuery(std::u16string_view feature, std::u16string_view subFeature) {
    return std::to_array(
        {rootStep, FeatureStep(feature), FeatureStep(subFeature, DevmodeNamespace), optionStep, nameStep});
}

constexpr auto ScoredPropertyQuery(std::u16string_view feature, std::u16string_view scoredProperty) {
    const PathStep property{u"psf:ScoredProperty", true, scoredProperty, KeywordsNamespace};
    return std::to_array({rootStep, FeatureStep(feature), optionStep, property, valueStep});
}

constexpr auto ParameterInitQuery(std::u16string_view name, bool useKeywordsNamespace) {
    const std::u16string_view uri = useKeywordsNamespace ? KeywordsNamespace : DevmodeNamespace;
    return std::to_array({rootStep,
                          {.Element = u"psf:ParameterInit", .Name = name, .Namespace = uri},
                          {.Element = u"psf:Value", .AtAnyDepth = true}});
}

// Errors of the query itself count as no match. Lack of memory doesn't: it must not look like a missing
// feature.
WideText TextOfFirst(const TicketDocument& ticket, Path path) {
    TicketNode node;
    try {
        ticket->selectPath(path, node);
    } catch (const Platform::ResultError&) {
        throw;
    } catch (const std::exception&) {
        node = nullptr;
    }
    return node ? node->text() : WideText();
}

WideText NameInSeries(std::u16string_view name, std::size_t number) {
    const DecimalText digits(1000 + static_cast<std::int64_t>(number));
    return WideText::Join({name, std::u16string_view(digits).substr(1)});
}

}  // namespace

WideText GetFeatureOptionName(const TicketDocument& ticket, std::u16string_view feature) {
    return TextOfFirst(ticket, FeatureOptionQuery(feature));
}

WideText GetFeatureOptionName(const TicketDocument& ticket, std::u16string_view feature,
                              std::u16string_view subFeature) {
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

WideText JoinParameterInitValues(const TicketDocument& ticket, std::u16string_view name, std::int32_t count) {
    constexpr std::int32_t mostNumbers = 1000;
    if (count > mostNumbers) throw std::length_error("string too long");
    WideText joined;
    if (count < 1) return joined;
    std::vector<TicketNode> nodes;
    Platform::WithOneMemoryError([&] { nodes.resize(static_cast<std::size_t>(count)); });
    const bool areFound = ticket->selectSeries(ParameterInitQuery(name, false), 1, nodes);
    for (std::size_t number = 0; number < nodes.size(); ++number) {
        const TicketNode& node = nodes[number];
        const WideText value = areFound
                                   ? node ? node->text() : WideText()
                                   : GetParameterInitValue(ticket, NameInSeries(name, number).View(), false);
        AddPieces(joined, {value.View()});
    }
    return joined;
}

TicketNode FindTicketNode(const TicketDocument& ticket, Path path) {
    TicketNode node;
    ticket->selectPath(path, node);
    return node;
}

void RemoveTicketNode(const TicketDocument& ticket, Path path) {
    const TicketNode node = FindTicketNode(ticket, path);
    const TicketNode parent = node ? node->parentNode() : nullptr;
    if (parent) parent->removeChild(node);
}

}  // namespace DeviceSpecificModule
