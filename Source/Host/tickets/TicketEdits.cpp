#include "Host/tickets/TicketEdits.h"

#include <algorithm>
#include <map>
#include <vector>

#include "Host/ground/Texts.h"

namespace TicketHost {
namespace {

using Platform::IXMLDOMDocument2;
using Platform::XmlElement;

Platform::TicketNode FindNode(IXMLDOMDocument2& ticket, const std::string& path) {
    Platform::TicketNode node;
    ticket.selectSingleNode(UnitsOf(path), node);
    return node;
}

// The value of a parameter.
std::string ValuePath(const std::string& parameter) { return parameter + "//*[local-name()='Value']"; }

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char character : text)
        if (character == '<')
            escaped += "&lt;";
        else if (character == '&')
            escaped += "&amp;";
        else
            escaped += character;
    return escaped;
}

// By which pieces are looked for.
std::string VendorPrefix(const XmlElement& root) {
    const std::string prefix = PrefixOf(root, DevmodeNamespace);
    return prefix.empty() ? "ns0000" : prefix;
}

// The element declares all that it uses, whatever the ticket's own prefixes are, but for a vendor's prefix
// that the root has.
std::string ParameterText(const XmlElement& root, const std::string& prefix, const std::string& local,
                          std::string_view type, std::string_view value) {
    std::string text = "<psf:ParameterInit xmlns:psf=\"";
    text.append(FrameworkNamespace);
    if (NamespaceOf(root, prefix) != DevmodeNamespace)
        text.append("\" xmlns:").append(prefix).append("=\"").append(DevmodeNamespace);
    text.append("\" name=\"").append(prefix).append(":").append(local);
    text.append("\"><psf:Value xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"");
    text.append(" xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" xsi:type=\"xsd:").append(type);
    return text.append("\">").append(Escaped(value)).append("</psf:Value></psf:ParameterInit>");
}

std::size_t CountChildren(IXMLDOMDocument2& ticket) { return FindNode(ticket, "/*[1]")->childNodesLength(); }

// Behind all that stands in the root, by way of the text, whatever the root's prefix is. False, and perhaps
// no longer the same, where that can't be read or the root's end isn't found.
bool Append(IXMLDOMDocument2& ticket, const XmlElement& root, const std::string& fragments) {
    const std::string tag =
        root.Name.Prefix.empty() ? root.Name.Local : root.Name.Prefix + ":" + root.Name.Local;
    const std::string end = "</" + tag + ">";
    std::string text = ToUtf8(ticket.xml());
    if (const std::size_t at = text.rfind(end); at != text.npos)
        text.insert(at, fragments);
    else if (const std::size_t slash = text.rfind("/>"); slash != text.npos)
        text.replace(slash, 2, ">" + fragments + end);
    const std::size_t count = CountChildren(ticket);
    return ticket.loadXML(FromUtf8(text)) && CountChildren(ticket) > count;
}

// The first piece that is counted gets all; the rest of them gets nothing.
bool ReplacePieces(IXMLDOMDocument2& ticket, const TicketSettings& settings, const std::string& text) {
    bool done = true;
    for (const SettingsPiece& piece : settings.Pieces) {
        if (!IsCounted(settings, piece)) break;
        const bool isFirst = &piece == &settings.Pieces.front();
        done &= SetElementText(ticket, ValuePath(piece.Path), isFirst ? std::string_view(text) : "");
    }
    return done;
}

// Makes it a series of one piece; what stands there of it, null where nothing does, counts no piece.
bool PutSeries(IXMLDOMDocument2& ticket, const XmlElement& root, const SettingsSeries& series,
               const TicketSettings* there, const std::string& text) {
    std::string fragments;
    bool done = true;
    if (there == nullptr)
        fragments += ParameterText(root, "ns0000", std::string(series.Count), "integer", "1");
    else
        done &= SetElementText(ticket, ValuePath(there->CountPath), "1");
    if (there != nullptr && !there->Pieces.empty() && there->Pieces.front().Index == 0)
        done &= SetElementText(ticket, ValuePath(there->Pieces.front().Path), text);
    else
        fragments +=
            ParameterText(root, VendorPrefix(root), std::string(series.Piece) + "000", "string", text);
    return done && (fragments.empty() || Append(ticket, root, fragments));
}

}  // namespace

// Of several the last one.
std::string PrefixOf(const XmlElement& root, std::string_view space) {
    std::string prefix;
    for (const Platform::XmlNamespace& each : root.Namespaces)
        if (each.Uri == space && !each.Prefix.empty()) prefix = each.Prefix;
    return prefix;
}

std::string NamespaceOf(const XmlElement& root, std::string_view prefix) {
    const auto found = std::ranges::find(root.Namespaces, prefix, &Platform::XmlNamespace::Prefix);
    return found == root.Namespaces.end() ? "" : found->Uri;
}

bool AppendFeature(IXMLDOMDocument2& ticket, const XmlElement& root, const Platform::XmlName& feature,
                   const Platform::XmlName& option) {
    std::map<std::string, std::string> declared = {{"psf", std::string(FrameworkNamespace)}};
    for (const Platform::XmlName* name : {&feature, &option})
        if (!name->Prefix.empty() && NamespaceOf(root, name->Prefix) != name->Namespace)
            declared.emplace(name->Prefix, name->Namespace);
    std::string text = "<psf:Feature";
    for (const auto& [prefix, space] : declared)
        text.append(" xmlns:").append(prefix).append("=\"").append(Escaped(space)).append("\"");
    text.append(" name=\"").append(Escaped(Platform::NameAsWritten(feature)));
    text.append("\"><psf:Option name=\"")
        .append(Escaped(Platform::NameAsWritten(option)))
        .append("\"/></psf:Feature>");
    return Append(ticket, root, text);
}

bool RemoveElement(IXMLDOMDocument2& ticket, const std::string& path) {
    const Platform::TicketNode node = FindNode(ticket, path);
    const Platform::TicketNode parent = node ? node->parentNode() : nullptr;
    return parent && parent->removeChild(node);
}

bool SetElementText(IXMLDOMDocument2& ticket, const std::string& path, std::string_view text) {
    const Platform::TicketNode node = FindNode(ticket, path);
    return node && node->setText(FromUtf8(text));
}

bool PutSettings(IXMLDOMDocument2& ticket, const XmlElement& root, const SettingsSeries& series,
                 const Json::Value& values) {
    if (!IsPrintTicket(root)) return false;
    const std::vector<TicketSettings> all = ReadSettings(root);
    const auto found = std::ranges::find(all, &series, &TicketSettings::Series);
    const TicketSettings* there = found == all.end() ? nullptr : &*found;
    const std::string text = WriteSettings(values);
    if (there != nullptr && !there->Pieces.empty() && IsCounted(*there, there->Pieces.front()))
        return ReplacePieces(ticket, *there, text);
    return PutSeries(ticket, root, series, there, text);
}

}  // namespace TicketHost
