#include <dlfcn.h>
#include <gtest/gtest.h>
#include <json/json.h>

#include <algorithm>

#include "Support.h"
#include "conversion/JsonState.h"
#include "conversion/PipelineProperties.h"
#include "conversion/TextOperations.h"
#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/Identities.h"
#include "devicespecific/platform/ResultError.h"
#include "ticket/TicketNamespaces.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

TEST(TextOperations, KeepTheirContracts) {
    WideText text;
    AppendWideText(text, WideText(u""));
    AppendNarrowText(text, nullptr);
    AppendNarrowText(text, "");
    EXPECT_TRUE(text.IsNull());
    EXPECT_TRUE(AppendWideChars(text, WideText(u"").View()));  // which is empty, and not absent
    EXPECT_FALSE(text.IsNull());
    AppendNarrowText(text, "\xC3\xA4");
    AppendWideText(text, WideText(u"b"));
    EXPECT_EQ(Narrow(text),
              "\xC3\xA4"
              "b");
    {
        const ThreadCodePage unknown("no such page");
        AppendNarrowText(text, "\xC3\xA4");
        EXPECT_TRUE(WideFromNarrow("\xC3\xA4").IsNull());
    }
    {
        const ThreadCodePage latin("ISO-8859-1");
        AppendNarrowText(text, "\xE4");
    }
    EXPECT_EQ(Narrow(text),
              "\xC3\xA4"
              "b\xC3\xA4");

    const std::u16string_view endless(u"x", SIZE_MAX / 4);  // refused by its length, never read
    EXPECT_FALSE(AppendWideChars(text, endless));
    EXPECT_THROW(WideText{endless}, Platform::ResultError);
    EXPECT_EQ(text.Length(), 3u);

    WideText format(u"<%s|%s>");
    FillFirstPlaceholder(format, u"%s%s");
    FillFirstPlaceholder(format, {});
    EXPECT_EQ(Narrow(format), "<%s|%s>");
    FillFirstPlaceholder(text, u"x");
    EXPECT_EQ(text.Length(), 3u);
}

TEST(TextOperations, ReadNumbersAsFarAsTheyGo) {
    for (const Json::Value& each : ReadCases("conversion/numbers.json"))
        EXPECT_EQ(ReadDecimal(Wide(each[0].asString()).View()), each[1].asInt()) << each;
    EXPECT_EQ(Narrow(WideText(DecimalText(-2147483648LL))), "-2147483648");
}

std::string LookupOrError(const SharedJson& properties) {
    try {
        return Narrow(LookupCustomProperty(properties, u"K"));
    } catch (const Json::Exception& error) {
        return error.what();
    }
}

TEST(JsonState, LooksUpSettings) {
    for (const Json::Value& each : ReadCases("conversion/lookups.json"))
        EXPECT_EQ(LookupOrError(MakeSettings(each[0].asString())), each[1].asString()) << each;
    EXPECT_EQ(LookupOrError(nullptr), "");
    EXPECT_EQ(Narrow(LookupCustomProperty(MakeSettings(R"({"features":{"\u00e4":"umlaut"}})"), u"\xE4")),
              "umlaut");
}

TEST(JsonState, Merges) {
    for (const Json::Value& each : ReadCases("conversion/merges.json")) {
        Json::Value target = *MakeSettings(each[0].asString());
        try {
            MergeCustomProperties(target, *MakeSettings(each[1].asString()));
            EXPECT_EQ(target, *MakeSettings(each[2].asString())) << each;
        } catch (const Json::LogicError& error) {
            EXPECT_EQ(error.what(), each[2].asString()) << each;
        }
    }
    Json::Value value("kept");
    EXPECT_FALSE(ParseJsonText(WideText(), value));
    EXPECT_EQ(value, Json::Value("kept"));
    EXPECT_TRUE(ParseJsonText(Wide("// comment\n[1]"), value));
    EXPECT_FALSE(ParseJsonText(Wide(R"({"features":{"A":"1"},"B)"), value));
    EXPECT_EQ(value["features"]["A"], Json::Value("1"));
}

TEST(JsonState, LoadsTheMapOfTheSeries) {
    const auto bag = std::make_shared<Platform::MemoryPrinterBag>(Platform::PrinterProperties{
        {u"CommandMap_S1", Wide(R"({"a":1})")},
        {u"CommandMap_", Wide("[2]")},
        {u"CommandMap_Deep", Wide(std::string(1001, '[') + std::string(1001, ']'))}});
    SharedJson map;
    LoadCommandMap(bag, map, WideText(u"S1"));
    EXPECT_EQ((*map)["a"], Json::Value(1));
    LoadCommandMap(bag, map, WideText(u"S2"));
    LoadCommandMap(nullptr, map, WideText(u"S1"));
    EXPECT_EQ((*map)["a"], Json::Value(1));
    LoadCommandMap(bag, map, WideText());
    EXPECT_EQ((*map)[0], Json::Value(2));
    EXPECT_THROW(LoadCommandMap(bag, map, WideText(u"Deep")), Json::Exception);
    EXPECT_EQ((*map)[0], Json::Value(2));
}

// What stands in a header between the lines that name the user and the print log.
std::string MiddleOfHeader(const std::string& pjl) {
    const std::string_view start = "@PJL SET USERNAME = \"\"\r\n";
    const std::size_t begin = pjl.find(start) + start.size();
    return pjl.substr(begin, pjl.find("@PJL PRINTLOG ITEM = 1,PRINTER\r\n") - begin);
}

std::string ChildrenOf(const TicketDocument& ticket) {
    const std::string xml = Narrow(ticket->xml());
    const std::size_t root = xml.find('>', xml.find("<psf:PrintTicket"));
    return xml[root - 1] == '/' ? "" : xml.substr(root + 1, xml.rfind('<') - root - 1);
}

// A key that nobody reads, misspelt perhaps, would let a case pass that says nothing.
void RequireCase(const Json::Value& each) {
    constexpr std::string_view given[] = {"name", "level", "settings", "properties", "ticket"};
    constexpr std::string_view awaited[] = {"expect", "pjl", "children", "copies", "throws"};
    std::size_t checks = 0;
    for (const std::string& key : each.getMemberNames())
        if (std::ranges::find(awaited, key) != std::end(awaited))
            ++checks;
        else
            EXPECT_NE(std::ranges::find(given, key), std::end(given)) << "no case has the key " << key;
    EXPECT_GT(checks, 0u) << "says nothing of what must come of it";
}

void RunCase(const Json::Value& each) {
    RequireCase(each);
    Platform::PipelineProperties properties;
    for (const std::string& name : each["properties"].getMemberNames())
        properties[std::u16string(Wide(name).View())] = Wide(each["properties"][name].asString());
    TestHost host(std::move(properties));
    host.Snapshot.CustomProperties = std::make_shared<Json::Value>(each["settings"]);
    const TicketDocument ticket = MakeTicket(Children(each["ticket"]), "xmlns:xsd='x'");
    try {
        EXPECT_EQ(host.Run(each["level"].asInt(), ticket), 1);
        EXPECT_FALSE(each.isMember("throws"));
    } catch (const std::exception& error) {
        EXPECT_EQ(error.what(), each["throws"].asString());
    }
    for (const std::string& name : each["expect"].getMemberNames())
        EXPECT_EQ(host.Property(Wide(name).View()), each["expect"][name].asString()) << name;
    if (each.isMember("pjl")) {
        EXPECT_EQ(MiddleOfHeader(host.Property(u"PJL")), each["pjl"].asString());
    }
    if (each.isMember("children")) {
        EXPECT_EQ(ChildrenOf(ticket), each["children"].asString());
    }
    if (each.isMember("copies")) {
        const WideText copies = GetParameterInitValue(ticket, u"JobCopiesAllDocuments", true);
        EXPECT_EQ(Narrow(copies), each["copies"].isNull() ? "(null)" : each["copies"].asString());
    }
}

TEST(Conversion, GivesWhatTheCasesSay) {
    for (const Json::Value& each : ReadCases("conversion/conversions.json")) {
        SCOPED_TRACE("\"" + each["name"].asString() + "\" in Tests/Data/conversion/conversions.json");
        RunCase(each);
    }
}

// Copies are read by namespace and written by the literal prefix: under another one they are read, and stay.
TEST(Conversion, LeavesCopiesUnderAnotherPrefix) {
    TestHost host;
    const TicketDocument ticket = MakeDocument(
        "<psf:PrintTicket xmlns:psf='" FRAMEWORK_NAMESPACE "' xmlns:k='" KEYWORDS_NAMESPACE "'>" +
        Feature("k:DocumentCollate", "psk:Uncollated") + Parameter("k:JobCopiesAllDocuments", "5") +
        "</psf:PrintTicket>");
    host.Run(JobLevel, ticket);
    EXPECT_EQ(host.Data(), "\r\nuint16 \"5\" PageCopies\r\nPage_0\r\n");
    EXPECT_NE(Narrow(ticket->xml()).find("<psf:Value>5</psf:Value>"), std::string::npos);
}

TEST(Conversion, PublishesTheOptionTables) {
    for (bool withTables : {true, false}) {
        TestHost host({}, withTables);
        host.Run(JobLevel, MakeTicket(""));
        Platform::PropertyValue map;
        ASSERT_TRUE(host.Bag->GetProperty(u"DPBMap", map));
        EXPECT_EQ(std::get<Platform::BareReference>(map).Address, withTables ? &host.Tables : nullptr);
    }
}

TEST(Conversion, NamesTheUser) {
    TestHost host({{u"UserSecurityToken", Platform::GetTokenOfUser(0)}});
    const std::string user = Narrow(Platform::GetNameOfUser(Platform::GetTokenOfUser(0)));
    EXPECT_NE(user, "");
    host.Run(JobLevel, MakeTicket(""));
    EXPECT_TRUE(
        host.Property(u"PJL").starts_with("\x1B%-12345X@PJL\r\n@PJL COMMENT\r\n@PJL SET LOGINUSER = \"" +
                                          user + "\"\r\n@PJL SET USERNAME = \"" + user + "\"\r\n"));
    EXPECT_NE(host.Property(u"PJL").find("@PJL PRINTLOG ITEM = 3," + user + "\r\n"), std::string::npos);
}

TEST(Conversion, CarriesAJobsStateInTheSnapshot) {
    const auto job = [](const std::string& features) {
        return MakeTicket(Settings("{\"features\":{" + features + "}}") +
                          Feature("psk:PageMediaType", "psk:Plain") +
                          Parameter("ns0000:PageDevmodeSnapshot", "x"));
    };
    const std::string page0 = "\r\nPage_0\r\nubyte_array \"dThin\" MediaType\r\n";
    const std::string page1 = "\r\nPage_1\r\nubyte_array \"dThin\" MediaType\r\n";
    const std::string page2 = "\r\nPage_2\r\nubyte_array \"dThin\" MediaType\r\n";
    TestHost host, undisturbed;
    const TicketDocument first = job(R"("TonerSave":"Off")");
    EXPECT_EQ(host.Run(JobLevel, first), 1);
    undisturbed.Run(JobLevel, job(R"("TonerSave":"Off")"));
    EXPECT_TRUE(GetParameterInitValue(first, u"PageDevmodeSnapshot", false).IsNull());
    EXPECT_EQ(host.Data(), page0);
    EXPECT_NE(host.Property(u"PJL").find("ECONOMODE = OFF"), std::string::npos);

    // The second fails in its last user setting, behind many appends and the edits of the ticket.
    const TicketDocument failing = job(R"("Booklet":true)");
    EXPECT_THROW(host.Run(JobLevel, failing), Json::Exception);
    EXPECT_EQ(Narrow(GetFeatureOptionName(failing, u"JobDuplexAllDocumentsContiguously")), "psk:OneSided");
    EXPECT_EQ(host.Data(), page0);
    EXPECT_EQ(Narrow(host.Snapshot.DataText), page0);
    EXPECT_EQ(host.Snapshot.PageCount, 1);

    for (TestHost* each : {&host, &undisturbed}) {
        each->Run(JobLevel, job(R"("EcoSetting":"On")"));
        EXPECT_EQ(each->Data(), page0 + page1);
        EXPECT_NE(each->Property(u"PJL").find("ECONOMODE = OFF\r\n@PJL SET QUIETMODE = ON\r\n"),
                  std::string::npos);
    }
    EXPECT_EQ(SteadyPjl(host.Property(u"PJL")), SteadyPjl(undisturbed.Property(u"PJL")));
    EXPECT_EQ(host.Property(u"PJL").find("@PJL COMMENT"), host.Property(u"PJL").rfind("@PJL COMMENT"));
    host.Run(PageLevel, job(""));
    EXPECT_EQ(host.Data(), page0 + page1 + page2.substr(2));
}

TEST(Conversion, StartsFromNothingWithoutASnapshot) {
    TestHost host;
    for (std::int32_t level : {JobLevel, DocumentLevel, PageLevel, 3, -1}) {
        EXPECT_EQ(ProcessDrvPT(host.Bag, MakeTicket(""), level, nullptr, nullptr), 1);
        EXPECT_EQ(host.Data(), "\r\nPage_0\r\n") << level;
    }
    PTConverter* snapshot = CreatePTConverterClassPointer();
    EXPECT_EQ(ProcessDrvPT(host.Bag, MakeTicket(""), 7, &host.Tables, snapshot), 1);
    EXPECT_EQ(host.Data(), "Page_0\r\n");
    DestroyPTConverterClassPointer(snapshot);
    DestroyPTConverterClassPointer(nullptr);
}

TEST(Conversion, ReadsACustomPropertyTextWhereverItIsCut) {
    std::string json = R"({"features":{"TonerSave":"Type1","Hold":"On","HoldKey":"\u00e4\"\\k\ud83d\udda8")";
    std::string features;
    for (int number = 0; number < 40; ++number) {
        json += ",\"Setting" + std::to_string(number) + "\":\"value\"";
        features += Feature("psk:Feature" + std::to_string(number), "psk:Option");
    }
    json += R"(},"paraminits":{"N":12}})";
    const auto convert = [&](std::size_t cut) {
        TestHost host;
        host.Run(JobLevel, MakeTicket(features + Settings(json, cut)));
        return SteadyPjl(host.Property(u"PJL")) + host.Data();
    };
    const std::string whole = convert(std::string::npos);
    EXPECT_NE(whole.find("HOLDKEY = \xC3\xA4\"\\k\xF0\x9F\x96\xA8\r\n"), std::string::npos) << whole;
    for (std::size_t cut = 1; cut < json.size(); ++cut) ASSERT_EQ(convert(cut), whole) << json.substr(0, cut);
}

TEST(Conversion, PassesTheJsonLibrarysErrorsOn) {
    const std::string deep = std::string(2000, '[');
    for (const std::string& json : {std::string("[]"), std::string(R"({"features":3})"), deep}) {
        TestHost host;
        EXPECT_THROW(host.Run(JobLevel, MakeTicket(Settings(json))), Json::Exception);
        EXPECT_EQ(host.Property(u"PJL"), "(absent)");
        EXPECT_EQ(host.Data(), "(absent)");
        EXPECT_EQ(host.Snapshot.CustomProperties, nullptr);
    }
}

TEST(Module, ThrowsErrorsThatAHostCatchesByType) {
    void* module = dlopen(MODULE_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module, nullptr) << dlerror();
    const auto process = reinterpret_cast<decltype(&ProcessDrvPT)>(dlsym(module, "ProcessDrvPT"));
    ASSERT_NE(process, nullptr);
    TestHost host;
    EXPECT_THROW(process(host.Bag, MakeTicket(Settings("[]")), JobLevel, nullptr, nullptr), Json::LogicError);

    class ExhaustedBag final : public Platform::IPrintPipelinePropertyBag {
        bool GetProperty(std::u16string_view, Platform::PropertyValue&) const override {
            Platform::ThrowResult(Platform::ResultOutOfMemory);
        }
        bool AddProperty(std::u16string_view, const Platform::PropertyValue&) override { return false; }
        bool DeleteProperty(std::u16string_view) override { return false; }
    };
    try {
        process(std::make_shared<ExhaustedBag>(), MakeTicket(""), JobLevel, nullptr, nullptr);
        ADD_FAILURE() << "no error";
    } catch (const Platform::ResultError& error) {
        EXPECT_EQ(error.Code(), 0x8007000Eu);
    }
}

}  // namespace
}  // namespace DeviceSpecificModule
