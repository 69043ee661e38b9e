#include <gtest/gtest.h>
#include <json/json.h>
#include <stdlib.h>

#include <fstream>
#include <limits>
#include <map>

#include "Support.h"
#include "stages/CarbonCopy.h"
#include "stages/FeatureEngine.h"
#include "stages/FeatureLists.h"
#include "stages/HeaderFooter.h"
#include "stages/HoldAndJobName.h"
#include "stages/JobLogAndTime.h"
#include "stages/PageNumbering.h"
#include "tables/CarbonCopyAndPerPageKeywords.h"
#include "tables/CopySecurityKeywords.h"
#include "tables/FinishingKeywords.h"
#include "tables/JobKeywords.h"
#include "tables/OutputKeywords.h"
#include "tables/OverlayKeywords.h"
#include "tables/QualityKeywords.h"
#include "tables/StampKeywords.h"

namespace DeviceSpecificModule {
namespace {

std::string Braced(const std::string& features) { return "{\"features\":{" + features + "}}"; }

constexpr KeywordCommand words[] = {{u"a", u"<a>"}, {u"b", u""}, {u"b", u"<never>"}, {u"c", u"<c>"}};
constexpr KeywordCommand twoPlaces[] = {{u"CMD", u"[%s|%s]"}};
constexpr KeywordCommand noPlace[] = {{u"CMD", u"[]"}};
constexpr std::u16string_view oneName[] = {u"V"};
constexpr std::u16string_view threeNames[] = {u"V", u"W", u"V"};

TEST(FeatureEngine, SendsSettings) {
    const struct {
        const char* Settings;
        KeywordCommandTable Table;
        ParameterList Parameters;
        const char* Expected;
    } cases[] = {
        {R"("F":"a")", words, {}, "<a>"},
        {R"("F":"b")", words, {}, ""},
        {R"("F":"A")", words, {}, ""},
        {R"("F":"")", words, {}, ""},
        {R"("V":"1")", twoPlaces, oneName, "[1|%s]"},
        {R"("V":"1","W":"2")", twoPlaces, threeNames, "[1|2]"},
        {R"("V":"%s","W":"2")", twoPlaces, threeNames, "[2|%s]"},
        {R"("V":"1")", twoPlaces, threeNames, ""},  // not even the first fill
        {"", noPlace, oneName, ""},
        {"", twoPlaces, {}, "[%s|%s]"},
        {R"("F":"CMD")", {}, oneName, ""},
    };
    for (const auto& row : cases) {
        for (std::uint32_t target = 0; target < 4; ++target) {
            PTConverter converter;
            converter.CustomProperties = MakeSettings(Braced(row.Settings));
            converter.PjlText = converter.DataText = WideText(u"");
            ApplySettingCommand(converter, u"F", row.Table, row.Parameters, CommandTarget{target});
            EXPECT_EQ(Narrow(converter.PjlText), target == 0 ? row.Expected : "") << row.Settings;
            EXPECT_EQ(Narrow(converter.DataText), target == 1 || target == 2 ? row.Expected : "")
                << row.Settings;
        }
    }
}

TEST(FeatureEngine, TurnsTheOrientationForTwoAndSixPagesOnASheet) {
    constexpr KeywordCommand orientations[] = {{u"psk:Landscape", u"L"}, {u"psk:Portrait", u"P"}};
    const struct {
        const char *Orientation, *PagesPerSheet, *Expected;
    } cases[] = {{"psk:Portrait", "ns0000:_2", "L"},
                 {"psk:Landscape", "ns0000:_6", "P"},
                 {"x", "ns0000:_2", "L"},
                 {"psk:Portrait", "ns0000:_4", "P"},
                 {"x", "ns0000:_16", ""},
                 {"", "ns0000:_2", ""}};
    for (const auto& row : cases) {
        PTConverter converter;
        converter.PjlText = WideText(u"");
        ApplyTicketCommand(converter,
                           MakeTicket(Feature("psk:PageOrientation", row.Orientation) +
                                      Feature("psk:JobNUpAllDocumentsContiguously", row.PagesPerSheet)),
                           u"PageOrientation", orientations, CommandTarget::Pjl);
        EXPECT_EQ(Narrow(converter.PjlText), row.Expected) << row.Orientation << row.PagesPerSheet;
    }
}

TEST(FeatureEngine, KnowsBothGateRules) {
    constexpr FeatureRow list[] = {
        {u"F", words},
        {u"", twoPlaces, u"G", u"V"},
        {u"E", words, u"H"},
        {u"E", noPlace, u""},
    };
    const std::string values = R"("F":"a","V":"v","E":"c","H":"yes","G":)";
    const struct {
        const char *Gate, *PassOver, *End;
    } cases[] = {{"\"On\"", "<a>[v|%s]<c>", "<a>[v|%s]<c>"},
                 {"\"off\"", "<a>[v|%s]<c>", "<a>[v|%s]<c>"},
                 {"\"Off\"", "<a><c>", "<a>"},
                 {"\"Host\"", "<a><c>", "<a>"},
                 {"null", "<a><c>", "<a>"}};
    for (const auto& row : cases) {
        for (GateRule rule : {GateRule::PassOverRow, GateRule::EndList}) {
            PTConverter converter;
            converter.CustomProperties = MakeSettings(Braced(values + row.Gate));
            RunFeatureList(converter, list, rule);
            EXPECT_EQ(Narrow(converter.PjlText), rule == GateRule::EndList ? row.End : row.PassOver)
                << row.Gate;
        }
    }
}

#define T(feature) {#feature, feature##CommandTable},
const std::map<std::string, KeywordCommandTable> tables = {
#include "Data/tables/keyword-tables.inc"
};

std::string Written(const std::optional<std::u16string_view>& text) {
    return text ? Narrow(WideText(*text)) : "-";
}

// A list against the lines of its section in the data file: feature, parameter, gate. A row's table bears the
// name of its feature, or of its parameter where it has none; many hold the same keywords, so that addresses
// are compared.
void ExpectList(const std::string& name, FeatureList list) {
    std::ifstream file(TEST_DATA_DIR "/stages/lists.tsv");
    std::string current;
    std::vector<std::string> expected, found;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('['))
            current = line;
        else if (current == "[" + name + "]" && !line.empty())
            expected.push_back(line);
    }
    for (const FeatureRow& row : list) {
        const std::string feature = Written(row.Feature), parameter = Written(row.Parameter);
        found.push_back(feature + "\t" + parameter + "\t" + Written(row.Gate));
        const auto table = tables.find(feature.empty() ? parameter : feature);
        EXPECT_TRUE(table != tables.end() && table->second.data() == row.Table.data())
            << name << " has not the table of that name in its row " << found.back();
        EXPECT_EQ(row.Parameter.has_value(), IsFormatTable(row.Table)) << found.back();
        EXPECT_EQ(row.Target, CommandTarget::Pjl);
    }
    EXPECT_EQ(expected, found) << name << " has other rows than Tests/Data/stages/lists.tsv";
}

TEST(FeatureLists, HaveTheirRows) {
#define L(name) {#name "List", name##List},
    const std::map<std::string, FeatureList> lists = {
#include "Data/stages/feature-lists.inc"
    };
#undef L
    for (const auto& [name, list] : lists) ExpectList(name, list);
    for (const std::string& name :
         Matches(FileText(MODULE_FOLDER "/stages/FeatureLists.h"), R"(extern const FeatureList (\w+);)"))
        EXPECT_TRUE(lists.contains(name))
            << "FeatureLists.h has a new list, " << name << ": add it to Tests/Data/stages/feature-lists.inc,"
            << " without \"List\", and [" << name << "] with its rows to lists.tsv beside it";
}

TEST(Stages, MakeTheJobNameFromTheDocumentName) {
    const std::string long258(258, 'x');
    const struct {
        std::string Document, Expected;
    } cases[] = {
        {"Quarterly \"figures\"\r\nof 2026", "Quarterly \"figures\"\r"},
        {"", ""},
        {std::string("a\0b", 3), "a"},
        {long258 + "yz", long258 + "y"},
        {long258 + "\xF0\x9F\x96\xA8", long258},  // a pair that the cut would halve
        {long258 + "y\xF0\x9F\x96\xA8", long258 + "y"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(Narrow(JobNameFromDocumentName(Wide(row.Document))), row.Expected);
    const std::u16string halves = std::u16string(259, u'x') + u'\xDC00';  // no pair, and so none to halve
    EXPECT_EQ(JobNameFromDocumentName(WideText(halves)).Length(), 259u);
}

TEST(Stages, WriteDatesInLocalTime) {
    setenv("TZ", "UTC", 1);
    EXPECT_EQ(Narrow(FormatPrintLogDate(1770091506)), "Tue,03 Feb 2026 04:05:06");
    EXPECT_EQ(Narrow(FormatJobTime(1770091506)), "20260203040506");
    setenv("TZ", "XYZ-05:30", 1);  // five and a half hours ahead
    EXPECT_EQ(Narrow(FormatPrintLogDate(946684799)), "Sat,01 Jan 2000 05:29:59");
    unsetenv("TZ");
    constexpr std::int64_t never = std::numeric_limits<std::int64_t>::max();
    EXPECT_TRUE(FormatPrintLogDate(never).IsEmpty() && FormatJobTime(never).IsEmpty());
}

// Tables and templates with text, since most of the built-in ones have none.
constexpr KeywordCommand copyTypes[] = {{u"Tray", u"T "}, {u"Page", u"P "}};
constexpr KeywordCommand onOff[] = {{u"Off", u"off "}, {u"On", u"on "}, {u"On", u"again "}};
constexpr KeywordCommand noHeader[] = {{u"Off", u"no-header "}};
constexpr KeywordCommand noFooter[] = {{u"Off", u"no-footer "}, {u"", u"empty-footer "}};
constexpr KeywordCommand headerTypes[] = {{u"Fixed", u"h-fixed "}};
constexpr KeywordCommand footerTypes[] = {{u"Fixed", u"f-fixed "}};
constexpr KeywordCommand pages[] = {{u"AllPages", u"all "}};
constexpr KeywordCommand colors[] = {{u"Red", u"red "}};
constexpr HeaderFooterTables headerFooter = {
    .HeaderFooter = onOff,
    .Format = u"format(%s) ",
    .Header = {u"HeaderFooterPrintHeader", noHeader, u"HeaderStartNumberType", headerTypes,
               u"HeaderPageNumber", u"h(%s) "},
    .Footer = {u"HeaderFooterPrintFooter", noFooter, u"FooterStartNumberType", footerTypes,
               u"FooterPageNumber", u"f(%s) "},
    .Pages = pages,
    .Color = colors};

TEST(Stages, FillTheirTemplates) {
    for (const Json::Value& each : ReadCases("stages/templates.json")) {
        Json::Value settings;
        settings["features"] = each["features"];
        const auto shared = std::make_shared<Json::Value>(settings);
        const std::string stage = each["stage"].asString();
        WideText pjl(u"");
        if (stage == "PageNumber") AppendPageNumbering(shared, u"%s/%s/%s;%s", pjl);
        if (stage == "CarbonCopy") AppendCarbonCopy(shared, copyTypes, u"[%s]", pjl);
        if (stage == "HeaderFooter") AppendHeaderFooter(shared, headerFooter, pjl);
        EXPECT_EQ(Narrow(pjl), each["expected"].asString()) << each;
    }
}

}  // namespace
}  // namespace DeviceSpecificModule
