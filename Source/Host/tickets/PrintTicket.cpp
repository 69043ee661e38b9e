#include "Host/tickets/PrintTicket.h"

#include <algorithm>

#include "ticket/TicketNamespaces.h"

namespace TicketHost {

constinit const std::string_view FrameworkNamespace = FRAMEWORK_NAMESPACE;
constinit const std::string_view KeywordsNamespace = KEYWORDS_NAMESPACE;
constinit const std::string_view DevmodeNamespace = DEVMODE_NAMESPACE;
constinit const std::string_view SchemaInstanceNamespace = "http://www.w3.org/2001/XMLSchema-instance";
constinit const std::string_view SchemaNamespace = "http://www.w3.org/2001/XMLSchema";

namespace {

using Platform::XmlElement;
using Scope = std::vector<Platform::XmlNamespace>;  // the innermost declarations last

constexpr struct {
    std::string_view Element;
    ItemKind Kind;
} kinds[] = {{"Feature", ItemKind::Feature},
             {"Option", ItemKind::Option},
             {"ScoredProperty", ItemKind::ScoredProperty},
             {"Property", ItemKind::Property},
             {"ParameterInit", ItemKind::Parameter}};

ItemKind KindOf(const XmlElement& element) {
    const auto isIt = [&](const auto& row) {
        return element.Name.Namespace == FrameworkNamespace && element.Name.Local == row.Element;
    };
    const auto row = std::ranges::find_if(kinds, isIt);
    return row == std::end(kinds) ? ItemKind::Other : row->Kind;
}

bool IsFrameworks(const XmlElement& element, std::string_view local) {
    return element.Name.Local == local && element.Name.Namespace == FrameworkNamespace;
}

std::string NameAttribute(const XmlElement& element) {
    for (const auto& [name, value] : element.Attributes)
        if (name.Local == "name" && name.Namespace.empty()) return value;
    return "";
}

std::string UriOf(const Scope& scope, std::string_view prefix) {
    const auto found =
        std::ranges::find(scope.rbegin(), scope.rend(), prefix, &Platform::XmlNamespace::Prefix);
    return found == scope.rend() ? "" : found->Uri;
}

// A name in an attribute without a prefix is in no namespace.
void Resolve(TicketItem& item, const Scope& scope) {
    const std::size_t colon = item.Name.find(':');
    item.Local = colon == std::string::npos ? item.Name : item.Name.substr(colon + 1);
    if (colon != std::string::npos) item.Space = UriOf(scope, std::string_view(item.Name).substr(0, colon));
}

std::string WithNamespace(std::string_view space, std::string_view local) {
    return space.empty() ? std::string(local) : "{" + std::string(space) + "}" + std::string(local);
}

// A text that is a name, with its namespace for its prefix; as it is where that isn't bound.
std::string ResolvedName(const std::string& name, const Scope& scope) {
    const std::size_t colon = name.find(':');
    const std::string space = colon == name.npos ? "" : UriOf(scope, std::string_view(name).substr(0, colon));
    return space.empty() ? name : WithNamespace(space, std::string_view(name).substr(colon + 1));
}

bool IsBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == text.npos; }

// An item's own name isn't among them.
void AddAttributes(const XmlElement& element, const std::string& place, bool isNamed, const Scope& scope,
                   TicketItem& owner) {
    for (const auto& [name, value] : element.Attributes) {
        if (isNamed && name.Local == "name" && name.Namespace.empty()) continue;
        const bool isType = name.Local == "type" && name.Namespace == SchemaInstanceNamespace;
        owner.Details.push_back({place + "@" + WithNamespace(name.Namespace, name.Local),
                                 isType ? ResolvedName(value, scope) : value});
    }
}

std::string PlaceBelow(const std::string& place, const Platform::XmlName& name, std::size_t number) {
    return place + "/" + WithNamespace(name.Namespace, name.Local) + "[" + std::to_string(number) + "]";
}

// A psf:Value or psf:ParameterRef, or what stands in one; `text` is what its item doesn't hold of its text.
void AddPart(const XmlElement& element, const std::string& place, const std::string& text, Scope& scope,
             TicketItem& owner) {
    const bool isReference = place.starts_with("ParameterRef") && IsFrameworks(element, "ParameterRef");
    scope.insert(scope.end(), element.Namespaces.begin(), element.Namespaces.end());
    owner.Details.push_back({place, isReference ? ResolvedName(NameAttribute(element), scope) + text : text});
    AddAttributes(element, place, isReference, scope, owner);
    for (std::size_t at = 0; at < element.Children.size(); ++at) {
        const XmlElement& child = element.Children[at];
        AddPart(child, PlaceBelow(place, child.Name, at + 1), child.Text, scope, owner);
    }
    scope.resize(scope.size() - element.Namespaces.size());
}

void AddItems(const XmlElement& element, const std::string& path, Scope& scope, TicketItem& owner);

TicketItem ItemOf(const XmlElement& element, std::string path, Scope& scope) {
    TicketItem item;
    item.Kind = KindOf(element);
    item.Line = element.Line;
    scope.insert(scope.end(), element.Namespaces.begin(), element.Namespaces.end());
    if (item.Kind == ItemKind::Other) {
        item.Name = Platform::NameAsWritten(element.Name);
        item.Local = element.Name.Local;
        item.Space = element.Name.Namespace;
        item.Value = element.Text;
    } else {
        item.Name = NameAttribute(element);
        Resolve(item, scope);
        if (!IsBlank(element.Text)) item.Details.push_back({"text", element.Text});
    }
    AddAttributes(element, "", item.Kind != ItemKind::Other, scope, item);
    AddItems(element, path, scope, item);
    item.Path = std::move(path);
    scope.resize(scope.size() - element.Namespaces.size());
    return item;
}

std::string Numbered(const std::string& name, std::size_t number) {
    return number > 1 ? name + "[" + std::to_string(number) + "]" : name;
}

// A property's value and reference are parts of it; all other elements are items of their own. The first
// value needs no detail but that it is there.
void AddItems(const XmlElement& element, const std::string& path, Scope& scope, TicketItem& owner) {
    const bool isOwn = owner.Kind != ItemKind::Other;
    std::size_t values = 0, references = 0;
    for (std::size_t at = 0; at < element.Children.size(); ++at) {
        const XmlElement& child = element.Children[at];
        if (isOwn && IsFrameworks(child, "Value")) {
            owner.Value += child.Text;
            ++values;
            AddPart(child, Numbered("Value", values), values > 1 ? child.Text : "", scope, owner);
        } else if (isOwn && IsFrameworks(child, "ParameterRef")) {
            owner.Reference = NameAttribute(child);
            const std::string text = IsBlank(child.Text) ? "" : " " + child.Text;
            AddPart(child, Numbered("ParameterRef", ++references), text, scope, owner);
        } else {
            owner.Items.push_back(ItemOf(child, path + "/*[" + std::to_string(at + 1) + "]", scope));
        }
    }
}

}  // namespace

bool IsPrintTicket(const XmlElement& root) { return IsFrameworks(root, "PrintTicket"); }

TicketItem ItemOfRoot(const XmlElement& root) {
    Scope scope;
    return ItemOf(root, "/*[1]", scope);
}

std::vector<TicketItem> ItemsOf(const XmlElement& root) {
    return IsPrintTicket(root) ? ItemOfRoot(root).Items : std::vector<TicketItem>();
}

XmlElement RootOfFragment(std::string_view fragment) {
    std::string xml = "<psf:PrintTicket xmlns:psf=\"";
    xml.append(FrameworkNamespace).append("\" xmlns:xsi=\"").append(SchemaInstanceNamespace);
    xml.append("\" xmlns:xsd=\"").append(SchemaNamespace).append("\" xmlns:psk=\"");
    xml.append(KeywordsNamespace).append("\">").append(fragment).append("</psf:PrintTicket>");
    Platform::ParseError error;
    return Platform::ReadXml(xml, error).value_or(XmlElement());
}

const TicketItem* FindItem(const std::vector<TicketItem>& items, ItemKind kind, std::string_view space,
                           std::string_view local) {
    const auto found = std::ranges::find_if(items, [&](const TicketItem& item) {
        return item.Kind == kind && item.Space == space && item.Local == local;
    });
    return found == items.end() ? nullptr : &*found;
}

const TicketItem* ChosenOption(const TicketItem& feature) {
    const auto found = std::ranges::find(feature.Items, ItemKind::Option, &TicketItem::Kind);
    return found == feature.Items.end() ? nullptr : &*found;
}

}  // namespace TicketHost
