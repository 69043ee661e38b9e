#include <gtest/gtest.h>

#include <array>
#include <random>
#include <thread>

#include "Support.h"
#include "ticket/TicketNamespaces.h"

// What a document does in a cheaper way than by its text forms gives what those give, on random tickets:
// other prefixes, two for one namespace, namespaces declared anew and away, items twice and within each
// other, names with quotes and references, texts, comments and CDATA sections between.

namespace DeviceSpecificModule {
namespace {

using Platform::IXMLDOMDocument2;
using Platform::PathStep;

class RandomTicket {
public:
    explicit RandomTicket(unsigned seed) : random_(seed) {}

    template <std::size_t Count>
    std::string OneOf(const std::array<const char*, Count>& choices) {
        return choices[random_() % Count];
    }
    bool Happens(unsigned percent) { return random_() % 100 < percent; }

    std::string Xml() {
        static constexpr std::array<const char*, 6> fronts = {"",
                                                              "",
                                                              "<?xml version='1.0' standalone='yes'?>",
                                                              "<!-- front --><?p i?>",
                                                              "\n",
                                                              "<?xml version='1.0' encoding='UTF-8'?>\n"};
        static constexpr std::array<const char*, 8> ends = {
            "", "", "", "", "\n", " ", "<!-- > </x> -->", "<?p i?>"};
        const std::string front = OneOf(fronts);
        std::string root = "psf:PrintTicket", bound = " xmlns:psf='" FRAMEWORK_NAMESPACE "'";
        if (Happens(5)) root = "PrintTicket", bound += " xmlns='" FRAMEWORK_NAMESPACE "'";
        if (Happens(5)) root = "f:PrintTicket", bound += " xmlns:f='" FRAMEWORK_NAMESPACE "'";
        if (Happens(3)) root = "psf:Other";
        const std::string tag = root + bound + Declarations(70) + Attribute();
        if (Happens(8)) return front + "<" + tag + "/>" + OneOf(ends);
        return front + "<" + tag + ">" + Children(3) + "</" + root + ">" + OneOf(ends);
    }

    std::string Fragment() {
        static constexpr std::array<const char*, 14> odd = {"text",
                                                            "<!-- c -->",
                                                            "<a",
                                                            "</psf:PrintTicket>",
                                                            "<u:x/>",
                                                            "<![CDATA[c]]>",
                                                            "<a/>&#13;<b/>",
                                                            "<a xml:space='default'/>",
                                                            "<a xml:id='i'/>",
                                                            "]]>",
                                                            "<a xmlns='&lt;'><b/></a>",
                                                            "<a b='&lt;\"'/>",
                                                            "<a xsi:type='t'/>",
                                                            "<?xml version='1.0'?>"};
        if (Happens(30)) return "";
        if (Happens(30)) return OneOf(odd);
        return Item(2) + (Happens(30) ? Children(1) : "");
    }

    std::string Name() {
        static constexpr std::array<const char*, 10> prefixes = {
            "psk:", "psk:", "ns0000:", "ns0000:", "kw:", "dm:", "", ":", "psk:psk:", "xml:"};
        static constexpr std::array<const char*, 9> names = {"F",    "F", "S", "S000",   "S001",
                                                             "S002", "P", "",  "F&apos;"};
        return OneOf(prefixes) + OneOf(names);
    }

private:
    std::string Declarations(unsigned percent) {
        static constexpr std::array<std::array<const char*, 2>, 5> usual = {
            {{"xmlns:psk", KEYWORDS_NAMESPACE},
             {"xmlns:ns0000", DEVMODE_NAMESPACE},
             {"xmlns:kw", KEYWORDS_NAMESPACE},
             {"xmlns:dm", DEVMODE_NAMESPACE},
             {"xmlns", FRAMEWORK_NAMESPACE}}};
        static constexpr std::array<const char*, 5> others = {KEYWORDS_NAMESPACE, DEVMODE_NAMESPACE,
                                                              FRAMEWORK_NAMESPACE, "urn:other", "urn:&quot;"};
        std::string declared;
        for (const auto& [prefix, name] : usual)
            if (Happens(percent))
                declared += " " + std::string(prefix) + "='" + (Happens(80) ? name : OneOf(others)) + "'";
        return declared + (percent < 50 && Happens(1) ? " xmlns:psf='" + OneOf(others) + "'" : "");
    }

    std::string Attribute() { return Happens(10) ? " other='a&#10;&lt;b' " : ""; }

    std::string Text() {
        static constexpr std::array<const char*, 10> texts = {"\n  ",           " ",       "t",
                                                              "&lt;&amp;&#13;", "]]",      "\u00E9\U0001F5A8",
                                                              "<!-- c -->",     "<?p i?>", "<![CDATA[a]]>",
                                                              "<![CDATA[<b>]]>"};
        return Happens(50) ? OneOf(texts) : "";
    }

    // Elements mostly stand where a ticket has them.
    std::string Element(int depth) {
        static constexpr std::array<const char*, 7> any = {
            "psf:Feature",     "psf:Option", "psf:ParameterInit", "psf:ScoredProperty", "psf:Value",
            "psf:PrintTicket", "Feature"};
        static constexpr std::array<const char*, 3> items = {"psf:Feature", "psf:Feature",
                                                             "psf:ParameterInit"};
        static constexpr std::array<const char*, 4> inside = {"psf:Option", "psf:Option", "psf:Feature",
                                                              "psf:Value"};
        static constexpr std::array<const char*, 2> values = {"psf:ScoredProperty", "psf:Value"};
        if (Happens(15)) return OneOf(any);
        return depth == 3 ? OneOf(items) : depth == 2 ? OneOf(inside) : OneOf(values);
    }

    std::string Item(int depth) {
        const std::string element = Element(depth);
        const std::string id = Happens(1) ? " xml:id='n" + std::to_string(++ids_) + "'" : "";
        const std::string name = Happens(85) ? " name='" + Name() + "'" : "";
        const std::string tag = element + Declarations(4) + Attribute() + name + id;
        if (depth == 0) return "<" + tag + ">" + std::to_string(++values_) + "</" + element + ">";
        return "<" + tag + ">" + Children(depth - 1) + "</" + element + ">";
    }

    std::string Children(int depth) {
        std::string children = Text();
        for (auto count = random_() % 5; count > 0; --count) children += Item(depth) + Text();
        return children;
    }

    std::mt19937 random_;
    int values_ = 0;
    int ids_ = 0;
};

TicketDocument Load(const std::string& xml) {
    Platform::ParseError error;
    const TicketDocument ticket = Platform::LoadTicketDocument(std::string_view(xml), error);
    if (ticket) ticket->setProperty(u"SelectionNamespaces", SelectionNamespaces);
    return ticket;
}

constexpr PathStep root = {.Element = u"psf:PrintTicket"};
constexpr PathStep anyRoot = {.Element = u"psf:PrintTicket", .AtAnyDepth = true};
constexpr PathStep value = {.Element = u"psf:Value"};
constexpr PathStep anyValue = {.Element = u"psf:Value", .AtAnyDepth = true};
constexpr PathStep option = {.Element = u"psf:Option"};
constexpr PathStep nameOf = {.Element = u"@name"};

PathStep Named(std::u16string_view element, std::u16string_view name, const char16_t* uri,
               bool atAnyDepth = false) {
    PathStep step{.Element = element, .AtAnyDepth = atAnyDepth, .Name = name};
    if (uri != nullptr) step.Namespace = uri;
    return step;
}

std::vector<std::vector<PathStep>> FixedPaths() {
    std::vector<std::vector<PathStep>> paths = {{anyRoot}, {anyRoot, value}, {{.Element = u"none:X"}}};
    for (const std::u16string_view name : {u"F", u"S", u"P", u"", u"F'", u"F\x14", u"\u00E9"})
        for (const char16_t* uri : {KeywordsNamespace, DevmodeNamespace}) {
            const PathStep feature = Named(u"psf:Feature", name, uri);
            paths.push_back({root, feature, option, nameOf});
            paths.push_back({root, feature, Named(u"psf:Feature", u"S", DevmodeNamespace), option, nameOf});
            paths.push_back({root, feature, option, Named(u"psf:ScoredProperty", name, uri, true), value});
            paths.push_back({root, Named(u"psf:ParameterInit", name, uri), anyValue});
        }
    for (const std::u16string_view name : {u"psk:F", u"ns0000:S000", u"psk:", u""})
        for (const std::u16string_view element : {u"psf:Feature", u"psf:ParameterInit"}) {
            paths.push_back({anyRoot, Named(element, name, nullptr)});
            paths.push_back({anyRoot, Named(element, name, nullptr), value});
        }
    return paths;
}

// What tells nodes apart: their place among all elements and attributes of the document, and their text.
std::string Describe(const TicketDocument& ticket, bool taken, const Platform::TicketNode& node) {
    if (!taken || !node) return taken ? "none" : "refused";
    const Platform::TicketNode parent = node->parentNode();
    return Narrow(node->text()) + " of " + std::to_string(node->childNodesLength()) + " in " +
           (parent                   ? Narrow(parent->text())
            : ticket->xml().IsNull() ? ""
                                     : "attribute");
}

TEST(TicketForms, WalkFindsWhatTheQueryEngineFinds) {
    const auto paths = FixedPaths();
    int documents = 0, found = 0;
    for (unsigned seed = 0; seed < 700; ++seed) {
        const std::string xml = RandomTicket(seed).Xml();
        const TicketDocument ticket = Load(xml);
        if (!ticket) continue;
        ++documents;
        for (const std::vector<PathStep>& path : paths) {
            Platform::TicketNode walked, queried;
            const WideText query = Platform::QueryOf(path);
            const bool walks = ticket->selectPath(path, walked);
            const bool queries = ticket->selectSingleNode(query.View(), queried);
            ASSERT_EQ(Describe(ticket, walks, walked), Describe(ticket, queries, queried))
                << Narrow(query) << xml;
            found += walked ? 1 : 0;
        }
        const PathStep series[] = {root, Named(u"psf:ParameterInit", u"S", DevmodeNamespace), anyValue};
        std::array<Platform::TicketNode, 2> nodes;
        ASSERT_TRUE(ticket->selectSeries(series, 1, nodes));
        for (std::size_t at = 0; at < nodes.size(); ++at) {
            Platform::TicketNode queried;
            const PathStep single[] = {
                root, Named(u"psf:ParameterInit", at == 0 ? u"S000" : u"S001", DevmodeNamespace), anyValue};
            ticket->selectSingleNode(Platform::QueryOf(single).View(), queried);
            ASSERT_EQ(Describe(ticket, true, nodes[at]), Describe(ticket, true, queried)) << xml;
        }
    }
    EXPECT_GT(documents, 500);
    EXPECT_GT(found, 800);
}

// The text of a document, and the texts in it that stand behind another one, which the text doesn't show.
std::string Shape(const TicketDocument& ticket) {
    std::string shape = Narrow(ticket->xml());
    for (int at = 1;; ++at) {
        Platform::TicketNode node;
        ticket->selectSingleNode(
            Wide("(//text()[preceding-sibling::node()[1][self::text()]])[" + std::to_string(at) + "]").View(),
            node);
        if (!node) return shape;
        shape += "|" + Narrow(node->text());
    }
}

void RemoveSome(const TicketDocument& ticket, RandomTicket random) {
    while (random.Happens(60)) {
        Platform::TicketNode node;
        const WideText query = Wide("//*[@name='" + random.Name() + "']");
        ticket->selectSingleNode(query.View(), node);
        if (node && random.Happens(10)) node->setText(WideText(u"set\r<&"));
        if (node) node->parentNode()->removeChild(node);
    }
}

TEST(TicketForms, AppendingInPlaceGivesWhatLoadingAnewGives) {
    int documents = 0, grown = 0, joined = 0;
    for (unsigned seed = 0; seed < 1200; ++seed) {
        RandomTicket random(seed);
        const std::string xml = random.Xml();
        const TicketDocument inPlace = Load(xml), anew = Load(xml);
        if (!inPlace) continue;
        ++documents;
        for (int round = 0; round < 3; ++round) {
            const RandomTicket removals = random;
            RemoveSome(inPlace, removals);
            RemoveSome(anew, removals);
            const std::string before = Shape(inPlace);
            ASSERT_EQ(before, Shape(anew)) << xml;
            const std::string fragment = random.Fragment();
            const bool appended = inPlace->appendToRoot(u"psf:PrintTicket", Wide(fragment));
            ASSERT_EQ(appended, anew->IXMLDOMDocument2::appendToRoot(u"psf:PrintTicket", Wide(fragment)))
                << xml;
            const std::string after = Shape(inPlace);
            ASSERT_EQ(after, Shape(anew)) << xml << "\n" << fragment;
            grown += after.size() > before.size();
            joined += fragment.empty() && after != before;
        }
    }
    EXPECT_GT(documents, 800);
    EXPECT_GT(grown, 500);
    EXPECT_GT(joined, 50);
}

// Of two elements with one identifier the first is found, and once it is gone, the second.
TEST(TicketForms, AppendingTellsIdentifiersAnew) {
    const TicketDocument ticket =
        MakeTicket("<psf:Feature xml:id='i'/><psf:Feature xml:id='i'>2</psf:Feature>");
    Platform::TicketNode node;
    ASSERT_TRUE(ticket->selectSingleNode(u"id('i')", node) && node);
    node->parentNode()->removeChild(node);
    node = nullptr;
    ticket->appendToRoot(u"psf:PrintTicket", WideText());
    ASSERT_TRUE(ticket->selectSingleNode(u"id('i')", node) && node);
    EXPECT_EQ(Narrow(node->text()), "2");
}

// What a document of one thread leaves for the next one is nothing that the first still uses on another
// thread.
TEST(TicketForms, DocumentsOfOneThreadShareNothing) {
    const auto grow = [](const TicketDocument& ticket, const std::string& name) {
        for (int count = 0; count < 3000; ++count)
            ticket->appendToRoot(u"psf:PrintTicket", Wide("<" + name + std::to_string(count) + "/>"));
    };
    const TicketDocument first = MakeTicket("");
    first->appendToRoot(u"psf:PrintTicket", Wide("<a/>"));
    const TicketDocument second = MakeTicket("");
    std::thread other(grow, first, "b");
    grow(second, "c");
    other.join();
    EXPECT_NE(Narrow(first->xml()).find("<b2999/></psf:PrintTicket>"), std::string::npos);
    EXPECT_NE(Narrow(second->xml()).find("<c2999/></psf:PrintTicket>"), std::string::npos);
}

}  // namespace
}  // namespace DeviceSpecificModule
