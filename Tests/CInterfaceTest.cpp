#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <map>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "FailingMemory.h"
#include "Support.h"
#include "devicespecific/devicespecific.h"
#include "devicespecific/platform/CodePages.h"
#include "tables/OptionTables.h"

// The C interface's contracts. What conversions come to is tested by way of the module.

namespace DeviceSpecificModule {
namespace {

DsmValue Text(std::string_view text) { return {DSM_TEXT, 0, text.data(), text.size()}; }

std::string Describe(const DsmValue& value) {
    if (value.Type == DSM_ABSENT) return "(absent)";
    if (value.Type == DSM_NULL) return "(null)";
    if (value.Type == DSM_TEXT) return std::string(value.Text, value.Length);
    return "(" + std::to_string(value.Type) + ": " + std::to_string(value.Number) + ")";
}

// A host with one job, one ticket at a time and the result of the last conversion.
class CHost {
public:
    CHost() { DsmNewJob(&Job, &Error); }
    CHost(const CHost&) = delete;
    CHost& operator=(const CHost&) = delete;
    ~CHost() {
        DsmFreeResult(Result);
        DsmFreeTicket(Ticket);
        DsmFreeJob(Job);
    }

    DsmStatus Set(std::int32_t bag, const char* name, std::string_view text) {
        const DsmValue value = Text(text);
        return DsmSetProperty(Job, bag, name, &value, &Error);
    }
    DsmStatus Load(const std::string& bytes) {
        DsmFreeTicket(Ticket);
        return DsmLoadTicket(bytes.data(), bytes.size(), &Ticket, &Error);
    }
    DsmStatus Convert(std::int32_t level, const std::string& children) {
        const DsmStatus loaded = Load(Narrow(MakeTicket(children)->xml()));
        if (loaded != DSM_OK) return loaded;
        DsmFreeResult(Result);
        return DsmConvert(Job, level, Ticket, &Result, &Error);
    }
    std::string Property(const char* name) {
        DsmValue value;
        EXPECT_EQ(DsmGetProperty(Result, name, &value, &Error), DSM_OK);
        return Describe(value);
    }
    std::string Field(const char* table, std::size_t row, std::int32_t field) {
        DsmValue value;
        EXPECT_EQ(DsmGetField(Job, table, row, field, &value, &Error), DSM_OK);
        return Describe(value);
    }
    // All properties, a line each, and the ticket.
    std::string Everything() {
        std::string all;
        const char* name = "";
        DsmValue value;
        for (std::size_t index = 0;; ++index) {
            EXPECT_EQ(DsmGetPropertyAt(Result, index, &name, &value, &Error), DSM_OK);
            if (name == nullptr) break;
            EXPECT_EQ(Property(name), Describe(value));
            all += name + std::string(" = ") + SteadyPjl(Describe(value)) + "\n";
        }
        EXPECT_EQ(value.Type, DSM_ABSENT);
        EXPECT_EQ(DsmGetTicketXml(Ticket, &value, &Error), DSM_OK);
        return all + Describe(value);
    }

    DsmJob* Job = nullptr;
    DsmTicket* Ticket = nullptr;
    DsmResult* Result = nullptr;
    DsmError Error{};
};

const std::string jobTicket = Feature("psk:DocumentCollate", "psk:Collated") +
                              Parameter("psk:JobCopiesAllDocuments", "3") +
                              Settings(R"({"features":{"OutPSize":"UsePaperSize"}})");
const std::string pageTicket = Feature("psk:PageMediaSize", "psk:ISOA4") +
                               Feature("psk:PageMediaType", "psk:Plain") +
                               Feature("psk:PageOrientation", "psk:Landscape");

// A job ticket and a page.
std::string ConvertBoth(CHost& host) {
    EXPECT_EQ(host.Convert(DSM_JOB_LEVEL, jobTicket), DSM_OK) << host.Error.Text;
    const std::string job = host.Everything();
    EXPECT_EQ(host.Convert(DSM_PAGE_LEVEL, pageTicket), DSM_OK) << host.Error.Text;
    return job + host.Everything();
}

std::string ConvertedByANewJob() {
    CHost host;
    return ConvertBoth(host);
}

std::int32_t GiveNothing(void*, const char*, DsmValue*) { return 0; }
std::int32_t TakeNothing(void*, const char*, const DsmValue*) { return 0; }

TEST(CInterface, RefusesWhatMakesNoSense) {
    CHost host;
    ASSERT_EQ(host.Convert(DSM_JOB_LEVEL, jobTicket), DSM_OK);
    DsmError& error = host.Error;
    DsmValue out;
    DsmTicket* none = host.Ticket;
    const std::size_t pastSizes = MediaSizeCount - 1;  // the terminating row is none
    const char *wrongTables[] = {"PageMediaType", "PageMediaTypes"}, *nullTable[] = {nullptr};
    const std::string longName = [] {
        std::string name;
        for (int letter = 0; letter < 200; ++letter) name += "é";
        return name;
    }();
    const DsmBag noGet = {nullptr, nullptr, TakeNothing}, own = {nullptr, GiveNothing, nullptr};
    const DsmValue text = Text("x"), wrong = Text("ab\xC3("), noBytes = {DSM_TEXT, 0, nullptr, 1},
                   null = {DSM_NULL, 0, nullptr, 0}, bag = {DSM_BAG, 0, nullptr, 0},
                   tooLarge = {DSM_INTEGER, std::int64_t{1} << 31, nullptr, 0},
                   noUser = {DSM_USER, -1, nullptr, 0}, unknown = {7, 0, nullptr, 0};
    const auto set = [&](std::int32_t to, const char* name, const DsmValue* value) {
        return [&error, job = host.Job, to, name, value] {
            return DsmSetProperty(job, to, name, value, &error);
        };
    };
    const auto get = [&](const char* table, std::int32_t field) {
        return [&, table, field] { return DsmGetField(host.Job, table, 0, field, &out, &error); };
    };
    const auto change = [&](std::size_t row, const DsmValue* value) {
        return [&, row, value] {
            return DsmSetField(host.Job, "PageMediaSize", row, DSM_KEYWORD, value, &error);
        };
    };
    const std::string cut = longName.substr(0, 228);  // 239 bytes would end within a character
    const std::pair<std::string, std::function<DsmStatus()>> cases[] = {
        {"job is null", [&] { return DsmNewJob(nullptr, &error); }},
        {"job is null", [&] { return DsmSetProperty(nullptr, 0, "a", &text, &error); }},
        {"a name is null", set(DSM_PIPELINE, nullptr, &text)},
        {"value is null", set(DSM_PIPELINE, "a", nullptr)},
        {"no bag 3", set(3, "a", &text)},
        {"a text is not UTF-8 at byte 0", set(DSM_PIPELINE, "\xFF", &text)},
        {"a text is not UTF-8 at byte 2", set(DSM_PIPELINE, "a", &wrong)},
        {"a text is null", set(DSM_PIPELINE, "a", &noBytes)},
        {"a bag can't hold this value", set(DSM_PIPELINE, "a", &bag)},
        {"a bag can't hold this value", set(DSM_PIPELINE, "a", &tooLarge)},
        {"a bag can't hold this value", set(DSM_PIPELINE, "a", &noUser)},
        {"a bag can't hold this value", set(DSM_PIPELINE, "a", &unknown)},
        {"this bag holds texts and integers alone", set(DSM_DRIVER, "a", &null)},
        {"functions is null", [&] { return DsmUseBag(host.Job, DSM_QUEUE, nullptr, &error); }},
        {"Get is null", [&] { return DsmUseBag(host.Job, DSM_QUEUE, &noGet, &error); }},
        {"no bag -1", [&] { return DsmUseBag(host.Job, -1, &own, &error); }},
        {"no table \"PageMediaTypes\"", [&] { return DsmUseTables(host.Job, wrongTables, 2, &error); }},
        {"a table's name is null", [&] { return DsmUseTables(host.Job, nullTable, 1, &error); }},
        {"no table \"" + cut, get(longName.c_str(), DSM_KEYWORD)},
        {"no field 0", get("PageInputBin", 0)},
        {"no field 11", get("PageInputBin", 11)},
        {"no row " + std::to_string(pastSizes), change(pastSizes, &text)},
        {"a field holds texts alone", change(0, &null)},
        {"a text is not UTF-8 at byte 2", change(0, &wrong)},
        {"bytes is null", [&] { return DsmLoadTicket(nullptr, 0, &none, &error); }},
        {"ticket is null", [&] { return DsmGetTicketXml(nullptr, &out, &error); }},
        {"ticket is null", [&] { return DsmConvert(host.Job, 0, nullptr, nullptr, &error); }},
        {"result is null", [&] { return DsmGetProperty(nullptr, "a", &out, &error); }},
        {"a name is null", [&] { return DsmGetProperty(host.Result, nullptr, &out, &error); }},
        {"value is null", [&] { return DsmGetPropertyAt(host.Result, 0, nullptr, nullptr, &error); }},
    };
    for (const auto& [said, call] : cases) {
        out = text;
        EXPECT_EQ(call(), DSM_BAD_ARGUMENT) << said;
        EXPECT_EQ(std::string(error.Text), said);
        EXPECT_TRUE(error.Status == DSM_BAD_ARGUMENT && error.Code == 0 && error.Line == 0) << said;
        EXPECT_TRUE(out.Type == DSM_ABSENT || out.Text == text.Text) << said;
    }
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(DsmUseTables(host.Job, wrongTables, 2, nullptr), DSM_BAD_ARGUMENT);
    EXPECT_EQ(DsmUseBag(host.Job, DSM_QUEUE, &own, &error), DSM_OK);
    EXPECT_TRUE(error.Status == DSM_OK && error.Text[0] == '\0');
    EXPECT_EQ(host.Set(DSM_QUEUE, "a", "x"), DSM_BAD_ARGUMENT);

    ASSERT_EQ(host.Convert(DSM_PAGE_LEVEL, pageTicket), DSM_OK);
    CHost other;  // of which nothing was refused
    ConvertBoth(other);
    EXPECT_EQ(host.Everything(), other.Everything());
}

TEST(CInterface, SaysWhereATicketIsBroken) {
    CHost host;
    EXPECT_EQ(host.Load("<a>\n<b></c>"), DSM_BAD_TICKET);
    EXPECT_TRUE(host.Error.Line == 2 && host.Error.Column == 8) << host.Error.Line << host.Error.Column;
    EXPECT_EQ(std::string(host.Error.Text), "Opening and ending tag mismatch: b line 2 and c");
    EXPECT_EQ(host.Ticket, nullptr);
    EXPECT_EQ(host.Load(std::string("\xFF\xFE<\0a\0/\0>\0", 10)), DSM_OK);
    DsmValue xml;
    EXPECT_EQ(DsmGetTicketXml(host.Ticket, &xml, nullptr), DSM_OK);
    EXPECT_EQ(Describe(xml), "<?xml version=\"1.0\"?>\n<a/>\n");
    EXPECT_EQ(xml.Text[xml.Length], '\0');
}

// The errors come late, when most properties have been written.
TEST(CInterface, LeavesTheJobAsItWasWhenAConversionFails) {
    const std::pair<std::string, std::string> cases[] = {
        {Settings(R"({"features":{"OutPSize":5}})"), "in Json::Value::asCString(): requires stringValue"},
        {Parameter("ns0000:PageXRPageCustomCount", "1001"), "string too long"},
    };
    const std::string golden = ConvertedByANewJob();
    for (const auto& [children, said] : cases) {
        CHost host;
        EXPECT_EQ(host.Convert(DSM_JOB_LEVEL, jobTicket), DSM_OK);
        const std::string job = host.Everything();
        const std::string other = Feature("psk:DocumentCollate", "psk:Collated") +
                                  Parameter("psk:JobCopiesAllDocuments", "7") + children;
        EXPECT_EQ(host.Convert(DSM_JOB_LEVEL, other), DSM_CONVERSION_FAILED) << said;
        EXPECT_NE(std::string(host.Error.Text).find(said), std::string::npos) << host.Error.Text;
        EXPECT_TRUE(host.Result == nullptr && host.Error.Code == 0);
        EXPECT_EQ(host.Convert(DSM_PAGE_LEVEL, pageTicket), DSM_OK);
        EXPECT_EQ(job + host.Everything(), golden);
    }
}

// A bag that keeps what it is given.
struct OwnBag {
    std::map<std::string, std::pair<DsmValue, std::string>> Held;

    static std::int32_t Get(void* context, const char* name, DsmValue* value) {
        OwnBag& bag = *static_cast<OwnBag*>(context);
        const auto found = bag.Held.find(name);
        if (found == bag.Held.end()) return 0;
        *value = found->second.first;
        value->Text = found->second.second.data();
        return 1;
    }
    static std::int32_t Set(void* context, const char* name, const DsmValue* value) {
        OwnBag& bag = *static_cast<OwnBag*>(context);
        if (value->Type == DSM_ABSENT) return static_cast<std::int32_t>(bag.Held.erase(name));
        bag.Held[name] = {*value, std::string(value->Text != nullptr ? value->Text : "", value->Length)};
        return 1;
    }
    void Put(const char* name, std::string_view text) {
        const DsmValue value = Text(text);
        Set(this, name, &value);
    }
};

TEST(CInterface, ConvertsAlikeWithBagsOfTheHostsOwn) {
    const std::string ticket =
        jobTicket + Feature("psk:JobDuplexAllDocumentsContiguously", "psk:TwoSidedLongEdge");
    const std::string withZero("S\0x", 3);
    CHost memory;
    memory.Set(DSM_PIPELINE, "Series", "S1");
    const DsmValue user = {DSM_USER, 0, nullptr, 0}, flag = {DSM_INTEGER, 1, nullptr, 0};
    DsmSetProperty(memory.Job, DSM_PIPELINE, "UserSecurityToken", &user, nullptr);
    DsmSetProperty(memory.Job, DSM_QUEUE, "encryptionPassphrase_Flag", &flag, nullptr);
    memory.Set(DSM_PIPELINE, "kept", withZero);
    memory.Set(DSM_PIPELINE, "removed", "x");
    const DsmValue absent{};
    DsmSetProperty(memory.Job, DSM_PIPELINE, "removed", &absent, nullptr);
    memory.Set(DSM_DRIVER, "CommandMap_S1", "{}");

    OwnBag bags[3];
    bags[DSM_PIPELINE].Put("Series", "S1");
    bags[DSM_PIPELINE].Put("kept", withZero);
    OwnBag::Set(&bags[DSM_PIPELINE], "UserSecurityToken", &user);
    bags[DSM_DRIVER].Put("CommandMap_S1", "{}");
    OwnBag::Set(&bags[DSM_QUEUE], "encryptionPassphrase_Flag", &flag);
    CHost own;
    own.Set(DSM_PIPELINE, "Series", "goes with the bag in memory");
    for (std::int32_t bag = DSM_PIPELINE; bag <= DSM_QUEUE; ++bag) {
        const DsmBag functions = {&bags[bag], OwnBag::Get, OwnBag::Set};
        ASSERT_EQ(DsmUseBag(own.Job, bag, &functions, nullptr), DSM_OK);
    }
    for (CHost* host : {&memory, &own}) {
        ASSERT_EQ(host->Convert(DSM_JOB_LEVEL, ticket), DSM_OK) << host->Error.Text;
        ASSERT_EQ(host->Convert(DSM_PAGE_LEVEL, pageTicket), DSM_OK) << host->Error.Text;
    }
    const char* name = nullptr;
    DsmValue value;
    std::size_t count = 0;
    for (; DsmGetPropertyAt(memory.Result, count, &name, &value, nullptr) == DSM_OK && name != nullptr;
         ++count) {
        if (value.Type == DSM_BAG) continue;
        const auto& [held, text] = bags[DSM_PIPELINE].Held[name];
        EXPECT_EQ(SteadyPjl(Describe(value)), held.Type == DSM_TEXT ? SteadyPjl(text) : Describe(held))
            << name;
    }
    EXPECT_EQ(bags[DSM_PIPELINE].Held.size() + 2, count);  // and the two bags
    for (const char* written : {"PJL", "DATA", "CopyCount", "DPBMap", "DriverPropertyBag"})
        EXPECT_EQ(SteadyPjl(own.Property(written)), SteadyPjl(memory.Property(written))) << written;
    EXPECT_EQ(own.Property("CopyCount"), "3");
    EXPECT_EQ(own.Property("DPBMap"), "(6: 0)");
    EXPECT_EQ(own.Property("Series"), "(absent)");
    EXPECT_EQ(memory.Property("UserSecurityToken"), "(4: 0)");
    EXPECT_EQ(memory.Property("kept"), withZero);
}

std::int32_t GiveSeries(const char* name, DsmValue* value, const DsmValue& given) {
    if (std::strcmp(name, "Series") != 0) return 0;
    *value = given;
    return 1;
}
bool IsPjl(const char* name) { return std::strcmp(name, "PJL") == 0; }

TEST(CInterface, BearsBagsThatMisbehave) {
    struct Case {
        std::int32_t Bag;
        std::int32_t (*Get)(void*, const char*, DsmValue*);
        std::int32_t (*Set)(void*, const char*, const DsmValue*);
        DsmStatus Status;
        std::uint32_t Code;
        std::string Said;
    };
    static const std::string zero("S\0x", 3);
    const Case cases[] = {
        {DSM_PIPELINE, GiveNothing, TakeNothing, DSM_OK, 0, ""},
        {DSM_PIPELINE, GiveNothing, nullptr, DSM_OK, 0, ""},
        {DSM_PIPELINE, [](void*, const char*, DsmValue*) { return 1; }, TakeNothing, DSM_OK, 0, ""},
        {DSM_PIPELINE,
         [](auto*, auto* name, auto* value) {
             return GiveSeries(name, value, {99, 0, nullptr, 0});
         },
         nullptr, DSM_OK, 0, ""},
        {DSM_PIPELINE,
         [](auto*, auto* name, auto* value) {
             return GiveSeries(name, value, {DSM_BAG, 0, nullptr, 0});
         },
         nullptr, DSM_OK, 0, ""},
        {DSM_PIPELINE, [](auto*, auto* name, auto* value) { return GiveSeries(name, value, Text("\xFF")); },
         nullptr, DSM_BAD_ARGUMENT, 0, "a text is not UTF-8 at byte 0"},
        {DSM_PIPELINE,
         [](auto*, auto* name, auto* value) {
             return GiveSeries(name, value, {DSM_TEXT, 0, nullptr, 1});
         },
         nullptr, DSM_BAD_ARGUMENT, 0, "a text is null"},
        {DSM_PIPELINE, [](void*, const char*, DsmValue*) { return -7; }, nullptr, DSM_BAG_FAILED, 0xFFFFFFF9,
         "the host's bag failed at \"Series\""},
        {DSM_PIPELINE, GiveNothing,
         [](void*, const char* name, const DsmValue*) { return IsPjl(name) ? -1 : 1; }, DSM_BAG_FAILED,
         0xFFFFFFFF, "the host's bag failed at \"PJL\""},
        {DSM_PIPELINE, [](void*, const char*, DsmValue*) -> std::int32_t { throw std::bad_alloc(); }, nullptr,
         DSM_NO_MEMORY, 0x8007000E, "out of memory"},
        {DSM_PIPELINE, [](void*, const char*, DsmValue*) -> std::int32_t { throw std::runtime_error("own"); },
         nullptr, DSM_CONVERSION_FAILED, 0, "own"},
        {DSM_PIPELINE, [](void*, const char*, DsmValue*) -> std::int32_t { throw 5; }, nullptr,
         DSM_CONVERSION_FAILED, 0, "an exception of no known type"},
        {DSM_DRIVER, [](void*, const char*, DsmValue*) { return -2; }, nullptr, DSM_BAG_FAILED, 0xFFFFFFFE,
         "the host's bag failed at \"CommandMap_S1\""},
    };
    for (const Case& each : cases) {
        CHost host;
        host.Set(DSM_PIPELINE, "Series", "S1");
        EXPECT_EQ(host.Convert(DSM_JOB_LEVEL, jobTicket), DSM_OK);
        const DsmBag odd = {nullptr, each.Get, each.Set}, mended = {nullptr, GiveNothing, nullptr};
        EXPECT_EQ(DsmUseBag(host.Job, each.Bag, &odd, nullptr), DSM_OK);
        EXPECT_EQ(host.Convert(DSM_JOB_LEVEL, jobTicket), each.Status) << each.Said;
        EXPECT_EQ(host.Error.Code, each.Code);
        EXPECT_EQ(std::string(host.Error.Text), each.Said);
        if (each.Status == DSM_OK) {
            EXPECT_NE(host.Property("PJL").find("JOBTIME"), std::string::npos);
            continue;
        }
        EXPECT_EQ(DsmUseBag(host.Job, each.Bag, &mended, nullptr), DSM_OK);
        EXPECT_EQ(host.Convert(DSM_PAGE_LEVEL, pageTicket), DSM_OK) << host.Error.Text;
        EXPECT_EQ(host.Property("DATA").find("Page_2"), std::string::npos)
            << "the failed call counts as a page";
    }
    CHost host;  // no property of a name with a zero byte can be asked for
    host.Set(DSM_PIPELINE, "Series", zero);
    const DsmBag fails = {nullptr, [](void*, const char*, DsmValue*) { return -2; }, nullptr};
    EXPECT_EQ(DsmUseBag(host.Job, DSM_DRIVER, &fails, nullptr), DSM_OK);
    EXPECT_EQ(host.Convert(DSM_JOB_LEVEL, jobTicket), DSM_OK) << host.Error.Text;
}

TEST(CInterface, ConvertsByTheTablesOfTheJob) {
    const std::pair<const char*, std::size_t> tables[] = {{"PageMediaSize", MediaSizeCount - 1},
                                                          {"PageMediaType", MediaTypeCount - 1},
                                                          {"PageInputBin", InputBinCount - 1},
                                                          {"SimplexPageMode", SimplexPageModeCount - 1},
                                                          {"DuplexPageMode", DuplexPageModeCount - 1}};
    CHost host;
    for (const auto& [name, rows] : tables) {
        EXPECT_NE(host.Field(name, rows - 1, DSM_KEYWORD), "(absent)") << name;
        EXPECT_EQ(host.Field(name, rows, DSM_KEYWORD), "(absent)") << name;
        EXPECT_EQ(host.Field(name, SIZE_MAX, DSM_KEYWORD), "(absent)") << name;
    }
    const std::pair<std::int32_t, std::string> fields[] = {
        {DSM_KEYWORD, "ISOA4"},        {DSM_PAIRED_KEYWORD, "ISOA5"},
        {DSM_JOB_COMMAND, ""},         {DSM_FOUR_IN_ONE_JOB_COMMAND, ""},
        {DSM_NAMESPACE_PREFIX, "psk"}, {DSM_DATA_COMMAND, "ubyte \"02\" MediaSize\r\n"},
        {DSM_EXTRA_TEXT, ""},          {DSM_DEVICE_NAME, "0"}};
    for (const auto& [field, text] : fields) EXPECT_EQ(host.Field("PageMediaSize", 1, field), text) << field;
    EXPECT_NE(host.Field("PageMediaSize", 1, DSM_TICKET_FRAGMENT).find(">210000<"), std::string::npos);
    EXPECT_NE(host.Field("PageMediaSize", 1, DSM_POSTSCRIPT_COMMAND).find("[595 842]"), std::string::npos);

    const DsmValue line = Text("own \xF0\x9F\x93\x84 line\r\n");
    const char* const typesAlone[] = {"PageMediaType"};
    const char* const both[] = {"PageMediaType", "PageMediaSize"};
    struct Use {
        const char* const* Names;
        std::size_t Count;
        bool HasSize, HasType;
    };
    for (const auto& [names, count, hasSize, hasType] :
         {Use{both, 2, true, true}, Use{typesAlone, 1, false, true}, Use{both, 0, false, false},
          Use{both, 1, false, true}}) {
        CHost fresh;
        EXPECT_EQ(DsmUseTables(fresh.Job, names, count, nullptr), DSM_OK);
        EXPECT_EQ(DsmSetField(fresh.Job, "PageMediaSize", 1, DSM_DATA_COMMAND, &line, nullptr), DSM_OK);
        ConvertBoth(fresh);
        const std::string data = fresh.Property("DATA");
        EXPECT_EQ(data.find("own \xF0\x9F\x93\x84 line\r\n") != data.npos, hasSize) << data;
        EXPECT_EQ(data.find("MediaType") != data.npos, hasType) << data;
    }
    EXPECT_NE(ConvertBoth(host).find("ubyte \"02\" MediaSize"), std::string::npos);
    const std::string withTables = host.Property("DATA");
    EXPECT_EQ(DsmUseTables(host.Job, nullptr, 0, nullptr), DSM_OK);
    EXPECT_EQ(host.Convert(DSM_PAGE_LEVEL, pageTicket), DSM_OK);
    EXPECT_EQ(host.Property("DATA"), withTables);
}

TEST(CInterface, IsInUtf8WhateverTheThreadsCodePage) {
    const ThreadCodePage latin("ISO-8859-1");
    CHost host;
    const std::string key = Settings(R"({"features":{"Hold":"On","HoldKey":"Schl\u00fcssel"}})");
    ASSERT_EQ(host.Convert(DSM_JOB_LEVEL, key), DSM_OK);
    EXPECT_NE(host.Property("PJL").find("HOLDKEY = Schl\xC3\xBCssel\r\n"), std::string::npos);
    EXPECT_EQ(host.Convert(DSM_JOB_LEVEL, Settings("[]")), DSM_CONVERSION_FAILED);
    EXPECT_EQ(Platform::GetThreadCodePage(), "ISO-8859-1");
}

// Every allocation of every function failed in turn. What came of a job is then asked for once more.
TEST(CInterface, LeavesAllAsItWasWithoutMemory) {
    const std::string golden = ConvertedByANewJob();
    const std::string bytes = Narrow(MakeTicket(jobTicket)->xml());
    const DsmBag functions = {nullptr, GiveNothing, nullptr};
    const char* const names[] = {"PageMediaSize"};
    const std::string letters(100, 'x');
    const DsmValue text = Text(letters);
    DsmValue out;
    const std::pair<const char*, std::function<DsmStatus(CHost&)>> calls[] = {
        {"job",
         [](CHost& host) {
             DsmJob* job = host.Job;
             const DsmStatus status = DsmNewJob(&job, &host.Error);
             EXPECT_EQ(job == nullptr, status != DSM_OK);
             DsmFreeJob(job);
             return status;
         }},
        {"set", [&](CHost& host) { return DsmSetProperty(host.Job, DSM_PIPELINE, "a", &text, &host.Error); }},
        {"bag", [&](CHost& host) { return DsmUseBag(host.Job, DSM_PIPELINE, &functions, &host.Error); }},
        {"field",
         [&](CHost& host) {
             return DsmGetField(host.Job, "PageMediaSize", 1, DSM_TICKET_FRAGMENT, &out, &host.Error);
         }},
        {"change",
         [&](CHost& host) {
             return DsmSetField(host.Job, "PageMediaSize", 1, DSM_DATA_COMMAND, &text, &host.Error);
         }},
        {"no table", [&](CHost& host) { return DsmUseTables(host.Job, names, 1, &host.Error); }},
        {"load", [&](CHost& host) { return host.Load(bytes); }},
        {"convert",
         [&](CHost& host) {
             DsmFreeResult(host.Result);
             return DsmConvert(host.Job, DSM_JOB_LEVEL, host.Ticket, &host.Result, &host.Error);
         }},
        {"xml", [&](CHost& host) { return DsmGetTicketXml(host.Ticket, &out, &host.Error); }},
        {"property", [&](CHost& host) { return DsmGetProperty(host.Result, "PJL", &out, &host.Error); }},
    };
    long reached = 0;
    for (const auto& [name, call] : calls)
        for (const Allocator allocator : {Allocator::New, Allocator::Malloc})
            for (long number = 0;; ++number) {
                CHost host;
                EXPECT_EQ(host.Convert(DSM_JOB_LEVEL, jobTicket), DSM_OK);
                const std::string before = host.Everything();
                ASSERT_EQ(host.Load(bytes), DSM_OK);
                out = text;
                AllocationFault fault(allocator, number);
                const DsmStatus status = call(host);
                if (!fault.End()) break;
                ++reached;
                SCOPED_TRACE(std::string(name) + ", allocation " + std::to_string(number) + " of " +
                             fault.Library());
                const bool isOfJson =
                    status == DSM_CONVERSION_FAILED && fault.Library().starts_with("libjsoncpp");
                EXPECT_TRUE(status == DSM_OK || status == DSM_NO_MEMORY || isOfJson) << host.Error.Text;
                EXPECT_TRUE(status != DSM_NO_MEMORY || host.Error.Code == 0x8007000E);
                if (status == DSM_OK) continue;
                EXPECT_TRUE(out.Type == DSM_ABSENT || out.Text == text.Text);
                EXPECT_EQ(host.Convert(DSM_PAGE_LEVEL, pageTicket), DSM_OK);
                EXPECT_EQ(before + host.Everything(), golden);
            }
    EXPECT_GT(reached, 300);
}

TEST(CInterface, WorksOnSeveralThreadsAtATime) {
    const std::string golden = ConvertedByANewJob();
    std::string results[4];
    std::vector<std::thread> threads;
    for (std::string& result : results)
        threads.emplace_back([&result, &golden] {
            for (int job = 0; job < 50 && (job == 0 || result == golden); ++job)
                result = ConvertedByANewJob();
        });
    for (std::thread& thread : threads) thread.join();
    for (const std::string& result : results) EXPECT_EQ(result, golden);
}

}  // namespace
}  // namespace DeviceSpecificModule
