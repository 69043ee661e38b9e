#include "Platform/XmlElement.h"

#include <libxml/tree.h>
#include <libxml/xmlwriter.h>

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

// Writes into a buffer. Every call that fails has run out of memory.
class Writer {
public:
    Writer() : writer_(xmlNewTextWriterMemory(Required(buffer_.get()), 0), xmlFreeTextWriter) {
        Require(xmlTextWriterSetIndent(Required(writer_.get()), 1));
        Require(xmlTextWriterSetIndentString(writer_.get(), Chars("  ")));
        Require(xmlTextWriterStartDocument(writer_.get(), nullptr, "UTF-8", nullptr));
    }

    void Write(const XmlElement& element) {
        Require(xmlTextWriterStartElement(writer_.get(), Chars(AsWritten(element.Name))));
        for (const auto& [prefix, uri] : element.Namespaces)
            WriteAttribute(prefix.empty() ? "xmlns" : "xmlns:" + prefix, uri);
        for (const auto& [name, value] : element.Attributes) WriteAttribute(AsWritten(name), value);
        if (!element.Text.empty()) Require(xmlTextWriterWriteString(writer_.get(), Chars(element.Text)));
        for (const XmlElement& child : element.Children) Write(child);
        Require(xmlTextWriterEndElement(writer_.get()));
    }

    std::string Finish() {
        Require(xmlTextWriterEndDocument(writer_.get()));
        Require(xmlTextWriterFlush(writer_.get()));
        watch_.ThrowIfExhausted();
        return std::string(View(xmlBufferContent(buffer_.get())));
    }

private:
    static const xmlChar* Chars(const std::string& text) {
        return reinterpret_cast<const xmlChar*>(text.c_str());
    }
    static std::string AsWritten(const XmlName& name) {
        return name.Prefix.empty() ? name.Local : name.Prefix + ":" + name.Local;
    }
    static void Require(int result) {
        if (result < 0) ThrowResult(ResultOutOfMemory);
    }
    template <typename Object>
    static Object* Required(Object* object) {
        Require(object == nullptr ? -1 : 0);
        return object;
    }
    void WriteAttribute(const std::string& name, const std::string& value) {
        Require(xmlTextWriterWriteAttribute(writer_.get(), Chars(name), Chars(value)));
    }

    MemoryWatch watch_;
    std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer_{xmlBufferCreate(), xmlBufferFree};
    std::unique_ptr<xmlTextWriter, decltype(&xmlFreeTextWriter)> writer_;
};

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
    Writer writer;
    writer.Write(root);
    return writer.Finish();
}

}  // namespace DeviceSpecificModule::Platform
