#include "Platform/XmlElement.h"

#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include "XmlParser.h"
#include "XmlTree.h"
#include "devicespecific/platform/CodePages.h"

namespace DeviceSpecificModule::Platform {
namespace {

// The library holds no more than 16 bits of a line.
constexpr long lastKnownLine = 65'534;

XmlName NameOf(const xmlChar* local, const xmlNs* space) {
    XmlName name{"", std::string(View(local)), ""};
    if (space == nullptr) return name;
    name.Prefix = View(space->prefix);
    name.Namespace = View(space->href);
    return name;
}

// Values are whole texts here, since there is no DOCTYPE that could declare entities.
std::string ValueOf(const xmlAttr* attribute) {
    std::string value;
    for (const xmlNode* text = attribute->children; text != nullptr; text = text->next)
        value += View(text->content);
    return value;
}

XmlElement ElementOf(const xmlNode* node) {
    XmlElement element;
    element.Name = NameOf(node->name, node->ns);
    const long line = xmlGetLineNo(node);
    element.Line = line > lastKnownLine ? 0 : static_cast<int>(line);
    for (const xmlNs* space = node->nsDef; space != nullptr; space = space->next)
        element.Namespaces.push_back({std::string(View(space->prefix)), std::string(View(space->href))});
    for (const xmlAttr* attribute = node->properties; attribute != nullptr; attribute = attribute->next)
        element.Attributes.push_back({NameOf(attribute->name, attribute->ns), ValueOf(attribute)});
    for (const xmlNode* child = node->children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) element.Children.push_back(ElementOf(child));
        if (child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE)
            element.Text += View(child->content);
    }
    return element;
}

std::optional<XmlElement> Read(std::string_view bytes, Encoding encoding, ParseError& error) {
    const std::unique_ptr<Tree> tree = Parse(bytes, encoding, &error);
    if (!tree) return std::nullopt;
    return ElementOf(xmlDocGetRootElement(tree->Document));
}

// What the library made; what it could not make it had no memory for.
template <typename Item>
Item* Made(Item* item) {
    if (item == nullptr) ThrowResult(ResultOutOfMemory);
    return item;
}

void AddAttribute(xmlNode* node, const std::string& name, const std::string& value) {
    Made(xmlNewProp(node, XmlChars(name), XmlChars(value)));
}

// Adds an element to a document or an element. The tree is for writing alone, so each name in it is whole.
void Add(xmlNode* parent, const XmlElement& element) {
    xmlNode* const node =
        Made(xmlNewDocNode(parent->doc, nullptr, XmlChars(NameAsWritten(element.Name)), nullptr));
    xmlAddChild(parent, node);
    for (const auto& [prefix, uri] : element.Namespaces)
        AddAttribute(node, prefix.empty() ? "xmlns" : "xmlns:" + prefix, uri);
    for (const auto& [name, value] : element.Attributes) AddAttribute(node, NameAsWritten(name), value);
    if (!element.Text.empty()) xmlAddChild(node, Made(xmlNewDocText(parent->doc, XmlChars(element.Text))));
    for (const XmlElement& child : element.Children) Add(node, child);
}

}  // namespace

std::optional<XmlElement> ReadXml(std::string_view bytes, ParseError& error) {
    return Read(bytes, Encoding::AsDeclared, error);
}

std::optional<XmlElement> ReadXml(const WideText& text, ParseError& error) {
    std::string bytes;
    ConvertFromWide(CodePage::Utf8, text.View(), bytes);
    return Read(bytes, Encoding::Utf8, error);
}

std::string WriteXml(const XmlElement& root) {
    const MemoryWatch watch;
    const OwnedDocument document(Made(xmlNewDoc(nullptr)), xmlFreeDoc);
    Add(reinterpret_cast<xmlNode*>(document.get()), root);
    watch.ThrowIfExhausted();
    return Save(*document, XML_SAVE_AS_XML | XML_SAVE_FORMAT);
}

}  // namespace DeviceSpecificModule::Platform
