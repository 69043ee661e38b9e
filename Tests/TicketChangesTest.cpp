#include <gtest/gtest.h>
#include <json/writer.h>

#include <algorithm>
#include <functional>

#include "Host/ground/Files.h"
#include "Host/tickets/TicketChanges.h"
#include "Support.h"

namespace TicketHost {
namespace {

namespace Module = DeviceSpecificModule;

using Lines = std::vector<std::string>;
using Platform::XmlElement;

Lines LinesOf(const std::vector<TicketChange>& changes) {
    Lines lines;
    for (const TicketChange& change : changes) lines.push_back(LineOf(change));
    return lines;
}

Lines Compare(const std::string& before, const std::string& after) {
    return LinesOf(CompareTickets(Module::MakeTicket(before)->xml(), Module::MakeTicket(after)->xml()));
}

TEST(TicketChanges, NameWhatDiffersByFeature) {
    for (const Json::Value& each : Module::ReadCases("host/ticket-changes.json")) {
        Lines expected;
        for (const Json::Value& line : each[2]) expected.push_back(line.asString());
        EXPECT_EQ(Compare(Module::Children(each[0]), Module::Children(each[1])), expected) << each;
    }
    const std::string same(100, 'a'), end(200, 'b');
    const std::string cut = "..." + std::string(40, 'a');
    EXPECT_EQ(Compare(Module::Parameter("psk:A", same + "1"), Module::Parameter("psk:A", same + "2" + end)),
              Lines{"A: " + cut + "1 -> " + cut + "2" + std::string(76, 'b') + "... (124 more)"});
    const std::string longer(130, 'a'), start = std::string(119, 'a') + "... (11 more)";
    EXPECT_EQ(Compare(Module::Parameter("psk:A", "1" + longer), Module::Parameter("psk:A", "2" + longer)),
              Lines{"A: 1" + start + " -> 2" + start});
    const Platform::WideText good(u"<a/>"), bad(u"<a");
    EXPECT_EQ(LinesOf(CompareTickets(bad, good)), Lines{"the ticket: no XML -> XML"});
    EXPECT_EQ(LinesOf(CompareTickets(good, bad)), Lines{"the ticket: XML -> no XML"});
    EXPECT_EQ(LinesOf(CompareTickets(Platform::WideText(u"<a v='1'/>"), Platform::WideText(u"<b v='2'/>"))),
              (Lines{"the root element: a -> b", "/a @v: 1 -> 2"}));
}

// Calls it with each element of a tree while that is other than it was, once for each way to be so.
void ForEachMutant(XmlElement& element, const std::function<void(const char*)>& look) {
    const auto with = [&](auto& place, auto value, const char* what) {
        std::swap(place, value);
        look(what);
        std::swap(place, value);
    };
    with(element.Text, element.Text + "x", "text");
    with(element.Name.Local, element.Name.Local + "x", "name");
    with(element.Name.Namespace, element.Name.Namespace + "x", "namespace");
    for (std::size_t at = 0; at < element.Attributes.size(); ++at) {
        with(element.Attributes[at].Value, element.Attributes[at].Value + "x", "attribute's value");
        with(element.Attributes[at].Name.Local, std::string("x"), "attribute's name");
        auto fewer = element.Attributes;
        fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(at));
        with(element.Attributes, fewer, "attribute gone");
    }
    for (std::size_t at = 0; at < element.Children.size(); ++at) {
        auto fewer = element.Children, more = element.Children;
        fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(at));
        more.push_back(more[at]);
        with(element.Children, fewer, "child gone");
        with(element.Children, more, "child twice");
        ForEachMutant(element.Children[at], look);
    }
}

// Renames a prefix, and turns around what stands in the root.
void Reform(XmlElement& element, bool isRoot) {
    for (Platform::XmlNamespace& space : element.Namespaces)
        if (space.Prefix == "psk") space.Prefix = "k";
    for (Platform::XmlAttribute& attribute : element.Attributes)
        if (attribute.Value.starts_with("psk:")) attribute.Value.replace(0, 3, "k");
    if (isRoot) std::ranges::reverse(element.Children);
    for (XmlElement& child : element.Children) Reform(child, false);
}

TEST(TicketChanges, NothingDiffersSilentlyAndNoFormDoes) {
    std::size_t count = 0;
    for (const char* name : {"job.xml", "all-settings.xml", "page-card.xml", "document-poster.xml"}) {
        Platform::ParseError error;
        const auto read =
            Platform::ReadXml(std::string_view(ReadFile(std::string(SAMPLES_DIR "/tickets/") + name)), error);
        ASSERT_TRUE(read);
        XmlElement other = *read;
        EXPECT_EQ(LinesOf(CompareTickets(*read, other)), Lines());
        ForEachMutant(other, [&](const char* what) {
            ++count;
            const auto changes = CompareTickets(*read, other);
            EXPECT_FALSE(changes.empty()) << name << ": " << what;
            for (const TicketChange& change : changes)
                EXPECT_TRUE(change.Kind != ChangeKind::Changed || change.Before != change.After)
                    << name << ": " << what << ": " << LineOf(change);
        });
        Reform(other, true);
        EXPECT_EQ(LinesOf(CompareTickets(*read, other)), Lines());
    }
    EXPECT_GT(count, 300u);
}

}  // namespace
}  // namespace TicketHost
