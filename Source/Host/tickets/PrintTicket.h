#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Host/ground/Platform.h"
#include "Platform/XmlElement.h"

namespace TicketHost {

// Namespaces of the published Print Schema, the vendor's own, and those of types in XML.
extern const std::string_view FrameworkNamespace, KeywordsNamespace, DevmodeNamespace;
extern const std::string_view SchemaInstanceNamespace, SchemaNamespace;

enum class ItemKind { Feature, Option, ScoredProperty, Property, Parameter, Other };

// What else an element says: an attribute, a text or an element of no known use. Prefixes have given way to
// their namespaces, "{urn:x}name", so that two tickets can be held against each other.
struct ItemDetail {
    std::string Name;  // "@constrained", "Value@{...}type", "text"; no two of an item have the same
    std::string Value;
};

// One thing that a ticket says. Texts are UTF-8.
struct TicketItem {
    ItemKind Kind = ItemKind::Other;
    std::string Name;   // of the attribute "name", as written: "psk:ISOA4"; for Other the element's own
    std::string Local;  // the part of it behind the first ":", or all of it
    std::string
        Space;  // the namespace that its prefix is bound to; empty where it has none or it is not bound
    std::string Value;      // the text of its psf:Value, or for Other its own
    std::string Reference;  // the name in its psf:ParameterRef, as written
    std::string Path;       // finds its element in the document, as XPath by positions: "/*[1]/*[4]/*[1]"
    int Line = 0;           // 0 where it isn't known
    std::vector<TicketItem> Items;  // what stands in it, in its order, but for psf:Value and psf:ParameterRef
    std::vector<ItemDetail> Details;  // all that nothing above holds, but for white space between elements
};

// Any document as one item of the kind Other, which holds everything that it says.
TicketItem ItemOfRoot(const Platform::XmlElement& root);

// What stands right in the root of a ticket, in its order; what the schema doesn't know is there as Other.
// Empty for a document that is no Print Ticket.
std::vector<TicketItem> ItemsOf(const Platform::XmlElement& root);

// Whether the root is psf:PrintTicket, whatever its prefix.
bool IsPrintTicket(const Platform::XmlElement& root);

// The root of a ticket that holds a fragment of an option table and nothing else. Such a fragment declares no
// prefixes, since it goes into a ticket that does. Without children for what is no XML.
Platform::XmlElement RootOfFragment(std::string_view fragment);

// The first item of that kind and name, or null.
const TicketItem* FindItem(const std::vector<TicketItem>& items, ItemKind kind, std::string_view space,
                           std::string_view local);

// The option that a feature has chosen: its first one; null where there is none.
const TicketItem* ChosenOption(const TicketItem& feature);

}  // namespace TicketHost
