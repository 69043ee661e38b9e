#pragma once

#include <optional>
#include <string_view>

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// Reads of a Print Ticket. Names are given without a prefix and matched by local part and namespace, whatever
// prefix the ticket binds; they go into the query as they are. Each gives the text of the first match in
// document order, white space and the ticket's own prefix included; null where the ticket has none or the
// query fails. They throw ResultError without memory, and nothing else that the document throws.
//
// Of several prefixes that are bound to one namespace a single one counts: of those in scope the one that the
// outermost element declares, and among its declarations the last. A default namespace takes part, so one
// that is declared behind "psk" and bound to the keywords hides every "psk:" name.

// The name of the option selected for a feature of the keywords namespace, as "psk:Collated"; with a
// subFeature that of this feature of the Devmode namespace inside it.
WideText GetFeatureOptionName(const TicketDocument& ticket, std::u16string_view feature,
                              std::optional<std::u16string_view> subFeature = std::nullopt);

// The value of a scored property in the selected option, both of the keywords namespace.
WideText GetScoredPropertyValue(const TicketDocument& ticket, std::u16string_view feature,
                                std::u16string_view scoredProperty);

// The value of a parameter, of the keywords namespace or else of the Devmode namespace.
WideText GetParameterInitValue(const TicketDocument& ticket, std::u16string_view name,
                               bool useKeywordsNamespace);

// Finds by the literal prefixes "psk" and "ns0000" as the ticket writes them; null where the ticket has none.
TicketNode FindTicketNode(const TicketDocument& ticket, std::u16string_view query);

// Takes the node that the query finds out of the ticket; none found, nothing happens.
void RemoveTicketNode(const TicketDocument& ticket, std::u16string_view query);

// The queries for single items that several places need.
inline constexpr char16_t PageDevmodeSnapshotQuery[] =
    u"//psf:PrintTicket/psf:ParameterInit[@name='ns0000:PageDevmodeSnapshot']";
inline constexpr char16_t JobCopiesQuery[] =
    u"//psf:PrintTicket/psf:ParameterInit[@name='psk:JobCopiesAllDocuments']/psf:Value";

}  // namespace DeviceSpecificModule
