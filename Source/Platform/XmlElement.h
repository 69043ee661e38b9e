#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "devicespecific/platform/Export.h"
#include "devicespecific/platform/TicketDocument.h"

namespace DeviceSpecificModule::Platform {

// XML as plain values, for who reads a whole document rather than ask for a node of it, or makes one. Texts
// are UTF-8.

// A name as it is written, with the namespace that its prefix stands for there; empty: none.
struct XmlName {
    std::string Prefix, Local, Namespace;
};

inline std::string NameAsWritten(const XmlName& name) {
    return name.Prefix.empty() ? name.Local : name.Prefix + ":" + name.Local;
}

struct XmlAttribute {
    XmlName Name;
    std::string Value;
};

// A prefix (empty: the default) and what it is bound to from its element on.
struct XmlNamespace {
    std::string Prefix, Uri;
};

// An element with all that stands in it but comments and processing instructions.
struct XmlElement {
    XmlName Name;
    std::vector<XmlNamespace> Namespaces;  // declared here
    std::vector<XmlAttribute> Attributes;  // all others, in their order
    std::string Text;                      // its own, exactly as it stands, without that of its children
    std::vector<XmlElement> Children;      // in their order
    int Line = 0;                          // of its start tag's end, from 1; 0 behind line 65,534
};

// The root of a document that a file's bytes hold, by the rules of LoadTicketDocument for bytes. Nothing,
// and `error` says why, for bytes that are refused. Throws ResultError or std::bad_alloc without memory.
DEVICESPECIFIC_API std::optional<XmlElement> ReadXml(std::string_view bytes, ParseError& error);

// The same from a text.
DEVICESPECIFIC_API std::optional<XmlElement> ReadXml(const WideText& text, ParseError& error);

// A whole document with this root, as UTF-8 that says so, a line for each element that holds no text; an
// element's own text goes ahead of its children. What ReadXml gave reads the same again but for white space
// between elements and the order of text and children. Names are written by their prefixes, which an element
// or one around it must declare; they must be XML's names, and texts hold characters that XML has. Throws
// ResultError or std::bad_alloc without memory.
DEVICESPECIFIC_API std::string WriteXml(const XmlElement& root);

}  // namespace DeviceSpecificModule::Platform
