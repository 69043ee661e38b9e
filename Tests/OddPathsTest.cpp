#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "Support.h"
#include "ticket/TicketNamespaces.h"

// Paths and series of names that no conversion asks for: whatever a document does instead of a query, it
// finds what the query finds.

namespace DeviceSpecificModule {
namespace {

using Platform::PathStep;

constexpr char16_t xmlsOwn[] = u"http://www.w3.org/XML/1998/namespace";
constexpr PathStep root = {.Element = u"psf:PrintTicket"}, value = {.Element = u"psf:Value"};

std::string DeepElements(int depth, const std::string& inside) {
    return depth == 0 ? inside : "<psf:Value>" + DeepElements(depth - 1, inside) + "</psf:Value>";
}

TicketDocument OddTicket() {
    return MakeTicket(
        "<!-- comment --> text <xml:Feature name='xml:F'>of XML</xml:Feature><Value>of none</Value>"
        "<psf:Feature name=''><psf:Option psf:name='other' name=''/></psf:Feature>"
        "<psf:Feature><psf:Option psf:name='other'/></psf:Feature>"
        "<psf:Feature name='xml:F'>bound without a declaration</psf:Feature>"
        "<psf:Feature name=\"psk:it's\">quoted</psf:Feature><psf:\xC3\xA4>umlaut</psf:\xC3\xA4>" +
        Parameter("ns0000:P00a", "no digit") + Parameter("ns0000:P0-1", "a sign") +
        Parameter("P001", "no prefix") + Parameter("ns0000:00", "two digits") +
        Parameter("00", "two characters") + Parameter("psk:P001", "another prefix") +
        Parameter("ns0000:Q001", "another name") + Parameter("ns0000:P0001", "four digits") +
        Parameter("ns0000:P003", "beyond the room") + Parameter("ns0000:P001", "one") +
        Parameter("ns0000:P001", "one again") + "<psf:ParameterInit>nameless</psf:ParameterInit>" +
        "<psf:ParameterInit name='ns0000:P002'>valueless</psf:ParameterInit>" +
        DeepElements(40, "<psf:Option name='psk:deep'/>"));
}

// The text found, or that there is none, or that the path is refused.
std::string Found(bool taken, const TicketNode& node) {
    if (!taken) return node ? "refused with a node" : "refused";
    return node ? Narrow(node->text()) : "none";
}

TEST(OddPaths, FindWhatTheirQueriesFind) {
    std::vector<std::vector<PathStep>> paths = {
        {},
        {{.Element = u""}},
        {{.Element = u"psf"}},
        {{.Element = u":PrintTicket"}},
        {{.Element = u"@name"}},
        {{.Element = u"psf:{"}},
        {{.Element = u"Value", .AtAnyDepth = true}},
        {root, {.Element = u"Value"}},
        {root, {.Element = u"xml:Feature"}},
        {root, {.Element = u"psf:\u00E4"}},
        {root, {.Element = u"psf:Option", .AtAnyDepth = true}, {.Element = u"@name"}},
        {root, {.Element = u"@name"}, {.Element = u"psf:Feature"}},
        {root, {.Element = u"psf:Feature", .Name = u""}},
        {root, {.Element = u"psf:Feature", .Name = u"psk:it's"}},
        {root, {.Element = u"psf:Feature", .Name = u"psk:it"}},
        {root, {.Element = u"psf:Feature", .Name = std::u16string_view(u"\0", 1)}},
        {root, {.Element = u"psf:Feature", .Name = u"F", .Namespace = xmlsOwn}},
        {root, {.Element = u"psf:Feature", .Name = u"it's", .Namespace = KeywordsNamespace}},
        {root, {.Element = u"psf:Feature", .Name = u"F", .Namespace = u"x'y"}},
        {root, {.Element = std::u16string_view(u"psf:Value").substr(0, 6)}},
    };
    // Of any number of steps: those around powers of two are where room may end.
    for (std::size_t steps = 1; steps <= 40; ++steps) {
        paths.emplace_back(steps, value);
        paths.back().front() = root;
        paths.push_back(paths.back());
        paths.back().back() = {.Element = u"psf:Option", .AtAnyDepth = true, .Name = u"psk:deep"};
        paths.push_back(paths.back());
        paths.back().push_back({.Element = u"@name"});
    }
    int found = 0;
    for (const std::vector<PathStep>& path : paths) {
        const TicketDocument ticket = OddTicket();
        TicketNode walked, queried;
        const bool walks = ticket->selectPath(path, walked);
        const bool queries = ticket->IXMLDOMDocument2::selectPath(path, queried);
        EXPECT_EQ(Found(walks, walked), Found(queries, queried)) << Narrow(Platform::QueryOf(path));
        found += walked ? 1 : 0;
    }
    EXPECT_GT(found, 80);
}

TEST(OddPaths, SeriesTakeWholeNamesOfThreeDigits) {
    const TicketDocument ticket = OddTicket();
    const PathStep path[] = {
        root, {.Element = u"psf:ParameterInit", .Name = u"P", .Namespace = DevmodeNamespace}, value};
    std::array<TicketNode, 3> nodes;
    if (!ticket->selectSeries(path, 1, nodes)) GTEST_SKIP() << "no cheaper way than a query for each";
    const char* const expected[] = {"none", "one", "none"};
    for (std::size_t number = 0; number < nodes.size(); ++number)
        EXPECT_EQ(Found(true, nodes[number]), expected[number]) << number;
    const PathStep unbound = {.Element = u"none:X"};
    EXPECT_FALSE(ticket->selectSeries(std::array{unbound, path[1], value}, 1, nodes));
    EXPECT_FALSE(ticket->selectSeries(std::array{root, path[1], unbound}, 1, nodes));
}

TEST(OddPaths, LargeTextsAreAppendedAsSmallOnesAre) {
    const std::string large = "<psf:Value>" + std::string(4'000'000, 'x') + "</psf:Value>",
                      small = "<psf:Value>y</psf:Value>";
    for (const auto& [before, added] : {std::pair(large, small), std::pair(small, large)}) {
        const TicketDocument ticket = MakeTicket(before);
        EXPECT_TRUE(ticket->appendToRoot(u"psf:PrintTicket", Wide(added)));
        EXPECT_TRUE(Narrow(ticket->xml()).ends_with(before + added + "</psf:PrintTicket>\n"));
    }
}

TEST(OddPaths, WhatADocumentCannotDoItSays) {
    const TicketDocument ticket = OddTicket();
    EXPECT_FALSE(ticket->IXMLDOMDocument2::selectSeries({}, 0, {}));
    for (const char16_t* malformed :
         {u"xmlns:", u"xmlns:x=", u"other:x='urn:a'", u"xmlns:x='urn:a", u"xmlns:x='' '"})
        EXPECT_FALSE(ticket->setProperty(u"SelectionNamespaces", malformed)) << Narrow(WideText(malformed));
    EXPECT_FALSE(ticket->appendToRoot(u"none:PrintTicket", WideText(u"<x/>")));

    TicketNode attribute, feature;
    ASSERT_TRUE(ticket->selectSingleNode(u"//psf:Feature/@name", attribute) && attribute);
    ASSERT_TRUE(ticket->selectSingleNode(u"//psf:Feature", feature) && feature);
    EXPECT_FALSE(feature->removeChild(attribute));
    EXPECT_FALSE(feature->removeChild(feature));
    EXPECT_TRUE(feature->parentNode()->removeChild(feature));
}

}  // namespace
}  // namespace DeviceSpecificModule
