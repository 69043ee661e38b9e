#include "XmlAppend.h"

#include <memory>
#include <utility>
#include <vector>

#include "XmlParser.h"

namespace Platform {
namespace {

// Far from the parser's limits on texts, attributes and comments, so that what was parsed or set once is sure
// to be taken again.
constexpr std::size_t mostBytes = 4'000'000;

bool IsNamed(const xmlNode* element, std::string_view name, std::string_view uri) {
    const std::size_t colon = name.find(':');
    return element->ns != nullptr && View(element->ns->href) == uri &&
           View(element->ns->prefix) == name.substr(0, colon) &&
           View(element->name) == name.substr(colon + 1);
}

// Whether the document's text loads as this very tree but for texts that meet. Identifiers are found by a
// table that knows removed elements, too.
bool LoadsAsItIs(const Tree& tree) {
    return !tree.OddNamespaces && !tree.SectionsMeet && tree.Bytes <= mostBytes &&
           tree.Document->ids == nullptr;
}

// Of XML that begins with an element no part can grow together with what the root holds, and without "xml:"
// it uses no prefix but those of the root and its own.
bool StandsAlone(std::string_view xml) {
    return xml.empty() || (xml.size() > 1 && xml[0] == '<' && xml[1] != '!' && xml[1] != '?' &&
                           xml.find("xml:") == xml.npos && xml.size() <= mostBytes);
}

// The XML in an element that binds the prefixes which the root binds.
std::string WrapInRoot(const xmlNode* root, std::string_view name, std::string_view xml) {
    std::string wrapped = "<" + std::string(name);
    for (const xmlNs* bound = root->nsDef; bound != nullptr; bound = bound->next) {
        wrapped += bound->prefix == nullptr ? " xmlns" : " xmlns:";
        wrapped.append(View(bound->prefix)).append("=\"").append(View(bound->href)).append("\"");
    }
    return wrapped.append(">").append(xml).append("</").append(name).append(">");
}

// Exchanges the namespaces that `from` declares for those that `to` declares in the same order.
void RebindNamespace(xmlNsPtr& used, const xmlNode* from, const xmlNode* to) {
    xmlNsPtr own = to->nsDef;
    for (const xmlNs* other = from->nsDef; other != nullptr; other = other->next, own = own->next)
        if (used == other) {
            used = own;
            return;
        }
}

void RebindNamespaces(xmlNodePtr element, const xmlNode* from, const xmlNode* to) {
    if (element->type != XML_ELEMENT_NODE) return;
    RebindNamespace(element->ns, from, to);
    for (xmlAttrPtr attribute = element->properties; attribute != nullptr; attribute = attribute->next)
        RebindNamespace(attribute->ns, from, to);
    for (xmlNodePtr child = element->children; child != nullptr; child = child->next)
        RebindNamespaces(child, from, to);
}

void MoveChildren(xmlNodePtr from, xmlNodePtr to) {
    while (from->children != nullptr) {
        const xmlNodePtr child = from->children;
        RebindNamespaces(child, from, to);
        xmlUnlinkNode(child);
        xmlAddChild(to, child);
    }
}

// A text that is to take the place of several.
using NewText = std::unique_ptr<xmlNode, decltype(&xmlFreeNode)>;
using JoinedTexts = std::vector<std::pair<xmlNodePtr, NewText>>;  // the first of the several, and the new one

bool MeetsText(const xmlNode* text) {
    return text->type == XML_TEXT_NODE && text->next != nullptr && text->next->type == XML_TEXT_NODE;
}

void JoinTextsBelow(xmlNodePtr parent, JoinedTexts& joined) {
    for (xmlNodePtr child = parent->children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) JoinTextsBelow(child, joined);
        if (!MeetsText(child)) continue;
        std::string whole(View(child->content));
        const xmlNodePtr first = child;
        for (; MeetsText(child); child = child->next) whole += View(child->next->content);
        joined.emplace_back(
            first, NewText(xmlNewDocText(parent->doc, reinterpret_cast<const xmlChar*>(whole.c_str())),
                           xmlFreeNode));
    }
}

void PutInPlace(JoinedTexts& joined) noexcept {
    for (auto& [first, text] : joined) {
        while (MeetsText(first)) {
            const NewText next(first->next, xmlFreeNode);
            xmlUnlinkNode(next.get());
        }
        const NewText replaced(xmlReplaceNode(first, text.release()), xmlFreeNode);
    }
}

}  // namespace

bool AppendInPlace(Tree& tree, std::string_view name, std::string_view uri, const std::string& xml) {
    const xmlNodePtr root = xmlDocGetRootElement(tree.Document);
    if (root == nullptr || root->next != nullptr || !IsNamed(root, name, uri)) return false;
    if (!LoadsAsItIs(tree) || !StandsAlone(xml)) return false;

    std::unique_ptr<Tree> added;
    if (!xml.empty()) {
        added = ParseForMoving(WrapInRoot(root, name, xml), tree.Document->dict);
        if (!added) return true;
    }
    JoinedTexts joined;
    const MemoryWatch watch;
    if (tree.TextsMeet) JoinTextsBelow(root, joined);
    watch.ThrowIfExhausted();

    PutInPlace(joined);
    tree.FreeRemoved();
    tree.TextsMeet = false;
    if (!added) return true;
    MoveChildren(xmlDocGetRootElement(added->Document), root);
    tree.Bytes += added->Bytes;
    tree.OddNamespaces = added->OddNamespaces;
    tree.Context.reset();  // made anew it knows the order of the new elements
    return true;
}

}  // namespace Platform
