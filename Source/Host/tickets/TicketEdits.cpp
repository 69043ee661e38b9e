#include "Host/tickets/TicketEdits.h"

#include <algorithm>
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

// The prefix that the root binds to the vendor's namespace; of several it is the last that pieces are looked
// for by.
std::string VendorPrefix(const XmlElement& root) {
    std::string prefix = "ns0000";
    for (const Platform::XmlNamespace& space : root.Namespaces)
        if (space.Uri == DevmodeNamespace && !space.Prefix.empty()) prefix = space.Prefix;
    return prefix;
}

bool Binds(const XmlElement& root, const std::string& prefix) {
    return std::ranges::any_of(root.Namespaces, [&](const Platform::XmlNamespace& space) {
        return space.Prefix == prefix && space.Uri == DevmodeNamespace;
    });
}

// The element declares all that it uses, whatever the ticket's own prefixes are, but for a vendor's prefix
// that the root has.
std::string ParameterText(const XmlElement& root, const std::string& prefix, const std::string& local,
                          std::string_view type, std::string_view value) {
    std::string text = "<psf:ParameterInit xmlns:psf=\"";
    text.append(FrameworkNamespace);
    if (!Binds(root, prefix)) text.append("\" xmlns:").append(prefix).append("=\"").append(DevmodeNamespace);
    text.append("\" name=\"").append(prefix).append(":").append(local);
    text.append("\"><psf:Value xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"");
    text.append(" xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" xsi:type=\"xsd:").append(type);
    return text.append("\">").append(Escaped(value)).append("</psf:Value></psf:ParameterInit>");
}

bool Append(IXMLDOMDocument2& ticket, const XmlElement& root, const std::string& text) {
    const Platform::XmlName& name = root.Name;
    const std::string tag = name.Prefix.empty() ? name.Local : name.Prefix + ":" + name.Local;
    return ticket.appendToRoot(UnitsOf(tag), FromUtf8(text));
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
