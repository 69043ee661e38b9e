#include "PathWalk.h"

#include <algorithm>
#include <string_view>

#include "XmlTree.h"

namespace Platform {
namespace {

constexpr std::u16string_view nameAttribute = u"@name";
constexpr std::size_t seriesDigits = 3;

bool Equals(std::string_view bytes, std::u16string_view ascii) {
    return std::ranges::equal(
        bytes, ascii, [](char byte, char16_t unit) { return static_cast<unsigned char>(byte) == unit; });
}

// Whether a text stands in a query for just itself. XML's own namespace is bound without a declaration.
bool IsPlain(std::u16string_view text) {
    return text != u"http://www.w3.org/XML/1998/namespace" &&
           std::ranges::all_of(text, [](char16_t unit) { return unit > 0 && unit < 0x80 && unit != u'\''; });
}

std::u16string_view LocalPart(std::u16string_view name) { return name.substr(name.find(u':') + 1); }

xmlAttrPtr NameOf(const xmlNode* element) {
    for (xmlAttrPtr attribute = element->properties; attribute != nullptr; attribute = attribute->next)
        if (attribute->ns == nullptr && View(attribute->name) == "name") return attribute;
    return nullptr;
}

// A parsed attribute's value is one text, or none where it is empty.
std::string_view ValueOf(const xmlAttr* attribute) {
    return attribute == nullptr || attribute->children == nullptr ? "" : View(attribute->children->content);
}

// Whether an element between `element` and its ancestor `outer`, that one left out, gives the prefix another
// meaning.
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
            if (Equals(View(declared->href), uri) && !IsHidden(declared, element, outer)) counting = declared;
    return counting == nullptr ? std::string_view() : View(counting->prefix);
}

// The two sides of a name's first colon; both are empty without one.
std::pair<std::string_view, std::string_view> SplitName(std::string_view name) {
    const std::size_t colon = name.find(':');
    if (colon == name.npos) return {};
    return {name.substr(0, colon), name.substr(colon + 1)};
}

bool HasName(const xmlNode* element, const PathStep& step) {
    if (!step.Name) return true;
    const xmlAttr* attribute = NameOf(element);
    if (!step.Namespace) return attribute != nullptr && Equals(ValueOf(attribute), *step.Name);
    const auto [prefix, local] = SplitName(ValueOf(attribute));
    return Equals(local, *step.Name) && CountingPrefix(element, *step.Namespace) == prefix;
}

// The number that three digits behind the step's name stand for; -1 for other names.
int NumberOf(const xmlNode* element, const PathStep& step) {
    const std::string_view name = ValueOf(NameOf(element));
    if (name.size() < seriesDigits) return -1;
    const std::string_view digits = name.substr(name.size() - seriesDigits);
    if (!std::ranges::all_of(digits, [](char digit) { return digit >= '0' && digit <= '9'; })) return -1;
    const auto [prefix, local] = SplitName(name);
    if (local.size() < seriesDigits) return -1;
    const std::string_view front = local.substr(0, local.size() - seriesDigits);
    if (!Equals(front, *step.Name) || CountingPrefix(element, *step.Namespace) != prefix) return -1;
    return (digits[0] - '0') * 100 + (digits[1] - '0') * 10 + (digits[2] - '0');
}

}  // namespace

const std::string* NameOfNamespace(const Namespaces& namespaces, std::u16string_view prefix) {
    const auto bound = std::find_if(namespaces.rbegin(), namespaces.rend(),
                                    [prefix](const auto& each) { return Equals(each.first, prefix); });
    return bound == namespaces.rend() ? nullptr : &bound->second;
}

PathWalk::PathWalk(Path path, const Namespaces& namespaces)
    : path_(path), possible_(!path.empty() && path.size() <= MostSteps) {
    for (std::size_t step = 0; step < path.size() && possible_; ++step) {
        const PathStep& each = path[step];
        if (each.Element == nameAttribute && step > 0 && step + 1 == path.size()) break;
        const std::u16string_view prefix = each.Element.substr(0, each.Element.find(u':'));
        uris_[step] = NameOfNamespace(namespaces, prefix);
        possible_ = uris_[step] != nullptr && prefix != u"xml" && prefix.size() < each.Element.size() &&
                    IsPlain(each.Element) && IsPlain(each.Name.value_or(u"")) &&
                    IsPlain(each.Namespace.value_or(u""));
    }
}

bool PathWalk::Fits(const xmlNode* element, std::size_t step) const {
    return uris_[step] != nullptr && Equals(View(element->name), LocalPart(path_[step].Element)) &&
           element->ns != nullptr && View(element->ns->href) == *uris_[step];
}

xmlNodePtr PathWalk::Find(xmlDocPtr document) const {
    return Search(reinterpret_cast<xmlNodePtr>(document), 1);
}

// In document order, with all the steps that may lead to a child in hand, so that the first match met is the
// first one there is, also where elements that match a step stand within each other.
xmlNodePtr PathWalk::Search(xmlNodePtr parent, Steps open) const {
    for (xmlNodePtr child = parent->children; child != nullptr; child = child->next) {
        if (child->type != XML_ELEMENT_NODE) continue;
        Steps below = 0;
        for (std::size_t step = 0; step < path_.size(); ++step) {
            if ((open >> step & 1) == 0) continue;
            if (path_[step].AtAnyDepth) below |= 1u << step;
            if (!Fits(child, step) || !HasName(child, path_[step])) continue;
            if (step + 1 == path_.size()) return child;
            if (path_[step + 1].Element != nameAttribute)
                below |= 1u << (step + 1);
            else if (const xmlAttrPtr name = NameOf(child))
                return reinterpret_cast<xmlNodePtr>(name);
        }
        if (below == 0) continue;
        if (const xmlNodePtr found = Search(child, below)) return found;
    }
    return nullptr;
}

void PathWalk::FindSeries(xmlDocPtr document, std::size_t numbered, std::vector<xmlNodePtr>& found) const {
    SearchSeries(reinterpret_cast<xmlNodePtr>(document), 0, numbered, found);
}

void PathWalk::SearchSeries(xmlNodePtr parent, std::size_t step, std::size_t numbered,
                            std::vector<xmlNodePtr>& found) const {
    for (xmlNodePtr child = parent->children; child != nullptr; child = child->next) {
        if (child->type != XML_ELEMENT_NODE || !Fits(child, step)) continue;
        if (step < numbered) {
            if (HasName(child, path_[step])) SearchSeries(child, step + 1, numbered, found);
            continue;
        }
        const auto number = static_cast<std::size_t>(NumberOf(child, path_[step]));
        if (number < found.size() && found[number] == nullptr)
            found[number] = Search(child, 1u << (step + 1));
    }
}

}  // namespace Platform
