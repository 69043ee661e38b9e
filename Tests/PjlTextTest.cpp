#include "devicespecific/PjlText.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "Host/check/ValueChecks.h"
#include "Platform/PrintQueue.h"
#include "Support.h"
#include "devicespecific/DeviceSpecificModule.h"
#include "devicespecific/devicespecific.h"
#include "devicespecific/platform/Identities.h"
#include "devicespecific/platform/MemoryBags.h"

// Texts of people, made harmless before they reach the header: what becomes of them in C++ and in C, what
// `tickethost check` says of them, and what the header then is.

namespace DeviceSpecificModule {
namespace {

constexpr std::u16string_view zero(u"a\0b", 3);

struct CleanCase {
    std::u16string_view Text, Clean;
};
constexpr CleanCase cases[] = {
    {u"", u""},
    {u"mia", u"mia"},
    {u"J\u00E9r\u00F4me \u5C71\u7530, 50 % \\ '@PJL", u"J\u00E9r\u00F4me \u5C71\u7530, 50 % \\ '@PJL"},
    {u"a\r\n@PJL SET HOLD = OFF", u"a  @PJL SET HOLD = OFF"},
    {u"\x1B%-12345X", u" %-12345X"},
    {u"say \"no\"", u"say 'no'"},
    {zero, u"a b"},
    {u"\t\x1F \x7F~", u"    ~"},
    // Single control bytes in a code page of one byte, of which U+009B begins commands as ESC does.
    {u"\u007F\u0080\u0085\u009B\u009F\u00A0", u"     \u00A0"},
    // What has the same bytes in UTF-8 behind another first one is no control character.
    {u"\u0145\u00C2\u00DB", u"\u0145\u00C2\u00DB"},
    // Ends a line on a display, but in no bytes that a device reads.
    {u"a\u2028b\u2029c\uFEFF", u"a\u2028b\u2029c\uFEFF"},
    {u"\U0001F5A8", u"\U0001F5A8"},
    {u"\xD83D\n\xDDA8\"", u"\xD83D \xDDA8'"},
    {u"100%sure, %%s, %S, %\n%s", u"100%Sure, %%S, %S, % %S"},
    {u"s%", u"s%"},
};

TEST(PjlText, IsMadeHarmlessAlikeInBothLanguages) {
    for (const CleanCase& each : cases) {
        const WideText clean = CleanForPjl(each.Text);
        EXPECT_EQ(clean, each.Clean) << Narrow(clean);
        EXPECT_FALSE(clean.IsNull());
        EXPECT_EQ(IsCleanForPjl(each.Text), each.Text == each.Clean) << Narrow(clean);
        EXPECT_TRUE(IsCleanForPjl(each.Clean)) << Narrow(clean);
        std::string bytes = Narrow(WideText(each.Text));
        EXPECT_EQ(TicketHost::HarmInHeader(bytes).empty(), each.Text == each.Clean) << bytes;
        bytes.resize(DsmCleanForPjl(bytes.data(), bytes.size()));
        EXPECT_EQ(bytes, Narrow(clean));
    }
    EXPECT_EQ(TicketHost::HarmInHeader("\"%s"),
              "goes into the header as it is, where it ends a line or a quoted text");
    EXPECT_EQ(TicketHost::HarmInHeader("%s"),
              "goes into the header as it is, where its %s is filled with another name");
    EXPECT_EQ(DsmCleanForPjl(nullptr, 0), 0u);
    char cut[] = "\"\xC2";  // half of a character
    EXPECT_EQ(std::string(cut, DsmCleanForPjl(cut, 2)), "'\xC2");
}

std::string HeaderOf(std::u16string_view user, const WideText& document) {
    const auto bag = std::make_shared<Platform::MemoryPipelineBag>(Platform::PipelineProperties{
        {u"UserSecurityToken", Platform::GetTokenOfUserName(WideText(user))}, {u"PrinterName", Wide("q")}});
    Platform::SetDocumentNameOfThread(&document);
    ProcessDrvPT(bag, MakeTicket(Settings(R"({"features":{"Hold":"On"}})")), JobLevel, nullptr, nullptr);
    Platform::SetDocumentNameOfThread(nullptr);
    Platform::PropertyValue pjl;
    bag->GetProperty(u"PJL", pjl);
    return SteadyPjl(Narrow(std::get<WideText>(pjl)));
}

TEST(PjlText, AddsNoLineToTheHeader) {
    constexpr std::u16string_view hostile = u"a\"\r\n\x1B%s\u0085 @PJL";
    constexpr std::u16string_view harmless = u"a'   %S  @PJL";
    const std::string header = HeaderOf(CleanForPjl(hostile).View(), CleanForPjl(hostile));
    EXPECT_NE(HeaderOf(hostile, WideText(hostile)), header);
    EXPECT_EQ(HeaderOf(harmless, WideText(harmless)), header);
    for (const char* name : {"LOGINUSER", "USERNAME", "JOBNAME", "JOB NAME"})
        EXPECT_NE(header.find(name + std::string(" = \"a'   %S  @PJL\"\r\n")), header.npos) << name;
    const std::string plain = HeaderOf(u"mia", Wide("report"));
    EXPECT_EQ(std::ranges::count(header, '\n'), std::ranges::count(plain, '\n'));
}

}  // namespace
}  // namespace DeviceSpecificModule
