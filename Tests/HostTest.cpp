#include <gtest/gtest.h>
#include <json/writer.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <sstream>

#include "Host/ground/Errors.h"
#include "Host/ground/Files.h"
#include "Host/ground/Json.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/Manifest.h"
#include "Host/output/CallWords.h"
#include "Host/output/TextOutput.h"
#include "HostTool.h"
#include "Platform/Files.h"
#include "Support.h"
#include "devicespecific/platform/Identities.h"

namespace TicketHost {
namespace {

namespace Module = DeviceSpecificModule;
using Platform::WideText;

std::string ManifestErrorOf(const std::string& text) {
    try {
        ParseManifest("job.json", text);
        return "accepted";
    } catch (const InputError& error) {
        return error.what();
    }
}

TEST(Host, ManifestErrorsNameFilePlaceAndCause) {
    for (const Json::Value& each : Module::ReadCases("host/manifests.json"))
        EXPECT_EQ(ManifestErrorOf(each[0].asString()), each[1].asString()) << each;
    EXPECT_EQ(ManifestErrorOf("{\n \"\xFF"), "job.json:2:3: not UTF-8");
}

TEST(Host, BagsKeepTheirContracts) {
    const MemoryPrinterBag printer({{u"Text", WideText(u"a")}, {u"Number", 7}});
    WideText text(u"as it was");
    std::int32_t number = -1;
    EXPECT_FALSE(printer.GetString(u"Number", text) || printer.GetInt32(u"Text", number) ||
                 printer.GetInt32(u"text", number));
    EXPECT_TRUE(text == u"as it was" && number == -1);

    MemoryPipelineBag bag;
    Platform::PropertyValue value = 5;
    EXPECT_FALSE(bag.GetProperty(u"B", value) || bag.DeleteProperty(u"B"));
    EXPECT_EQ(std::get<std::int32_t>(value), 5);
    EXPECT_TRUE(bag.AddProperty(u"B", 1) && !bag.AddProperty(u"B", 2) && bag.GetProperty(u"B", value));
    EXPECT_EQ(std::get<std::int32_t>(value), 1);
    EXPECT_TRUE(bag.DeleteProperty(u"B") && !bag.GetProperty(u"B", value) && bag.Properties().empty());
}

TEST(Host, PropertiesAsJson) {
    const int somewhere = 0;
    const std::shared_ptr<Platform::IPrinterPropertyBag> printer = std::make_shared<MemoryPrinterBag>();
    const PipelineProperties properties = {
        {u"Display",
         WideText(u"\u007E\u007F\u0080\u009F\u00A0\u061C\u200D\u200E\u2028\u202E\u2069\U0001F600")},
        {u"Empty", WideText(u"")},
        {u"Line", WideText(std::u16string_view(u"\x1B\"\\\0\r\n\x20AC\xD800z\xDC00", 10))},
        {u"Null", WideText()},
        {u"Number", -3},
        {u"Printer", printer},
        {u"ReferenceNone", Platform::BareReference{}},
        {u"ReferenceTables", Platform::BareReference{&somewhere}},
        {u"Token", Platform::GetTokenOfUser(4294967295)},
    };
    std::ostringstream out;
    WriteProperties(out, properties, 1);
    EXPECT_EQ(out.str(), R"({
   "Display": "~\u007f\u0080\u009f \u061c‍\u200e\u2028\u202e\u2069😀",
   "Empty": "",
   "Line": "\u001b\"\\\u0000\r\n€�z�",
   "Null": null,
   "Number": -3,
   "ReferenceNone": {"reference": null},
   "ReferenceTables": {"reference": "OptionTables"},
   "Token": 4294967295
 })");
}

TEST(Host, TextForAPersonSaysWhatACallDid) {
    Job job{"job.json", {}, {{0, std::make_shared<Ticket>(Ticket{"page.xml", ""})}, {}}};
    const PipelineProperties before = {{u"DATA", WideText(u"Page_0\r\nold\r\n")}, {u"Gone", 1}, {u"Same", 2}};
    const PipelineProperties after = {{u"DATA", WideText(u"Page_0\r\nold\r\nPage_1\r\nnew\n\r\nlast")},
                                      {u"Null", WideText()},
                                      {u"PJL", WideText(u"\x1B%-1\a\x85 X\r\n")},
                                      {u"Same", 2}};
    std::ostringstream out;
    TextOutput text(out, false);
    text.Begin(job, before);
    const CallError error{"ResultError", 0x8007000E, "result code 0x8007000E"};
    text.Take({1, job.Calls[0], 0, error, WideText(u"<a/>"), WideText(u"<a/>"), after});
    text.End(after);
    EXPECT_EQ(out.str(),
              "Call 1 of 2: page level, page.xml\n"
              "  failed: ResultError: result code 0x8007000E\n"
              "    there was no memory for a text or a document\n"
              "  PJL\n    <ESC>%-1<0x07><0x85> X\n"
              "  data\n    Page_1\n      new<LF>\n      (empty line)\n      last<no line end>\n"
              "  properties\n    Null = null\n    Gone is gone\n"
              "  ticket unchanged\n\n"
              "calls not made: 1; --keep-going makes them\n");
}

TEST(Host, CallsAndTheirErrorsHaveWords) {
    const std::pair<std::string, const char*> rows[] = {
        {NameOfLevel(2), "job level"},
        {NameOfLevel(0), "page level"},
        {NameOfLevel(7), "page level (7)"},
        {NameCalls({4}), "call 4"},
        {NameCalls({1, 3, 4, 5, 9}), "calls 1, 3 to 5, 9"},
        {NameCalls({1, 2, 4}), "calls 1, 2, 4"},
        {ExplainError({"ResultError", 0x8007000E, ""}), "there was no memory for a text or a document"},
        {ExplainError({"ResultError", 0x80004005, ""}), "a number could not be formatted"},
        {ExplainError({"ResultError", 0x80070057, ""}), "the code page in force is not known"},
        {ExplainError({"std::invalid_argument", {}, ""}), "a setting that must be a number is none"},
        {ExplainError({"std::out_of_range", {}, ""}), "a setting's number or position is out of range"},
        {ExplainError({"std::length_error", {}, ""}),
         "the user settings are cut into more pieces than can be named"},
        {ExplainError({"std::bad_alloc", {}, ""}), ""}};
    for (const auto& [words, expected] : rows) EXPECT_EQ(words, expected);
    for (const std::string_view line : {"Page_", "Page_1a", "page_1", "xPage_1"})
        EXPECT_FALSE(IsPageMarker(line)) << line;
    EXPECT_TRUE(IsPageMarker("Page_10"));
}

TEST_F(HostTool, RefusesWhatItCannotRead) {
    std::string deep;
    for (int depth = 0; depth < 300; ++depth) deep = "<a>" + deep + "</a>";
    Write("deep.xml", deep);
    Write("long.xml", "<a>" + std::string(50'000'000, 'x') + "</a>");
    std::filesystem::create_directory(folder_ / "folder.xml");
    for (const Json::Value& each : Module::ReadCases("host/refusals.json")) {
        for (const std::string& name : each[1].getMemberNames()) Write(name, each[1][name].asString());
        const Outcome outcome = Run(each[0].asString());
        EXPECT_EQ(outcome.Errors, "tickethost: " + each[2].asString() + "\n");
        EXPECT_TRUE(outcome.Status == 2 && outcome.Output.empty()) << each << outcome.Status;
    }
}

// It is no reason to complain, nor to crash.
TEST_F(HostTool, EndsWithoutAWordWhenTheReaderHasGone) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    const Outcome outcome = Run("tables", "&" + std::to_string(ends[1]));
    close(ends[1]);
    EXPECT_EQ(outcome.Errors, "");
    EXPECT_EQ(outcome.Status, 2);
}

TEST_F(HostTool, FilesThatMustBeNewReplaceNone) {
    Write("there", "as it was");
    errno = 0;
    EXPECT_EQ(Platform::OpenFile(folder_ / "there", "wbx"), nullptr);
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(Read("there"), "as it was");
}

TEST_F(HostTool, TellsOfThrowsAndWritesFiles) {
    const Module::TicketDocument bad = Module::MakeTicket(Module::Settings("{\"features\":7}"));
    Write("bad.xml", Module::Narrow(bad->xml()));
    Write("job.json", R"({"calls":[{"level":2,"ticket":"bad.xml"},{"level":0,"ticket":"<a>\u00e4</a>"}]})");
    std::filesystem::create_directory(folder_ / "out");
    Write("out/job.pjl", "of an earlier job");
    const Outcome stopped = Run("convert job.json"), all = Run("convert --keep-going --out out job.json");
    EXPECT_TRUE(stopped.Status == 1 && all.Status == 1 && stopped.Errors == all.Errors) << all.Errors;
    EXPECT_TRUE(stopped.Errors.starts_with("tickethost: job.json: call 1 (bad.xml): JsonError: "))
        << stopped.Errors;
    EXPECT_NE(stopped.Output.find("calls not made: 1;"), std::string::npos);
    EXPECT_NE(all.Output.find("Call 2 of 2: page level, inline ticket\n  data\n    Page_0"), all.Output.npos);
    EXPECT_EQ(Read("out/002-ticket.xml"), "<?xml version=\"1.0\"?>\n<a>\xC3\xA4</a>\n");
    EXPECT_EQ(Read("out/job.data"), "Page_0\r\n");
    EXPECT_EQ(Read("out/properties.json"), "{\n  \"DATA\": \"Page_0\\r\\n\"\n}\n");
    EXPECT_FALSE(std::filesystem::exists(folder_ / "out/job.pjl"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_ / "out"), {}), 4);
}

// Each row of bytes and what a person sees of them.
TEST(HostTexts, WhatActsOnTheDisplayIsVisible) {
    const std::pair<std::string_view, const char*> rows[] = {
        {"a~ \xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", "a~ \xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {"\x1B\r\n\t\x7F", "<ESC><CR><LF><0x09><0x7F>"},
        {std::string_view("\0", 1), "<0x00>"},
        {"\xC2\x80\xC2\x9B\xC2\x9F\xC2\xA0", "<0x80><0x9B><0x9F>\xC2\xA0"},
        {"\xD8\x9B\xD8\x9C\xD8\x9D", "\xD8\x9B<U+061C>\xD8\x9D"},
        {"\xE2\x80\x8D\xE2\x80\x8E\xE2\x80\x8F\xE2\x80\x90", "\xE2\x80\x8D<U+200E><U+200F>\xE2\x80\x90"},
        {"\xE2\x80\xA7\xE2\x80\xA8\xE2\x80\xA9", "\xE2\x80\xA7<U+2028><U+2029>"},
        {"\xE2\x80\xAA\xE2\x80\xAB\xE2\x80\xAC", "<U+202A><U+202B><U+202C>"},
        {"\xE2\x80\xAD\xE2\x80\xAE\xE2\x80\xAF", "<U+202D><U+202E>\xE2\x80\xAF"},
        {"\xE2\x81\xA5\xE2\x81\xA6\xE2\x81\xA7", "\xE2\x81\xA5<U+2066><U+2067>"},
        {"\xE2\x81\xA8\xE2\x81\xA9\xE2\x81\xAA", "<U+2068><U+2069>\xE2\x81\xAA"},
        {"\x9Bz\xE4", "<0x9B>z<0xE4>"},
        {"\xE2\x80z", "<0xE2><0x80>z"},
        {"\xC0\x9B\xC1\xBF", "<0xC0><0x9B><0xC1><0xBF>"},  // longer forms than the characters need
        {"\xE0\x82\x9B", "<0xE0><0x82><0x9B>"},
        {"\xF0\x82\x80\xAE", "<0xF0><0x82><0x80><0xAE>"},
        {"\xED\xA0\x80\xED\x9F\xBF", "<0xED><0xA0><0x80>\xED\x9F\xBF"},  // half of a surrogate pair
        {"\xF4\x8F\xBF\xBF\xF4\x90\x80\x80", "\xF4\x8F\xBF\xBF<0xF4><0x90><0x80><0x80>"},
        {"\xF8\x88\x80\x80\x80\xFF", "<0xF8><0x88><0x80><0x80><0x80><0xFF>"},
    };
    for (const auto& [bytes, visible] : rows) EXPECT_EQ(Visible(bytes), visible);
}

// Characters that act on a display, and those that look much like them, in every place where texts come in.
TEST_F(HostTool, NothingInATicketActsOnTheTerminal) {
    const std::string raw = "\x7F\xC2\x80\xC2\x9B\xD8\x9C\xE2\x80\x8E\xE2\x80\xA8\xE2\x80\xAE\xE2\x81\xA9";
    const std::string name = "\x1B[2J\x9B" + raw;
    Write(name + ".xml",
          "<a b='" + raw + "'>" + raw + "&#13;&#9;<!--" + raw + "--><?p " + raw + "?><c/></a>");
    Write("job.json", R"({"calls":[{"level":2,"ticket":"<a>\u009b\u202e\u007f</a>"}],
                          "pipeline":{"N\u009b\u001b":"\u0000\u001b\u007f\u009b\u202e",
                                      "PJL":"\u001b\u009b\u202e"}})");
    Write("bad.xml",
          Module::Narrow(Module::MakeTicket(Module::Settings("{\"features\":\"" + raw + "\"}"))->xml()));
    const std::string jobs[] = {"'" + name + ".xml'",
                                "job.json",
                                "bad.xml",
                                "'absent" + name + ".xml'",
                                "--pipeline '" + name + "=" + name + "' bad.xml",
                                "--bad" + name};
    for (const std::string& job : jobs) {
        for (const char* format : {"text", "json"}) {
            const Outcome outcome = Run("convert --keep-going --format " + std::string(format) + " " + job);
            for (const std::string& shown : {outcome.Output, outcome.Errors}) {
                for (const char* each : {"\x7F", "\xC2\x80", "\xC2\x9B", "\xD8\x9C", "\xE2\x80\x8E",
                                         "\xE2\x80\xA8", "\xE2\x80\xAE", "\xE2\x81\xA9"})
                    EXPECT_EQ(shown.find(each), shown.npos) << shown;
                for (const char c : shown) EXPECT_TRUE(c == '\n' || c < 0 || c >= ' ') << shown;
                EXPECT_EQ(ToUtf8(FromUtf8(shown)), shown);
            }
            EXPECT_FALSE(outcome.Output.empty() && outcome.Errors.empty()) << job;
        }
    }
    const Json::Value job = ReadJson("output", Run("convert --format json job.json").Output);
    EXPECT_EQ(job["calls"][0]["properties"]["N\xC2\x9B\x1B"].asString(),
              std::string("\0\x1B\x7F\xC2\x9B\xE2\x80\xAE", 8));
    EXPECT_NE(job["calls"][0]["ticket"].asString().find("\xC2\x9B\xE2\x80\xAE\x7F"), std::string::npos);
}

}  // namespace
}  // namespace TicketHost
