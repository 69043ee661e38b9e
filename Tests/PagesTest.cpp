#include <gtest/gtest.h>

#include <algorithm>

#include "Support.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

const std::string useTicketSize = R"({"features":{"OutPSize":"UsePaperSize"}})";

std::string Orientation(const std::string& option) { return Feature("psk:PageOrientation", option); }

std::string CustomLines(const std::string& width, const std::string& height, const std::string& line) {
    return "ubyte \"" + width + "\" CustWidth\r\nubyte \"" + height + "\" CustHeight\r\n" + line;
}

TEST(ConvertPage, UsesTheRowsThatTheHostHandsIn) {
    const std::string settings = R"({"features":{"OutPSize":"CustomMediaSize","Layout":"Bl4in1",)"
                                 R"("OutPSizeW":"%s00","OutPSizeH":"21000"}})";
    std::vector<OptionRecord> sizes = TicketHost::CopyOptionTable("PageMediaSize");
    const auto sizeOf = [&](std::u16string_view keyword) -> OptionRecord& {
        return *std::ranges::find(sizes, WideText(keyword), &OptionRecord::Keyword);
    };
    sizeOf(u"CustomMediaSize").JobCommand = Wide("<%s x %s>");
    sizeOf(u"CustomMediaSize").DataCommand = Wide("custom\r\n");
    sizeOf(u"ISOA4").FourInOneJobCommand = Wide("four-in-one A4");
    TestHost host;
    host.Tables.PageMediaSizes = sizes.data();
    host.Run(JobLevel, MakeTicket(Settings(settings)));
    // The width's own "%s" is the place that the height fills.
    EXPECT_TRUE(host.Property(u"PJL").ends_with("STRINGCODESET = UTF8\r\n<210 x %s>"))
        << host.Property(u"PJL");
    EXPECT_EQ(host.Data(), "\r\nPage_0\r\n" + CustomLines("%s", "210", "custom\r\n"));

    host.Run(JobLevel, MakeTicket(Settings(R"({"features":{"OutPSizeW":"14800"}})")));
    EXPECT_TRUE(host.Property(u"PJL").ends_with("STRINGCODESET = UTF8\r\n<148 x 210>"))
        << host.Property(u"PJL");

    host.Run(JobLevel, MakeTicket(Settings(R"({"features":{"OutPSize":"ISOA4"}})")));
    EXPECT_TRUE(host.Property(u"PJL").ends_with("STRINGCODESET = UTF8\r\nfour-in-one A4"))
        << host.Property(u"PJL");
}

TEST(ConvertPage, CountsPagesAndLeavesOutWhatHasNoTable) {
    const std::string ticket =
        Feature("psk:PageMediaSize", "psk:ISOA4") + Feature("psk:PageMediaType", "psk:Plain") +
        Feature("psk:PageInputBin", "ns0000:TRAY2") +
        Feature("psk:JobDuplexAllDocumentsContiguously", "psk:OneSided") + Orientation("psk:Landscape") +
        Feature("psk:PageOutputQuality", "psk:Draft") + Parameter("ns0000:PageDevmodeSnapshot", "x");
    TestHost host;
    host.Tables = {};
    TicketDocument job = MakeTicket(ticket + Settings(useTicketSize));
    host.Run(JobLevel, job);
    EXPECT_EQ(host.Property(u"PageOutputQuality"), "psk:Draft");
    EXPECT_TRUE(GetFeatureOptionName(job, u"PageOutputQuality").IsNull());
    EXPECT_EQ(Narrow(GetFeatureOptionName(job, u"JobDuplexAllDocumentsContiguously")), "psk:OneSided");
    EXPECT_EQ(host.Property(u"PageOrientation"), "psk:Landscape");

    host.WithTables = false;
    TicketDocument page = MakeTicket(ticket);
    host.Run(PageLevel, page);
    EXPECT_EQ(host.Property(u"DATA"), "\r\nPage_0\r\n");
    EXPECT_TRUE(GetFeatureOptionName(page, u"PageOutputQuality").IsNull());
    EXPECT_EQ(Narrow(GetParameterInitValue(page, u"PageDevmodeSnapshot", false)), "x");

    host.WithTables = true;
    host.Tables = *host.TableSet.Record();
    host.Tables.SimplexPageModes = nullptr;
    host.Run(-5, page);
    EXPECT_EQ(
        host.Property(u"DATA"),
        "\r\nPage_0\r\nPage_1\r\nPage_2\r\nubyte \"02\" MediaSize\r\nubyte_array \"dThin\" MediaType\r\n"
        "ubyte \"05\" MediaSource\r\nubyte \"0\" DuplexPageMode\r\n");
    EXPECT_TRUE(GetParameterInitValue(page, u"PageDevmodeSnapshot", false).IsNull());
}

TEST(ConvertDocument, EndsAtTheSameTicketWhenRunOnItsOwnOutput) {
    for (const char* size : {"ISOA5", "ROC16K", "Unknown"}) {
        TestHost host;
        host.Snapshot.CustomProperties =
            MakeSettings(R"({"features":{"OutPSize":")" + std::string(size) + "\"}}");
        const TicketDocument ticket =
            MakeTicket("<a/>" + Feature("psk:PageMediaSize", "psk:ISOA4"), "xmlns:xsd='x'");
        host.Run(DocumentLevel, ticket);
        const WideText once = ticket->xml();
        host.Run(DocumentLevel, ticket);
        EXPECT_EQ(ticket->xml(), once);
    }
}

// A host's table may lack any size: a custom one then stays as the ticket has it, another goes out of it.
TEST(Convert, GoesOnWithoutTheRowOfASize) {
    OptionRecord rows[2];
    rows[0].Keyword = WideText(u"ROC16K");
    rows[0].TicketFragment = WideText(u"<hosts-own/>");
    const struct {
        const char *Settings, *Size;
        bool HasFragment;
    } cases[] = {
        {R"("OutPSize":"CustomMediaSize","OutPSizeW":"14800","OutPSizeH":"21000")", "psk:ISOA4", false},
        {R"("OutPSize":"ISOA4","Layout":"Bl4in1")", "(null)", false},
        {R"("OutPSize":"ROC16K")", "(null)", true},
    };
    for (const auto& row : cases) {
        TestHost host;
        host.Tables.PageMediaSizes = rows;
        const std::string children = Settings("{\"features\":{" + std::string(row.Settings) + "}}") +
                                     Feature("psk:PageMediaSize", "psk:ISOA4");
        host.Run(JobLevel, MakeTicket(children));
        EXPECT_EQ(host.Data(), "\r\nPage_0\r\n") << row.Settings;
        EXPECT_TRUE(host.Property(u"PJL").ends_with("STRINGCODESET = UTF8\r\n")) << row.Settings;
        const TicketDocument document = MakeTicket(children);
        host.Run(DocumentLevel, document);
        EXPECT_EQ(Narrow(GetFeatureOptionName(document, u"PageMediaSize")), row.Size) << row.Settings;
        EXPECT_EQ(Narrow(document->xml()).find("<hosts-own/>") != std::string::npos, row.HasFragment);
    }
}

TEST(ConvertDocument, LeavesTheTicketAloneWithoutASizeTable) {
    const std::string children =
        Feature("psk:PageMediaSize", "psk:ISOA4") + Parameter("ns0000:PageDevmodeSnapshot", "x");
    TestHost host;
    host.Tables.PageMediaSizes = nullptr;
    for (bool withTables : {true, false}) {
        host.WithTables = withTables;
        const TicketDocument ticket = MakeTicket(children);
        const WideText before = ticket->xml();
        host.Run(DocumentLevel, ticket);
        EXPECT_EQ(ticket->xml(), before);
    }
}

}  // namespace
}  // namespace DeviceSpecificModule
