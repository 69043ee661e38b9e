#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "devicespecific/platform/ArrayView.h"
#include "devicespecific/platform/Export.h"
#include "devicespecific/platform/WideText.h"

/// @file
/// A Print Ticket as a document: what ProcessDrvPT reads and edits. LoadTicketDocument makes one.
/// Documents and their nodes are not locked: what runs at the same time must not share one, but different
/// documents may be used on different threads.

namespace DeviceSpecificModule::Platform {

class IXMLDOMNode;
class IXMLDOMDocument2;
/// Counted references.
/// @{
using TicketNode = std::shared_ptr<IXMLDOMNode>;
using TicketDocument = std::shared_ptr<IXMLDOMDocument2>;
/// @}

/// A node of a document. It stays valid memory for as long as it is held, also when it is removed or when the
/// document is loaded anew: it then belongs to what was, and changes to it no longer show in the document.
/// Operations throw ResultError (ResultOutOfMemory) without memory, and leave all as it was.
class DEVICESPECIFIC_API IXMLDOMNode {
public:
    virtual ~IXMLDOMNode();
    /// The whole string value, exactly as it stands: white space kept, comments left out.
    virtual WideText text() const = 0;
    /// Replaces everything in an element, or an attribute's value, by the text, which is escaped as needed;
    /// what XML can't hold, such as control characters, becomes U+FFFD. False for nodes of other kinds.
    virtual bool setText(const WideText& text) = 0;
    /// Null for the document, an attribute and a removed node.
    virtual TicketNode parentNode() const = 0;
    /// Takes `child` out, and nothing beside it. False when it is no child of this node.
    virtual bool removeChild(const TicketNode& child) = 0;
    /// How many children there are: elements, texts, also of mere white space, comments and whatever else.
    virtual std::size_t childNodesLength() const = 0;
};

/// Why a text was refused, in one line. Line and column count from 1; both are 0 where no place is known.
struct ParseError {
    int Line = 0;        ///< from 1
    int Column = 0;      ///< from 1
    std::string Reason;  ///< in English, without a place
};

/// One step of a path through a document: from an element to a child, at first from the document to its root.
struct PathStep {
    /// As "psf:Feature", the prefix one of "SelectionNamespaces"; the last may be "@name".
    std::u16string_view Element;
    bool AtAnyDepth = false;  ///< to any element below, not only to a child
    /// What the element's attribute "name" must be: all of it, or with a namespace the part behind its first
    /// ":", the part ahead being the prefix that counts for the namespace (as name(namespace::*[.='...'])
    /// gives it).
    /// @{
    std::optional<std::u16string_view> Name = std::nullopt;
    std::optional<std::u16string_view> Namespace = std::nullopt;
    /// @}
};
/// From the document to what is looked for.
using Path = ArrayView<const PathStep>;

/// The path as an XPath query. Names go in as they are. Throws ResultError without memory.
DEVICESPECIFIC_API WideText QueryOf(Path path);

/// A Print Ticket.
class DEVICESPECIFIC_API IXMLDOMDocument2 {
public:
    virtual ~IXMLDOMDocument2();
    /// Knows "SelectionNamespaces": declarations of the form xmlns:prefix='uri', separated by white space,
    /// which hold for all queries to come, reloads included, in place of those before. False, and nothing
    /// changed, for other names and malformed values.
    virtual bool setProperty(std::u16string_view name, std::u16string_view value) = 0;
    /// The first match of an XPath 1.0 query in document order, null where there is none. False, with `node`
    /// null, when the query is malformed, uses an unknown prefix or function, or gives no nodes or a
    /// namespace node. Throws ResultError (ResultOutOfMemory): lack of memory never looks like lack of a
    /// node.
    virtual bool selectSingleNode(std::u16string_view query, TicketNode& node) = 0;
    /// The document as text, with a declaration that names no encoding and no change of format but that an
    /// element's namespace declarations stand ahead of its attributes. loadXML takes it.
    virtual WideText xml() const = 0;
    /// Replaces the document by the text, which must be namespace-well-formed XML 1.0 without a DOCTYPE, no
    /// deeper than 256 elements, with no text of more than 10 million bytes in UTF-8 (for attributes and
    /// comments the limit may lie a little lower), no element of more than 256 attributes, declarations of
    /// namespaces among them, no more than 1000 namespaces in scope, and none of them with "<", "&", a tab or
    /// a line end in its name. So reading costs time in proportion to the length, and what is taken once is
    /// taken again from xml(). An encoding named in the text counts for nothing. False, and the document as
    /// it was, for a text that is refused; `error`, where given, then says why.
    virtual bool loadXML(const WideText& text, ParseError* error = nullptr) = 0;

    // The rest could be said by the operations above, and goes by them unless a document has a cheaper way,
    // which then gives the same results.

    /// selectSingleNode of QueryOf(path).
    virtual bool selectPath(Path path, TicketNode& node);
    /// selectPath for a series of names in one go: nodes[i], null at first, becomes the match of the path
    /// whose step `numbered` has the three digits of i, from "000" on, behind its Name. There must be steps
    /// behind that one and none at any depth up to it. False, and nothing done, where asking for each is no
    /// dearer.
    virtual bool selectSeries(Path path, std::size_t numbered, ArrayView<TicketNode> nodes);
    /// Puts XML behind all children of the root by way of the text: cut at the root's end tag, which is taken
    /// for that of `root` (as "psf:PrintTicket"), filled up and loaded anew. Nothing is escaped or mended:
    /// when the text is refused, the document stays as it was. Nodes taken before belong to the old document.
    /// False, and nothing done, without an element of that name.
    virtual bool appendToRoot(std::u16string_view root, const WideText& fragments);
};

/// A document loaded from a file's bytes, in the encoding that they declare or that a byte order mark shows,
/// else UTF-8; otherwise by loadXML's rules. Null for bytes that are refused; `error` then says why.
DEVICESPECIFIC_API TicketDocument LoadTicketDocument(std::string_view bytes, ParseError& error);

/// The same from a text.
DEVICESPECIFIC_API TicketDocument LoadTicketDocument(const WideText& text, ParseError& error);

}  // namespace DeviceSpecificModule::Platform
