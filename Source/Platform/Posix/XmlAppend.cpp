#include "XmlAppend.h"

#include <memory>
#include <utility>
#include <vector>

#include "XmlParser.h"

namespace DeviceSpecificModule::Platform {
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
    return !tree.SectionsMeet && tree.Bytes <= mostBytes && tree.Document->ids == nullptr;
}

// XML that begins with an element can't grow together with what the root holds, and without "xml:" it uses no
// prefix but those of the root and its own.
bool StandsAlone(std::string_view xml) {
    return xml.empty() || (xml.size() > 1 && xml[0] == '<' && xml[1] != '!' && xml[1] != '?' &&
                           xml.find("xml:") == xml.npos && xml.size() <= mostBytes);
}

// The XML in an element that binds the prefixes which the root binds.
std::string WrapInRoot(const xmlNode* root, std::string_view name, std::string_view xml) {
    std::string wrapped = "<" + std::string(name);
    for (const xmlNs* bound = root->nsDef; bound != nullptr; bound = bound->next) {
        wrapped += bound->prefix == nullptr ? " xmlns" : " xmlns:";
        wrapped.append(View(bound->prefix)).append("=\"");
        for (const char each : View(bound->href))
            each == '"' ? wrapped.append("&quot;") : wrapped.append(1, each);
        wrapped += '"';
    }
    return wrapped.append(">").append(xml).append("</").append(name).append(">");
}

// Exchanges the namespaces that `from` declares for those that `to` declares in the same order.
template <typename Item>
void Rebind(Item* item, const xmlNode* from, const xmlNode* to) {
    xmlNsPtr own = to->nsDef;
    const xmlNs* other = from->nsDef;
    for (; other != nullptr && other != item->ns; other = other->next) own = own->next;
    if (other != nullptr) item->ns = own;
}

void RebindAll(xmlNodePtr node, const xmlNode* from, const xmlNode* to) {
    if (node->type != XML_ELEMENT_NODE) return;
    Rebind(node, from, to);
    for (xmlAttrPtr each = node->properties; each != nullptr; each = each->next) Rebind(each, from, to);
    for (xmlNodePtr child = node->children; child != nullptr; child = child->next) RebindAll(child, from, to);
}

void MoveChildren(xmlNodePtr from, xmlNodePtr to) {
    while (const xmlNodePtr child = from->children) {
        RebindAll(child, from, to);
        xmlUnlinkNode(child);
        xmlAddChild(to, child);
    }
}

// The first of several texts side by side, and the text that is to take their place.
using OwnedNode = std::unique_ptr<xmlNode, decltype(&xmlFreeNode)>;
using JoinedTexts = std::vector<std::pair<xmlNodePtr, OwnedNode>>;

bool MeetsText(const xmlNode* node) {
    return node->type == XML_TEXT_NODE && node->next != nullptr && node->next->type == XML_TEXT_NODE;
}

void JoinTextsBelow(xmlNodePtr parent, JoinedTexts& joined) {
    for (xmlNodePtr child = parent->children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) JoinTextsBelow(child, joined);
        if (!MeetsText(child)) continue;
        const xmlNodePtr first = child;
        std::string whole(View(child->content));
        for (; MeetsText(child); child = child->next) whole += View(child->next->content);
        const auto* content = reinterpret_cast<const xmlChar*>(whole.c_str());
        joined.emplace_back(first, OwnedNode(xmlNewDocText(parent->doc, content), xmlFreeNode));
    }
}

void PutInPlace(JoinedTexts& joined) noexcept {
    for (auto& [first, text] : joined) {
        while (MeetsText(first)) {
            const OwnedNode next(first->next, xmlFreeNode);
            xmlUnlinkNode(next.get());
        }
        xmlFreeNode(xmlReplaceNode(first, text.release()));
    }
}

}  // namespace

bool AppendInPlace(Tree& tree, std::string_view name, std::string_view uri, const std::string& xml) {
    const xmlNodePtr root = xmlDocGetRootElement(tree.Document);
    if (root == nullptr || root->next != nullptr || !IsNamed(root, name, uri)) return false;
    if (!LoadsAsItIs(tree) || !StandsAlone(xml)) return false;
    std::unique_ptr<Tree> added;
    if (!xml.empty()) {
        added = Parse(WrapInRoot(root, name, xml), Encoding::Utf8, nullptr, tree.Document->dict);
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
    tree.Context.reset();  // made anew it knows the order of the new elements
    return true;
}

}  // namespace DeviceSpecificModule::Platform
