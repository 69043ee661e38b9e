#include <gtest/gtest.h>
#include <json/writer.h>

#include <functional>
#include <map>
#include <random>

#include "Support.h"
#include "conversion/TextOperations.h"
#include "perpage/PageList.h"
#include "perpage/PerPageOrder.h"
#include "perpage/PerPageSettings.h"
#include "perpage/PerPageWriters.h"

namespace DeviceSpecificModule {
namespace {

OptionRecord Row(std::u16string_view keyword, std::u16string_view deviceName) {
    OptionRecord row;
    row.Keyword = WideText(keyword);
    row.DeviceName = WideText(deviceName);
    return row;
}

const OptionTables* HostTables() {
    static const OptionRecord bins[] = {Row(u"ns0000:TRAYLCT", u"TRAY5"), Row(u"ns0000:TRAY5", u""),
                                        Row(u"ns0000:TRAYLCT", u"SECOND"), OptionRecord(),
                                        Row(u"psk:Manual", u"BEHINDTHEEND")};
    static const OptionRecord types[] = {Row(u"psk:Plain", u"PAPER,NORMAL,NONE,OFF"), OptionRecord()};
    static const OptionTables tables = {.PageMediaTypes = types, .PageInputBins = bins};
    return &tables;
}

using Writer = std::function<void(WideText&, const Json::Value&, std::u16string_view)>;

std::map<std::string, Writer> Writers() {
    static const OptionTables noTables;
    Json::Value tabs;
    tabs["NumberOfTabs"] = "Tabs:5:6";
    const auto tray = [](const OptionTables* tables) -> Writer {
        return [=](auto&&... given) { FillPaperTray(given..., tables); };
    };
    const auto media = [](const OptionTables* tables, const Json::Value& list) -> Writer {
        return [=](auto&&... given) { FillMediaAndTabs(given..., tables, list); };
    };
    return {{"PrintType", [](auto& command, auto& entry, auto) { FillPrintType(command, entry); }},
            {"Binding", [](auto& command, auto&, auto option) { FillBinding(command, option); }},
            {"Duplex", FillDuplex},
            {"Staple", FillStaple},
            {"Tray", tray(HostTables())},
            {"Tray, no tables", tray(nullptr)},
            {"Media", media(HostTables(), tabs)},
            {"Media, no table", media(&noTables, Json::Value())}};
}

TEST(PerPageWriters, TurnWordsIntoTheDevicesWords) {
    const std::map<std::string, Writer> writers = Writers();
    for (const Json::Value& each : ReadCases("perpage/words.json")) {
        WideText command(u"%s;%s");
        writers.at(each[0].asString())(command, each[1], Wide(each[2].asString()).View());
        EXPECT_EQ(Narrow(command), each[3].asString()) << each;
    }
}

// Each case sees the tab sheets of those before it; what is left of its command is filled with "N".
TEST(PerPageWriters, MovePagesByTheTabSheetsInsertedSoFar) {
    InsertedTabs tabs;
    Json::Value entry;
    for (const Json::Value& each : ReadCases("perpage/moves.json")) {
        (entry = each[1])["PageNumber"] = each[0];
        WideText command(u"%s;%s");
        FillPageRange(command, entry, tabs);
        FillFirstPlaceholder(command, u"N");
        EXPECT_EQ(Narrow(command), each[2].asString()) << each;
    }
    WideText noPlace(u"x");
    entry["TabPaper"] = "Use";
    entry["TextOnTab"] = "A";
    entry["PrintType"] = "InsertBlankSheet";
    FillPageRange(noPlace, entry, tabs);
    EXPECT_EQ(tabs.InsertedTabCount, 4u);
    EXPECT_TRUE(BuildRangeTemplate(u"").IsEmpty() && BuildRangeTemplate(u"7") == u"%s");
    EXPECT_TRUE(BuildRangeTemplate(u"1,2-") == u"%s,%s-" && BuildRangeTemplate(u"1-2,") == u"%s-%s,");
}

TEST(PerPageOrder, ReadsPageTexts) {
    for (const Json::Value& each : ReadCases("perpage/page-texts.json")) {
        const PageList pages = ReadPageList(Wide(each[0].asString()).View());
        EXPECT_TRUE(pages.Count == each[1].asUInt() && pages.First == each[2].asUInt() &&
                    pages.Highest == each[3].asUInt())
            << each << pages.Count << " from " << pages.First << " to " << pages.Highest;
    }
}

// A page goes behind a range that ends at it; "5,5" counts as two pages; nothing passes an entry without
// pages. The last two cases are cycles: 5 precedes 1-9, which precedes 2-3, which precedes 5.
TEST(PerPageOrder, PutsEntriesInPageOrder) {
    for (const Json::Value& each : ReadCases("perpage/orders.json")) {
        Json::Value details, found;
        for (const Json::Value& text : each[0]) details[details.size()]["PageNumber"] = text;
        for (const PerPageOrderEntry& entry : BuildPerPageOrder(details))
            found.append(Json::Value::Int(entry.Position));
        EXPECT_EQ(found, each[1]) << each[0];
    }
    Json::Value backwards;
    for (int page = 5000; page > 0; --page) backwards[backwards.size()]["PageNumber"] = page;
    Json::ArrayIndex last = 5000;
    for (const PerPageOrderEntry& entry : BuildPerPageOrder(backwards)) EXPECT_EQ(entry.Position, --last);
    EXPECT_EQ(last, 0u);
}

TEST(PerPageOrder, KeepsEveryEntryOnceWhateverTheOrderSays) {
    std::mt19937 random(20);
    const auto page = [&random] { return std::to_string(random() % 12); };
    for (std::size_t round = 0; round < 700; ++round) {
        Json::Value details(Json::arrayValue);
        while (details.size() < round % 70) {
            std::string text;
            for (std::size_t items = random() % 3 + 1; items > 0; --items)
                text += page() + (random() % 2 == 0 ? "" : "-" + page()) + (items > 1 ? "," : "");
            details[details.size()]["PageNumber"] = text;
        }
        const std::vector<PerPageOrderEntry> entries = BuildPerPageOrder(details);
        std::vector<int> seen(round % 70);
        for (const PerPageOrderEntry& entry : entries) ++seen.at(entry.Position);
        ASSERT_EQ(seen, std::vector<int>(round % 70, 1)) << details;
        for (std::size_t at = 1; at < entries.size(); ++at)
            ASSERT_FALSE(PageListPrecedes(entries[at], entries[at - 1])) << at << details;
    }
}

TEST(PerPageSettings, WritesOneCommandPerEntryInPageOrder) {
    const TicketDocument ticket =
        MakeTicket(Feature("psk:DocumentBinding", "psk:BindLeft") +
                   Feature("psk:JobDuplexAllDocumentsContiguously", "psk:OneSided") +
                   Feature("psk:PageInputBin", "psk:AutoSelect") + Feature("psk:PageMediaType", "psk:Plain") +
                   Feature("psk:JobStapleAllDocuments", "psk:None"));
    for (const Json::Value& each : ReadCases("perpage/commands.json")) {
        Json::Value details = each["details"], list;
        list["NumberOfTabs"] = 5;
        WideText pjl(u"@");
        const WideText format = Wide(each["format"].asString());
        AppendPerPageCommands(details, list, ReadPerPageJobOptions(ticket), HostTables(), format.View(), pjl);
        EXPECT_EQ(Narrow(pjl), each["commands"].asString()) << each;
    }
}

// Counts the queries; has no nodes.
class CountingTicket final : public Platform::IXMLDOMDocument2 {
public:
    bool setProperty(std::u16string_view, std::u16string_view) override { return true; }
    bool selectSingleNode(std::u16string_view, TicketNode&) override { return ++Queries > 0; }
    WideText xml() const override { return WideText(); }
    bool loadXML(const WideText&, Platform::ParseError*) override { return false; }
    int Queries = 0;
};

// Runs end with an error of the JSON library, or with so many queries of the ticket. Page texts are read
// ahead of all other keys of any entry; of a malformed text what is read ahead of the fault stands.
TEST(PerPageSettings, ReadsTheTicketOnceAndPassesOnTheErrorsOfTheJsonLibrary) {
    for (const Json::Value& each : ReadCases("perpage/stage-ends.json")) {
        Json::Value settings;
        settings["features"]["PerPageSetting"] = each[0];
        settings["features"]["PerPagePageDetails"] = each[1];
        settings["features"]["PerPageListDetails"] = each[2];
        const auto ticket = std::make_shared<CountingTicket>();
        PTConverter converter;
        converter.CustomProperties = std::make_shared<Json::Value>(settings);
        std::string end;
        try {
            WritePerPageSettings(converter, nullptr, ticket);
            end = std::to_string(ticket->Queries);
        } catch (const std::exception& error) {
            end = error.what();
        }
        EXPECT_EQ(end, each[3].asString()) << each;
        EXPECT_TRUE(converter.PjlText.IsNull() && converter.DataText.IsNull()) << each;
    }
}

}  // namespace
}  // namespace DeviceSpecificModule
