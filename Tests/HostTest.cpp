#include <gtest/gtest.h>
#include <json/writer.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "Host/Errors.h"
#include "Host/Files.h"
#include "Host/Json.h"
#include "Host/Manifest.h"
#include "Host/TextOutput.h"
#include "Host/TicketDiff.h"
#include "Platform/Files.h"
#include "Platform/Identities.h"
#include "Support.h"

namespace TicketHost {
namespace {

namespace Module = DeviceSpecificModule;
using Platform::WideText;
using Lines = std::vector<std::string>;

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
   "Empty": "",
   "Line": "\u001b\"\\\u0000\r\n€�z�",
   "Null": null,
   "Number": -3,
   "ReferenceNone": {"reference": null},
   "ReferenceTables": {"reference": "OptionTables"},
   "Token": 4294967295
 })");
}

TEST(Host, TicketChangesAsLines) {
    for (const Json::Value& each : Module::ReadCases("host/ticket-changes.json")) {
        Lines expected;
        for (const Json::Value& line : each[2]) expected.push_back(line.asString());
        EXPECT_EQ(DescribeTicketChange(each[0].asString(), each[1].asString()), expected) << each;
    }
    std::string many, turned;
    for (int number = 0; number < 400; ++number) {
        const std::string line = "<m>" + std::to_string(number) + "</m>";
        many += line;
        turned = line + turned;
    }
    const Lines ends = {"- <d>t</d>", "+ <a>1</a>",   "  <m>0</m>",   "  <m>1</m>",
                        "...",        "  <m>398</m>", "  <m>399</m>", "- <a>1</a>"};
    EXPECT_EQ(DescribeTicketChange("<d>t</d>" + many + "<a>1</a>", "<a>1</a>" + many), ends);
    const Lines amount = {"too much to show: 401 lines became 400; 1 went and 0 are new"};
    EXPECT_EQ(DescribeTicketChange("<d>t</d>" + many, turned), amount);
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

// Runs of the tool in a folder of their own.
class HostTool : public testing::Test {
protected:
    struct Outcome {
        int Status;
        std::string Output, Errors;
    };

    HostTool() { std::filesystem::create_directories(folder_); }
    ~HostTool() override { std::filesystem::remove_all(folder_); }

    void Write(const std::string& name, const std::string& bytes) { ReplaceFile(folder_ / name, bytes); }
    std::string Read(const std::string& name) { return ReadFile(folder_ / name); }
    Outcome Run(const std::string& arguments, const std::string& output = "output") {
        const std::string command = "cd '" + folder_.string() + "' && '" TICKETHOST "' " + arguments;
        const int status = std::system((command + " >" + output + " 2>errors").c_str());
        return {WEXITSTATUS(status), output == "output" ? Read(output) : "", Read("errors")};
    }

    const std::filesystem::path folder_ = testing::TempDir() + "tickethost-" + std::to_string(getpid());
};

TEST_F(HostTool, RefusesWhatItCannotRead) {
    std::string deep;
    for (int depth = 0; depth < 300; ++depth) deep = "<a>" + deep + "</a>";
    Write("deep.xml", deep);
    Write("long.xml", "<a>" + std::string(50'000'000, 'x') + "</a>");
    std::filesystem::create_directory(folder_ / "folder.xml");
    for (const Json::Value& each : Module::ReadCases("host/refusals.json")) {
        for (const std::string& name : each[1].getMemberNames()) Write(name, each[1][name].asString());
        const auto begin = std::chrono::steady_clock::now();
        const Outcome outcome = Run(each[0].asString());
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10)) << each;
        EXPECT_EQ(outcome.Errors, "tickethost: " + each[2].asString() + "\n");
        EXPECT_TRUE(outcome.Status == 2 && outcome.Output.empty()) << each << outcome.Status;
    }
    EXPECT_EQ(Run("tables", "/dev/full").Errors, "tickethost: standard output: No space left on device\n");
    // A reader that has gone is no reason to complain, nor to crash.
    const std::string command = "{ sleep 0.3; '" TICKETHOST "' tables; echo $? >status; } 2>errors | true";
    EXPECT_EQ(std::system(("cd '" + folder_.string() + "' && " + command).c_str()), 0);
    EXPECT_EQ(Read("status") + Read("errors"), "2\n");
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

}  // namespace
}  // namespace TicketHost
