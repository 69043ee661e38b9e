#include <libxml/tree.h>
#include <libxml/xmlsave.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

#include "PathWalk.h"
#include "XmlAppend.h"
#include "XmlParser.h"
#include "XmlTree.h"
#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/ResultError.h"
#include "devicespecific/platform/TicketDocument.h"

namespace DeviceSpecificModule::Platform {

std::string Save(xmlDoc& document, int options) {
    const MemoryWatch watch;
    const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(), xmlBufferFree);
    if (!buffer) ThrowResult(ResultOutOfMemory);
    xmlBufferSetAllocationScheme(buffer.get(), XML_BUFFER_ALLOC_DOUBLEIT);
    xmlSaveCtxtPtr saving = xmlSaveToBuffer(buffer.get(), "UTF-8", options);
    if (saving == nullptr) ThrowResult(ResultOutOfMemory);
    const bool failed = xmlSaveDoc(saving, &document) < 0;
    if (xmlSaveClose(saving) < 0 || failed) ThrowResult(ResultOutOfMemory);
    watch.ThrowIfExhausted();
    return {reinterpret_cast<const char*>(xmlBufferContent(buffer.get())),
            static_cast<std::size_t>(xmlBufferLength(buffer.get()))};
}

namespace {

std::string Utf8(std::u16string_view units) {
    std::string bytes;
    ConvertFromWide(CodePage::Utf8, units, bytes);
    return bytes;
}

WideText WideOfUtf8(std::string_view bytes) {
    WideText text;
    ConvertToWide(CodePage::Utf8, bytes, text);
    return text;
}

// The text in UTF-8 as a document may hold it: characters that XML doesn't have become U+FFFD.
std::string Utf8ForXml(std::u16string_view text) {
    const auto isForbidden = [](char16_t unit) {
        return unit >= 0xFFFE || (unit < 0x20 && unit != '\t' && unit != '\n' && unit != '\r');
    };
    std::u16string units(text);
    std::ranges::replace_if(units, isForbidden, u'\xFFFD');
    return Utf8(units);
}

TicketNode NewNode(const std::shared_ptr<Tree>& tree, xmlNodePtr node);

class Node final : public IXMLDOMNode {
public:
    Node(std::shared_ptr<Tree> tree, xmlNodePtr node) : tree_(std::move(tree)), node_(node) {}

    WideText text() const override {
        const MemoryWatch watch;
        const std::unique_ptr<xmlChar, decltype(xmlFree)> content(xmlNodeGetContent(node_), xmlFree);
        watch.ThrowIfExhausted();
        if (!content) ThrowResult(ResultOutOfMemory);
        return WideOfUtf8(reinterpret_cast<const char*>(content.get()));
    }

    bool setText(const WideText& text) override {
        if (node_->type != XML_ELEMENT_NODE && node_->type != XML_ATTRIBUTE_NODE) return false;
        const std::string content = WithOneMemoryError([&] { return Utf8ForXml(text.View()); });
        tree_->MakeRoom(childNodesLength());
        tree_->Bytes += content.size();
        const MemoryWatch watch;
        std::unique_ptr<xmlNode, decltype(&xmlFreeNode)> replacement(nullptr, xmlFreeNode);
        if (!content.empty()) replacement.reset(xmlNewDocText(node_->doc, XmlChars(content)));
        watch.ThrowIfExhausted();
        while (node_->children != nullptr) tree_->Keep(node_->children);
        if (replacement) xmlAddChild(node_, replacement.release());
        return true;
    }

    TicketNode parentNode() const override {
        if (node_->type == XML_ATTRIBUTE_NODE || node_->parent == nullptr) return nullptr;
        return NewNode(tree_, node_->parent);
    }

    bool removeChild(const TicketNode& child) override {
        const auto* other = dynamic_cast<const Node*>(child.get());
        if (other == nullptr || other->node_->parent != node_) return false;
        if (other->node_->type == XML_ATTRIBUTE_NODE) return false;
        tree_->MakeRoom(1);
        tree_->Keep(other->node_);
        return true;
    }

    std::size_t childNodesLength() const override {
        std::size_t length = 0;
        for (xmlNodePtr child = node_->children; child != nullptr; child = child->next) ++length;
        return length;
    }

private:
    std::shared_ptr<Tree> tree_;
    xmlNodePtr node_;
};

TicketNode NewNode(const std::shared_ptr<Tree>& tree, xmlNodePtr node) {
    if (node == nullptr) return nullptr;
    return WithOneMemoryError([&] { return std::make_shared<Node>(tree, node); });
}

// Takes declarations of the form xmlns:prefix='uri', separated by white space, apart. False for other texts.
bool ParseNamespaces(std::string_view text, Namespaces& namespaces) {
    constexpr std::string_view blanks = " \t\r\n";
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
        if (text.empty()) return true;
        const std::size_t equals = text.find('=');
        if (!text.starts_with("xmlns:") || equals == text.npos || equals + 1 == text.size()) return false;
        const char quote = text[equals + 1];
        const std::size_t end = text.find(quote, equals + 2);
        if ((quote != '\'' && quote != '"') || end == text.npos || end == equals + 2) return false;
        namespaces.emplace_back(text.substr(6, equals - 6), text.substr(equals + 2, end - equals - 2));
        if (xmlValidateNCName(XmlChars(namespaces.back().first), 0) != 0) return false;
        text.remove_prefix(end + 1);
        if (!text.empty() && blanks.find(text.front()) == blanks.npos) return false;
    }
}

QueryContext NewContext(const Tree& tree, const Namespaces& namespaces) {
    const MemoryWatch watch;
    QueryContext context(xmlXPathNewContext(tree.Document), xmlXPathFreeContext);
    if (!context) ThrowResult(ResultOutOfMemory);
    for (const auto& [prefix, uri] : namespaces)
        if (xmlXPathRegisterNs(context.get(), XmlChars(prefix), XmlChars(uri)) != 0)
            ThrowResult(ResultOutOfMemory);
    xmlXPathOrderDocElems(tree.Document);  // so that putting matches in document order takes no walking
    watch.ThrowIfExhausted();
    return context;
}

const char* Declaration(int standalone) {
    if (standalone < 0) return "<?xml version=\"1.0\"?>\n";
    return standalone == 0 ? "<?xml version=\"1.0\" standalone=\"no\"?>\n"
                           : "<?xml version=\"1.0\" standalone=\"yes\"?>\n";
}

class Document final : public IXMLDOMDocument2 {
public:
    explicit Document(std::shared_ptr<Tree> tree) : tree_(std::move(tree)) {}

    bool setProperty(std::u16string_view name, std::u16string_view value) override {
        if (name != u"SelectionNamespaces") return false;
        std::string text = Utf8(value);
        if (text == namespacesText_) return true;
        Namespaces namespaces;
        if (!WithOneMemoryError([&] { return ParseNamespaces(text, namespaces); })) return false;
        tree_->Context.reset();
        namespaces_ = std::move(namespaces);
        namespacesText_ = std::move(text);
        return true;
    }

    bool selectSingleNode(std::u16string_view query, TicketNode& node) override {
        node = nullptr;
        return WithOneMemoryError([&] { return Select(Utf8(query), node); });
    }

    WideText xml() const override {
        return WithOneMemoryError([&] {
            const std::string text = Declaration(tree_->Document->standalone) +
                                     Save(*tree_->Document, XML_SAVE_AS_XML | XML_SAVE_NO_DECL);
            return WideOfUtf8(text);
        });
    }

    bool loadXML(const WideText& text, ParseError* error) override {
        std::shared_ptr<Tree> tree =
            WithOneMemoryError([&] { return Parse(Utf8(text.View()), Encoding::Utf8, error); });
        if (!tree) return false;
        tree_ = std::move(tree);
        return true;
    }

    bool selectPath(Path path, TicketNode& node) override {
        const PathWalk walk(path, namespaces_);
        if (!walk.IsPossible()) return IXMLDOMDocument2::selectPath(path, node);
        node = NewNode(tree_, walk.First(Top()));
        return true;
    }

    bool selectSeries(Path path, std::size_t numbered, ArrayView<TicketNode> nodes) override {
        const PathStep* const behind = path.begin() + numbered + 1;
        const PathWalk items({path.begin(), numbered + 1}, namespaces_, PathWalk::Names::Series);
        const PathWalk inside({behind, path.size() - numbered - 1}, namespaces_);
        if (!items.IsPossible() || !inside.IsPossible()) return false;
        const auto take = [&](xmlNodePtr item) {
            const std::size_t number = NumberInSeries(item);
            if (number < nodes.size() && !nodes[number]) nodes[number] = NewNode(tree_, inside.First(item));
            return false;
        };
        items.Visit(Top(), std::ref(take));  // by reference, which needs no memory
        return true;
    }

    bool appendToRoot(std::u16string_view root, const WideText& fragments) override {
        const std::string* uri = NameOfNamespace(namespaces_, root.substr(0, root.find(u':')));
        const bool isAlone = tree_.use_count() == 1;  // nobody holds a node, which would have to become stale
        const auto append = [&] { return AppendInPlace(*tree_, Utf8(root), *uri, Utf8(fragments.View())); };
        return (isAlone && uri != nullptr && WithOneMemoryError(append)) ||
               IXMLDOMDocument2::appendToRoot(root, fragments);
    }

private:
    xmlNodePtr Top() const { return reinterpret_cast<xmlNodePtr>(tree_->Document); }

    bool Select(const std::string& query, TicketNode& node) {
        if (query.find('\0') != query.npos) return false;
        if (!tree_->Context) tree_->Context = NewContext(*tree_, namespaces_);
        const MemoryWatch watch;
        tree_->Context->node = Top();
        const xmlXPathObjectPtr found = xmlXPathEvalExpression(XmlChars(query), tree_->Context.get());
        const std::unique_ptr<xmlXPathObject, decltype(&xmlXPathFreeObject)> owner(found, xmlXPathFreeObject);
        watch.ThrowIfExhausted();
        if (found == nullptr || found->type != XPATH_NODESET) return false;
        if (found->nodesetval == nullptr || found->nodesetval->nodeNr == 0) return true;
        xmlXPathNodeSetSort(found->nodesetval);
        xmlNodePtr first = found->nodesetval->nodeTab[0];
        if (first->type == XML_NAMESPACE_DECL) return false;  // a copy that dies with the query's result
        node = NewNode(tree_, first);
        return true;
    }

    std::shared_ptr<Tree> tree_;
    Namespaces namespaces_;
    std::string namespacesText_;
};

TicketDocument Load(std::string_view bytes, Encoding encoding, ParseError& error) {
    return WithOneMemoryError([&]() -> TicketDocument {
        std::shared_ptr<Tree> tree = Parse(bytes, encoding, &error);
        return tree ? std::make_shared<Document>(std::move(tree)) : nullptr;
    });
}

}  // namespace

TicketDocument LoadTicketDocument(std::string_view bytes, ParseError& error) {
    return Load(bytes, Encoding::AsDeclared, error);
}

TicketDocument LoadTicketDocument(const WideText& text, ParseError& error) {
    return Load(Utf8(text.View()), Encoding::Utf8, error);
}

}  // namespace DeviceSpecificModule::Platform
