#include <gtest/gtest.h>

#include <array>
#include <random>
#include <thread>

#include "Support.h"
#include "Targets.h"
#include "ticket/TicketNamespaces.h"

// What a document does in a cheaper way than by its text forms gives what those give, on random tickets:
// other prefixes, two for one namespace, namespaces declared anew and away, items twice and within each
// other, names with quotes and references, texts, comments and CDATA sections between.

namespace DeviceSpecificModule {
namespace {

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

    // Something to do to a document.
    std::string Step() {
        static constexpr std::array<const char*, 8> steps = {"?F", "?S", "?", "?", "+", "+", "-", "="};
        const std::string step = OneOf(steps);
        if (step == "?") return step + Name();
        if (step == "+") return step + Fragment();
        return step[0] == '?' ? step : step + std::to_string(1 + random_() % 40);
    }

private:
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

// The fuzz target compares both ways; what it takes for things to do stands there.
TEST(TicketForms, CheaperWaysGiveWhatTextFormsGive) {
    int documents = 0;
    for (unsigned seed = 0; seed < 1200; ++seed) {
        RandomTicket random(seed);
        std::string input = random.Xml();
        Platform::ParseError error;
        documents += Platform::LoadTicketDocument(std::string_view(input), error) ? 1 : 0;
        for (int step = 0; step < 8; ++step) input += "\n%%\n" + random.Step();
        Fuzz::RunForms(input);
    }
    EXPECT_GT(documents, 800);
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
