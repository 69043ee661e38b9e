#include "PathWalk.h"

#include <algorithm>
#include <string_view>

#include "XmlTree.h"

namespace DeviceSpecificModule::Platform {
namespace {

constexpr std::u16string_view nameAttribute = u"@name";
constexpr std::size_t seriesDigits = 3;

bool Equals(std::string_view bytes, std::u16string_view ascii) {
    return std::ranges::equal(bytes, ascii, std::equal_to<>(),
                              [](char byte) { return char16_t{static_cast<unsigned char>(byte)}; });
}

// The same for a text that ends in a zero, whose length most comparisons needn't know.
bool Equals(const xmlChar* text, std::u16string_view ascii) {
    return text != nullptr &&
           std::ranges::all_of(ascii, [&text](char16_t unit) { return *text == unit && *text++ != 0; }) &&
           *text == 0;
}

// Whether a text stands in a query for just itself: without a quote, and without control characters, which
// end a literal there. XML's own namespace is bound without a declaration.
bool IsPlain(std::u16string_view text) {
    return text != u"http://www.w3.org/XML/1998/namespace" && std::ranges::all_of(text, [](char16_t unit) {
               return unit >= 0x20 && unit < 0x80 && unit != u'\'';
           });
}

// Whether a text is surely the name of an element; "*" is none.
bool IsSimpleName(std::u16string_view text) {
    const auto isLetter = [](char16_t unit) { return (unit | 0x20) >= u'a' && (unit | 0x20) <= u'z'; };
    return !text.empty() && std::ranges::all_of(text, isLetter);
}

xmlAttrPtr NameOf(const xmlNode* element) {
    for (xmlAttrPtr attribute = element->properties; attribute != nullptr; attribute = attribute->next)
        if (attribute->ns == nullptr && View(attribute->name) == "name") return attribute;
    return nullptr;
}

// A parsed attribute's value is one text, or none where it is empty.
std::string_view ValueOf(const xmlAttr* attribute) {
    return attribute == nullptr || attribute->children == nullptr ? "" : View(attribute->children->content);
}

// Whether an element below `outer`, down to `element`, gives the prefix another meaning.
bool IsHidden(const xmlNs* declared, const xmlNode* element, const xmlNode* outer) {
    for (; element != outer; element = element->parent)
        for (const xmlNs* inner = element->nsDef; inner != nullptr; inner = inner->next)
            if (View(inner->prefix) == View(declared->prefix)) return true;
    return false;
}

// Of the prefixes in scope that are bound to a namespace the query engine takes the outermost element's, and
// of one element's the last; a default namespace counts as an empty prefix, as the lack of any does.
std::string_view CountingPrefix(const xmlNode* element, std::u16string_view uri) {
    const xmlNs* counting = nullptr;
    for (const xmlNode* outer = element; outer->type == XML_ELEMENT_NODE; outer = outer->parent)
        for (const xmlNs* declared = outer->nsDef; declared != nullptr; declared = declared->next)
            if (Equals(declared->href, uri) && !IsHidden(declared, element, outer)) counting = declared;
    return counting == nullptr ? std::string_view() : View(counting->prefix);
}

// Takes the digits of a series off a name. False where it doesn't end in them.
bool TakeDigits(std::string_view& name) {
    if (name.size() < seriesDigits) return false;
    const std::string_view digits = name.substr(name.size() - seriesDigits);
    name.remove_suffix(seriesDigits);
    return std::ranges::all_of(digits, [](char digit) { return digit >= '0' && digit <= '9'; });
}

// The sides of a name's first colon are both empty without one, as the functions of queries have it.
bool HasName(const xmlNode* element, const PathStep& step, bool isSeries) {
    if (!step.Name) return true;
    const xmlAttr* attribute = NameOf(element);
    const std::string_view name = ValueOf(attribute);
    const std::size_t colon = std::min(name.find(':'), name.size());
    std::string_view wanted = step.Namespace ? name.substr(std::min(colon + 1, name.size())) : name;
    if (isSeries && !TakeDigits(wanted)) return false;
    if (attribute == nullptr && !step.Namespace) return false;
    const std::string_view prefix = colon == name.size() ? "" : name.substr(0, colon);
    return Equals(wanted, *step.Name) &&
           (!step.Namespace || CountingPrefix(element, *step.Namespace) == prefix);
}

}  // namespace

const std::string* NameOfNamespace(const Namespaces& namespaces, std::u16string_view prefix) {
    const auto bound = std::find_if(namespaces.rbegin(), namespaces.rend(),
                                    [prefix](const auto& each) { return Equals(each.first, prefix); });
    return bound == namespaces.rend() ? nullptr : &bound->second;
}

std::size_t NumberInSeries(const xmlNode* element) {
    const std::string_view name = ValueOf(NameOf(element));
    std::size_t number = 0;
    for (const char digit : name.substr(name.size() - seriesDigits))
        number = number * 10 + static_cast<std::size_t>(digit - '0');
    return number;
}

PathWalk::PathWalk(Path path, const Namespaces& namespaces, Names names)
    : path_(path), names_(names), possible_(!path.empty() && path.size() <= elements_.size()) {
    for (std::size_t step = 0; step < path.size() && possible_; ++step) {
        const PathStep& each = path[step];
        if (each.Element == nameAttribute && step > 0 && step + 1 == path.size()) break;
        const std::size_t colon = std::min(each.Element.find(u':'), each.Element.size());
        const std::u16string_view prefix = each.Element.substr(0, colon);
        const std::u16string_view local = each.Element.substr(std::min(colon + 1, each.Element.size()));
        elements_[step] = {.Local = local, .Uri = NameOfNamespace(namespaces, prefix)};
        possible_ = elements_[step].Uri != nullptr && prefix != u"xml" && IsSimpleName(local) &&
                    IsPlain(each.Name.value_or(u"")) && IsPlain(each.Namespace.value_or(u""));
    }
}

bool PathWalk::Fits(const xmlNode* element, std::size_t step) const {
    const auto& [local, uri, known] = elements_[step];
    if (uri == nullptr || element->ns == nullptr || !Equals(element->name, local)) return false;
    if (element->ns != known && View(element->ns->href) != *uri) return false;
    known = element->ns;
    return HasName(element, path_[step], names_ == Names::Series && step + 1 == path_.size());
}

xmlNodePtr PathWalk::First(xmlNodePtr from) const {
    xmlNodePtr first = nullptr;
    Visit(from, [&first](xmlNodePtr match) { return (first = match) != nullptr; });
    return first;
}

// In document order, with all the steps that may lead to a child in hand, so that the first match met is the
// first one there is, also where elements that match a step stand within each other.
bool PathWalk::Search(xmlNodePtr parent, Steps open, const std::function<bool(xmlNodePtr)>& visitor) const {
    for (xmlNodePtr child = parent->children; child != nullptr; child = child->next) {
        if (child->type != XML_ELEMENT_NODE) continue;
        Steps below = 0;
        xmlNodePtr match = nullptr;
        for (std::size_t step = 0; step < path_.size(); ++step) {
            if ((open >> step & 1) == 0) continue;
            if (path_[step].AtAnyDepth) below |= 1u << step;
            if (!Fits(child, step)) continue;
            if (step + 1 == path_.size())
                match = child;
            else if (path_[step + 1].Element == nameAttribute)
                match = reinterpret_cast<xmlNodePtr>(NameOf(child));
            else
                below |= 1u << (step + 1);
        }
        if (match != nullptr && visitor(match)) return true;
        if (below != 0 && Search(child, below, visitor)) return true;
    }
    return false;
}

}  // namespace DeviceSpecificModule::Platform
