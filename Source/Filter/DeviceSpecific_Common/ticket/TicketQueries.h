#pragma once

#include <array>
#include <string_view>

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

using Platform::Path;
using Platform::PathStep;

// Reads of a Print Ticket. Names are given without a prefix and matched by local part and namespace, whatever
// prefix the ticket binds; they go into the query as they are. Each gives the text of the first match in
// document order, white space and the ticket's own prefix included; null where the ticket has none or the
// query fails. They throw ResultError without memory, and nothing else that the document throws.
//
// Of several prefixes that are bound to one namespace a single one counts: of those in scope the one that the
// outermost element declares, and among its declarations the last. A default namespace takes part, so one
// that is declared behind "psk" and bound to the keywords hides every "psk:" name.

// The name of the option selected for a feature of the keywords namespace, as "psk:Collated".
WideText GetFeatureOptionName(const TicketDocument& ticket, std::u16string_view feature);
// The same for a feature of the Devmode namespace inside that one.
WideText GetFeatureOptionName(const TicketDocument& ticket, std::u16string_view feature,
                              std::u16string_view subFeature);

// The value of a scored property in the selected option, both of the keywords namespace.
WideText GetScoredPropertyValue(const TicketDocument& ticket, std::u16string_view feature,
                                std::u16string_view scoredProperty);

// The value of a parameter, of the keywords namespace or else of the Devmode namespace.
WideText GetParameterInitValue(const TicketDocument& ticket, std::u16string_view name,
                               bool useKeywordsNamespace);

// The values of `count` parameters of the Devmode namespace, one behind the other, whose names end in three
// digits, counted from "000"; one that is missing adds nothing. Throws std::length_error for more than 1000,
// which have no such names.
WideText JoinParameterInitValues(const TicketDocument& ticket, std::u16string_view name, std::int32_t count);

// Finds by the literal prefixes "psk" and "ns0000" as the ticket writes them; null where the ticket has none.
TicketNode FindTicketNode(const TicketDocument& ticket, Path path);

// Takes the node that the path leads to out of the ticket; none found, nothing happens.
void RemoveTicketNode(const TicketDocument& ticket, Path path);

// The paths to single items, by their full names in the ticket: of a feature, of a parameter.
using ItemPath = std::array<PathStep, 2>;

constexpr ItemPath PathToItem(std::u16string_view element, std::u16string_view name) {
    return {{{.Element = u"psf:PrintTicket", .AtAnyDepth = true}, {.Element = element, .Name = name}}};
}
constexpr ItemPath PathToFeature(std::u16string_view name) { return PathToItem(u"psf:Feature", name); }
constexpr ItemPath PathToParameter(std::u16string_view name) {
    return PathToItem(u"psf:ParameterInit", name);
}

}  // namespace DeviceSpecificModule
