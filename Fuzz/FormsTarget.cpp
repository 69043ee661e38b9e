#include <algorithm>

#include "Contract.h"
#include "Targets.h"
#include "conversion/TextOperations.h"
#include "ticket/TicketNamespaces.h"

// What a document does in a cheaper way gives what the text forms give, for any ticket. The first part of an
// input is the ticket; each other one is something to do to two documents of it, by its first character:
//
//   + FRAGMENT   append it to the root: to one document in place, to the other by its text
//   - NUMBER     remove the element of that number in document order
//   = NUMBER     set its text to a few characters that mean something
//   ? NAME       ask for the items of that name in all fixed forms, by walking and by the query engine

namespace Fuzz {
namespace {

using DeviceSpecificModule::DecimalText;
using DeviceSpecificModule::DevmodeNamespace;
using DeviceSpecificModule::KeywordsNamespace;
using Platform::PathStep;
using Platform::TicketNode;

constexpr std::size_t mostSteps = 8;
constexpr std::size_t longestName = 24;

constexpr std::u16string_view rootName = u"psf:PrintTicket";
constexpr PathStep root = {.Element = rootName};
constexpr PathStep anyRoot = {.Element = rootName, .AtAnyDepth = true};
constexpr PathStep value = {.Element = u"psf:Value"};
constexpr PathStep anyValue = {.Element = u"psf:Value", .AtAnyDepth = true};
constexpr PathStep option = {.Element = u"psf:Option"};
constexpr PathStep nameOf = {.Element = u"@name"};

PathStep Named(std::u16string_view element, std::u16string_view name, std::u16string_view uri) {
    PathStep step{.Element = element, .Name = name};
    if (!uri.empty()) step.Namespace = uri;
    return step;
}

// All forms in which the module asks for a name.
std::vector<std::vector<PathStep>> FixedPaths(std::u16string_view name) {
    std::vector<std::vector<PathStep>> paths = {{anyRoot},
                                                {anyRoot, Named(u"psf:Feature", name, {})},
                                                {anyRoot, Named(u"psf:ParameterInit", name, {})},
                                                {anyRoot, Named(u"psf:ParameterInit", name, {}), value}};
    for (const std::u16string_view uri : {KeywordsNamespace, DevmodeNamespace}) {
        const PathStep feature = Named(u"psf:Feature", name, uri);
        PathStep scored = Named(u"psf:ScoredProperty", name, uri);
        scored.AtAnyDepth = true;
        paths.push_back({root, feature, option, nameOf});
        paths.push_back({root, feature, Named(u"psf:Feature", name, DevmodeNamespace), option, nameOf});
        paths.push_back({root, feature, option, scored, value});
        paths.push_back({root, Named(u"psf:ParameterInit", name, uri), anyValue});
    }
    return paths;
}

std::string Describe(bool isTaken, const TicketNode& node) {
    if (!node) return isTaken ? "none" : "refused";
    const TicketNode parent = node->parentNode();
    return Narrow(node->text().View()) + "|" + std::to_string(node->childNodesLength()) + "|" +
           (parent ? Narrow(parent->text().View()) : "");
}

void RequireWalk(const TicketDocument& ticket, Platform::Path path) {
    TicketNode walked, queried;
    const WideText query = Platform::QueryOf(path);
    const bool walks = ticket->selectPath(path, walked);
    const bool queries = ticket->selectSingleNode(query.View(), queried);
    Require(Describe(walks, walked) == Describe(queries, queried), "a walk finds what a query finds",
            WideText::Join({query.View(), u"\n", ticket->xml().View()}).View());
}

void RequireSeries(const TicketDocument& ticket, std::u16string_view name) {
    constexpr std::size_t length = 3;
    const PathStep series[] = {root, Named(u"psf:ParameterInit", name, DevmodeNamespace), anyValue};
    TicketNode nodes[length];
    if (!ticket->selectSeries(series, 1, nodes)) return;
    for (std::size_t at = 0; at < length; ++at) {
        const WideText numbered = WideText::Join({name, u"00", DecimalText(static_cast<std::int64_t>(at))});
        const PathStep single[] = {root, Named(u"psf:ParameterInit", numbered.View(), DevmodeNamespace),
                                   anyValue};
        TicketNode queried;
        ticket->selectSingleNode(Platform::QueryOf(single).View(), queried);
        Require(Describe(true, nodes[at]) == Describe(true, queried), "a series holds what queries find",
                numbered.View());
    }
}

void Ask(const TicketDocument& ticket, std::u16string_view name) {
    for (const std::vector<PathStep>& path : FixedPaths(name)) RequireWalk(ticket, path);
    RequireSeries(ticket, name);
}

TicketNode ElementOf(const TicketDocument& ticket, std::int32_t number) {
    TicketNode node;
    const WideText query = WideText::Join({u"(//*)[", DecimalText(number), u"]"});
    ticket->selectSingleNode(query.View(), node);
    return node;
}

void Change(const TicketDocument& ticket, char16_t what, std::int32_t number) {
    const TicketNode node = ElementOf(ticket, number);
    if (!node) return;
    if (what == u'=') node->setText(WideText(u"set\r<&]]>"));
    const TicketNode parent = what == u'-' ? node->parentNode() : nullptr;
    if (parent && number > 1) parent->removeChild(node);
}

// The text of a document, and the texts that stand behind another one, which it doesn't show.
std::u16string ShapeOf(const TicketDocument& ticket) {
    std::u16string shape(ticket->xml().View());
    for (std::int32_t at = 1;; ++at) {
        TicketNode node;
        const WideText query = WideText::Join(
            {u"(//text()[preceding-sibling::node()[1][self::text()]])[", DecimalText(at), u"]"});
        ticket->selectSingleNode(query.View(), node);
        if (!node) return shape;
        shape += u"|";
        shape += node->text().View();
    }
}

// Two documents of one ticket: one that does things in its own way, one that does them by its text.
struct Pair {
    TicketDocument Own;
    TicketDocument General;

    void Do(std::u16string_view step) const {
        if (step.empty()) return;
        const std::u16string_view rest = step.substr(1);
        if (step[0] == u'?') return Ask(Own, rest.substr(0, longestName));
        if (step[0] == u'+') return Append(WideText(rest));
        for (const TicketDocument& ticket : {Own, General})
            Change(ticket, step[0], DeviceSpecificModule::ReadDecimal(rest));
        RequireSame(step);
    }

    void Append(const WideText& fragment) const {
        const bool own = Own->appendToRoot(rootName, fragment);
        const bool general = General->Platform::IXMLDOMDocument2::appendToRoot(rootName, fragment);
        Require(own == general, "appending finds the root in both ways", fragment.View());
        RequireSame(fragment.View());
    }

    void RequireSame(std::u16string_view step) const {
        Require(ShapeOf(Own) == ShapeOf(General), "appending in place gives what loading anew gives",
                WideText::Join({step, u"\n", Own->xml().View(), u"\n", General->xml().View()}).View());
    }
};

TicketDocument LoadWithNamespaces(std::string_view bytes) {
    const TicketDocument ticket = LoadTicket(bytes);
    if (ticket) ticket->setProperty(u"SelectionNamespaces", DeviceSpecificModule::SelectionNamespaces);
    return ticket;
}

}  // namespace

void RunForms(std::string_view input) {
    const std::vector<std::string_view> parts = SplitParts(input);
    const Pair pair{LoadWithNamespaces(parts[0]), LoadWithNamespaces(parts[0])};
    if (!pair.Own) return;
    RequireReloads(pair.Own);
    Ask(pair.Own, u"PageMediaSize");
    const std::size_t end = std::min(parts.size(), mostSteps + 1);
    for (std::size_t at = 1; at < end; ++at) pair.Do(Wide(parts[at]).View());
    pair.Append(WideText(u""));
    RequireReloads(pair.Own);
}

}  // namespace Fuzz
