#include "devicespecific/platform/TicketDocument.h"

namespace DeviceSpecificModule::Platform {
namespace {

WideText NameConditions(const PathStep& step) {
    if (!step.Name) return {};
    if (!step.Namespace) return WideText::Join({u"[@name='", *step.Name, u"']"});
    return WideText::Join({u"[substring-after(@name,':')='", *step.Name, u"'][name(namespace::*[.='",
                           *step.Namespace, u"'])=substring-before(@name,':')]"});
}

// The front part of a document's text, up to where the last child of its root ends, and what keeps the root
// open behind it.
struct OpenText {
    std::u16string_view Front;
    std::u16string_view Opening;
};

OpenText OpenRoot(std::u16string_view xml, bool hasChildren) {
    if (hasChildren) return {xml.substr(0, xml.rfind(u'<')), u""};
    const std::size_t slash = xml.rfind(u'/');  // of "<a/>" or "<a></a>", so not the first character
    if (xml[slash - 1] == u'<') return {xml.substr(0, slash - 1), u""};
    return {xml.substr(0, slash), u">"};
}

}  // namespace

IXMLDOMNode::~IXMLDOMNode() = default;
IXMLDOMDocument2::~IXMLDOMDocument2() = default;

WideText QueryOf(Path path) {
    WideText query;
    for (const PathStep& step : path) {
        const std::u16string_view axis = step.AtAnyDepth ? u"//" : query.IsNull() ? u"" : u"/";
        query = WideText::Join({query.View(), axis, step.Element, NameConditions(step).View()});
    }
    return query;
}

bool IXMLDOMDocument2::selectPath(Path path, TicketNode& node) {
    return selectSingleNode(QueryOf(path).View(), node);
}

bool IXMLDOMDocument2::selectSeries(Path, std::size_t, ArrayView<TicketNode>) { return false; }

bool IXMLDOMDocument2::appendToRoot(std::u16string_view root, const WideText& fragments) {
    const WideText text = xml();
    TicketNode node;
    selectSingleNode(WideText::Join({u"//", root}).View(), node);
    if (!node) return false;
    const auto [front, opening] = OpenRoot(text.View(), node->childNodesLength() != 0);
    loadXML(WideText::Join({front, opening, fragments.View(), u"</", root, u">"}));
    return true;
}

}  // namespace DeviceSpecificModule::Platform
