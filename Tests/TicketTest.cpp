#include <gtest/gtest.h>
#include <json/json.h>

#include "Support.h"
#include "conversion/JsonState.h"
#include "devicespecific/platform/ResultError.h"
#include "ticket/CustomProperties.h"
#include "ticket/TicketEditing.h"
#include "ticket/TicketNamespaces.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

const std::string otherPrefixes = "xmlns:kw='" KEYWORDS_NAMESPACE "' xmlns:dm='" DEVMODE_NAMESPACE "'";

std::string RootWithout(const std::string& psk, const std::string& children) {
    return "<psf:PrintTicket xmlns:psf='" FRAMEWORK_NAMESPACE "' " + psk + ">" + children +
           "</psf:PrintTicket>";
}

TEST(TicketQueries, ReadByLocalNameAndNamespace) {
    const auto option = [](const std::string& xml, auto... subFeature) {
        return Narrow(GetFeatureOptionName(MakeDocument(xml), u"F", subFeature...));
    };
    EXPECT_EQ(option(RootWithout(otherPrefixes, Feature("kw:F", "kw:On"))), "kw:On");
    EXPECT_EQ(option(RootWithout(otherPrefixes, Feature("dm:F", "kw:On"))), "(null)");
    EXPECT_EQ(option(RootWithout("", Feature("psk:F", "psk:On"))), "(null)");  // no prefix bound: no name
    EXPECT_EQ(option(RootWithout(otherPrefixes, Feature("kw:F", "") + Feature("kw:F", "later"))), "");
    const std::string inner = "<psf:Feature name='dm:S'><psf:Option name='dm:Inner'/></psf:Feature>";
    const std::string outer =
        "<psf:Feature name='kw:F'>" + inner + "<psf:Option name='kw:Outer'/></psf:Feature>";
    EXPECT_EQ(option(RootWithout(otherPrefixes, outer), u"S"), "dm:Inner");
    EXPECT_EQ(option(RootWithout(otherPrefixes, outer)), "kw:Outer");
    // A sub-feature without a name is one that the ticket lacks, whatever its text is made of.
    EXPECT_EQ(option(RootWithout(otherPrefixes, outer), u""), "(null)");
    EXPECT_EQ(option(RootWithout(otherPrefixes, outer), WideText(u"").View()), "(null)");
    EXPECT_EQ(Narrow(GetFeatureOptionName(MakeTicket(Feature("psk:F", "x")), u"F'")), "(null)");
}

// Which of several prefixes for the keywords namespace counts: "first" or "second" is the name of the feature
// that is found.
TEST(TicketQueries, LetOneOfSeveralPrefixesCount) {
    const std::string bound = "='" KEYWORDS_NAMESPACE "' ";
    const auto found = [](const std::string& root, const std::string& inner) {
        std::string features;
        for (const char* prefix : {"first", "second"})
            features += "<psf:Feature " + inner + " name='" + prefix + ":F'><psf:Option name='" + prefix +
                        "'/></psf:Feature>";
        return Narrow(GetFeatureOptionName(MakeDocument(RootWithout(root, features)), u"F"));
    };
    const std::string first = "xmlns:first" + bound, second = "xmlns:second" + bound, other = "='urn:other' ";
    EXPECT_EQ(found(first + second, ""), "second");  // the last of an element's declarations
    EXPECT_EQ(found(second + first, ""), "first");
    EXPECT_EQ(found(first, second), "first");  // the outer element's ahead of the inner one's
    EXPECT_EQ(found(second + first, "xmlns:first" + other), "second");  // but for a prefix that means another
    EXPECT_EQ(found(first + "xmlns" + bound, ""), "(null)");            // a default namespace hides them
    EXPECT_EQ(found("xmlns" + bound + first, ""), "first");
    EXPECT_EQ(found(first + "xmlns" + bound, "xmlns=''"), "first");
}

TEST(TicketQueries, ReadsWholeValues) {
    const std::string nested =
        "<psf:ScoredProperty name='psk:Outer'><psf:ScoredProperty name='psk:MediaSizeWidth'>"
        "<psf:Value> 2<!-- no -->10 </psf:Value></psf:ScoredProperty></psf:ScoredProperty>";
    const TicketDocument ticket = MakeTicket(
        Feature("psk:PageMediaSize", "x", nested) + Parameter("psk:P", "k") + Parameter("ns0000:P", "d") +
        "<psf:ParameterInit name='psk:Deep'><a><psf:Value>v</psf:Value></a></psf:ParameterInit>");
    EXPECT_EQ(Narrow(GetScoredPropertyValue(ticket, u"PageMediaSize", u"MediaSizeWidth")), " 210 ");
    EXPECT_EQ(Narrow(GetParameterInitValue(ticket, u"P", true)), "k");
    EXPECT_EQ(Narrow(GetParameterInitValue(ticket, u"P", false)), "d");
    EXPECT_EQ(Narrow(GetParameterInitValue(ticket, u"Deep", true)), "v");
    EXPECT_EQ(Narrow(GetParameterInitValue(ticket, u"Deep", false)), "(null)");
}

// A document that throws what it is told to, with a node half-way found.
class ThrowingDocument final : public Platform::IXMLDOMDocument2 {
public:
    bool setProperty(std::u16string_view, std::u16string_view) override { return true; }
    bool selectSingleNode(std::u16string_view, TicketNode& node) override {
        MakeTicket("")->selectSingleNode(u"/", node);
        if (OutOfMemory) Platform::ThrowResult(Platform::ResultOutOfMemory);
        throw std::runtime_error("query");
    }
    WideText xml() const override { return {}; }
    bool loadXML(const WideText&, Platform::ParseError*) override { return false; }
    bool OutOfMemory = false;
};

TEST(TicketQueries, DropErrorsOfTheQueryButNotLackOfMemory) {
    const auto document = std::make_shared<ThrowingDocument>();
    EXPECT_TRUE(GetFeatureOptionName(document, u"F").IsNull());
    document->OutOfMemory = true;
    EXPECT_THROW(GetParameterInitValue(document, u"F", true), Platform::ResultError);
}

TEST(CustomProperties, CountsAsTheTicketWritesThem) {
    const struct {
        const char* Count;
        std::int32_t Expected;
    } cases[] = {{"2", 2},
                 {" \n\t+7x", 7},
                 {"-3", -3},
                 {"", 0},
                 {"three", 0},
                 {"0x10", 0},
                 {"99999999999", 2147483647}};
    for (const auto& [count, expected] : cases)
        EXPECT_EQ(GetCustomCount(MakeTicket(Parameter("ns0000:DocXRDocCustomCount", count)), u"Doc"),
                  expected)
            << count;
    EXPECT_EQ(GetCustomCount(MakeTicket(""), u"Job"), -1);
    // The count goes by the literal prefix, the pieces by their namespace.
    EXPECT_EQ(GetCustomCount(
                  MakeDocument(RootWithout(otherPrefixes, Parameter("dm:JobXRJobCustomCount", "1"))), u"Job"),
              -1);
}

std::string Looked(const SharedJson& properties, std::u16string_view key) {
    return Narrow(LookupCustomProperty(properties, key));
}

TEST(CustomProperties, JoinPiecesAndMergeLevels) {
    SharedJson properties = MakeSettings(R"({"features":{"Old":"kept","A":"old"}})");
    const SharedJson before = properties;
    ReadCustomProperties(
        MakeTicket(
            Settings(R"({"features":{"A":"1","Job":"j"},"other":{"A":"9"}})", 16) +
            Parameter("ns0000:PageXRPageCustomCount", "3") +
            Parameter("ns0000:PageXRPageCustomProperties000", R"({"features":{"A":)") +
            Parameter("ns0000:PageXRPageCustomProperties002", R"("2"},"paraminits":{"Job":"p","N":3.9}})") +
            Parameter("ns0000:DocXRDocCustomCount", "1") +
            Parameter("ns0000:DocumentXRDocumentCustomProperties000", R"({"features":{"Cut":"c","A":"doc)")),
        properties);
    EXPECT_EQ(Looked(properties, u"A"), "2");
    EXPECT_EQ(Looked(properties, u"Old"), "kept");
    EXPECT_EQ(Looked(properties, u"Job"), "j");
    EXPECT_EQ(Looked(properties, u"N"), "3");
    EXPECT_EQ(Looked(properties, u"Cut"), "c");  // read ahead of the error
    EXPECT_EQ(Looked(before, u"A"), "old");      // whoever shares the old document keeps it
}

TEST(CustomProperties, HaveAtMostThousandPieces) {
    SharedJson properties = MakeSettings("{}");
    const auto read = [&](const char* count) {
        ReadCustomProperties(MakeTicket(Parameter("ns0000:JobXRJobCustomCount", count)), properties);
    };
    EXPECT_NO_THROW(read("1000"));
    EXPECT_THROW(read("1001"), std::length_error);
}

const OptionRecord* Sizes() {
    static OptionRecord rows[4];
    const char* const keywords[] = {"A", "B", "A"};
    for (int row = 0; row < 3; ++row) {
        rows[row].Keyword = Wide(keywords[row]);
        rows[row].TicketFragment = Wide("<t" + std::to_string(row) + "/>");
        rows[row].JobCommand = Wide("job" + std::to_string(row));
        rows[row].FourInOneJobCommand = Wide("four" + std::to_string(row));
        rows[row].DataCommand = Wide("data" + std::to_string(row));
    }
    return rows;
}

TEST(TicketEditing, AppliesTheFirstRowAndSendsAllData) {
    const struct {
        const char* Settings;
        const char* Option;
        OptionUse Use;
        const char* Pjl;
        const char* Data;
    } cases[] = {
        {"{}", "A", {}, "<t0/>", "data0data2"},
        {"{}", "C", {}, "(null)", "(null)"},
        {"{}", "A", {.JobPass = true, .FourInOneApplies = true}, "job0", "data0data2"},
        {R"({"features":{"Layout":"Bl4in1"}})",
         "B",
         {.JobPass = true, .FourInOneApplies = true},
         "four1",
         "data1"},
        {R"({"features":{"Layout":"Bl4in1"}})", "B", {.JobPass = true}, "job1", "data1"},
    };
    for (const auto& row : cases) {
        PTConverter converter;
        converter.CustomProperties = MakeSettings(row.Settings);
        const TicketDocument ticket = MakeTicket(Feature("psk:PageMediaSize", "x") + "<keep/>");
        ApplyOptionRecord(converter, ticket, u"psk:PageMediaSize", Wide(row.Option).View(), Sizes(), row.Use);
        AppendOptionDataCommand(converter, Sizes(), Wide(row.Option).View());
        EXPECT_EQ(Narrow(converter.PjlText), row.Pjl);
        EXPECT_EQ(Narrow(converter.DataText), row.Data);
        EXPECT_EQ(GetFeatureOptionName(ticket, u"PageMediaSize").IsNull(), !row.Use.JobPass);
    }
    PTConverter converter;
    const TicketDocument ticket = MakeTicket(Feature("psk:PageMediaSize", "x"));
    ApplyOptionRecord(converter, ticket, u"psk:PageMediaSize", u"A", nullptr, {});
    EXPECT_EQ(Narrow(GetFeatureOptionName(ticket, u"PageMediaSize")), "x");
}

// What a ticket holds after an insertion: the edited document or the untouched one, and well-formed XML
// always. In the cases FRAMEWORK stands for the framework's namespace; the declaration in front of each
// result is left out.
TEST(TicketEditing, InsertsByTheTicketsText) {
    for (const Json::Value& each : ReadCases("conversion/insertions.json")) {
        const auto text = [&](const char* key) {
            std::string filled = each[key].asString();
            if (const std::size_t place = filled.find("FRAMEWORK"); place != filled.npos)
                filled.replace(place, 9, FRAMEWORK_NAMESPACE);
            return filled;
        };
        const TicketDocument ticket = MakeDocument(text("ticket"));
        InsertTicketFragments(ticket, Wide(text("fragments")));
        EXPECT_EQ(Narrow(ticket->xml()), "<?xml version=\"1.0\"?>\n" + text("expected")) << each;
        EXPECT_NO_THROW(MakeDocument(Narrow(ticket->xml())));
    }
}

TEST(TicketEditing, TakesARootThatLostItsOnlyChildForChildless) {
    const TicketDocument ticket = MakeTicket(Feature("psk:PageMediaSize", "x"), "v='a/b'");
    PTConverter converter;
    ApplyOptionRecord(converter, ticket, u"psk:PageMediaSize", u"B", Sizes(), {});
    InsertTicketFragments(ticket, converter.PjlText);
    EXPECT_TRUE(Narrow(ticket->xml()).ends_with(" v=\"a/b\"><t1/></psf:PrintTicket>\n"))
        << Narrow(ticket->xml());
}

}  // namespace
}  // namespace DeviceSpecificModule
