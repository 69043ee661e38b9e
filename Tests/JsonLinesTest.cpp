#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "Host/ground/Json.h"
#include "Host/output/JsonLinesOutput.h"
#include "Host/output/JsonOutput.h"
#include "Support.h"
#include "devicespecific/platform/Identities.h"

namespace TicketHost {
namespace {

using Platform::WideText;

std::string LineOf(const Ticket& ticket, const std::optional<CallError>& error,
                   const PipelineProperties& before, const PipelineProperties& after) {
    std::ostringstream out;
    JsonLinesOutput lines(out);
    lines.Begin({}, before);
    const Call call{-7, std::make_shared<Ticket>(ticket)};
    lines.Take({3, call, 1, error, WideText(u"<old/>"), WideText(u"<a>\x9B\n</a>"), after});
    return out.str();
}

TEST(JsonLines, ALineSaysWhatTheCallChanged) {
    const std::shared_ptr<Platform::IPrinterPropertyBag> bag = std::make_shared<MemoryPrinterBag>();
    const PipelineProperties before = {
        {u"Bag", bag},
        {u"BagToText", bag},
        {u"Empty", WideText(u"")},
        {u"Gone", 1},
        {u"GoneBag", bag},
        {u"Grown", WideText(u"ab")},
        {u"Half", WideText(u"\xD83D")},
        {u"Null", WideText()},
        {u"NullToEmpty", WideText()},
        {u"Other", WideText(u"ab")},
        {u"Same", WideText(u"same")},
        {u"Shorter", WideText(u"ab")},
        {u"TextToBag", WideText(u"")},
        {u"Type", WideText(u"2")},
    };
    const PipelineProperties after = {
        {u"Bag", bag},
        {u"BagToText", WideText(u"t")},
        {u"Empty", WideText(u"\"x\"")},
        {u"Grown", WideText(u"ab\r\n")},
        {u"Half", WideText(u"\xD83D\xDE00")},
        {u"New", WideText(u"n")},
        {u"Null", WideText(u"z")},
        {u"NullToEmpty", WideText(u"")},
        {u"Other", WideText(u"Xab")},
        {u"Same", WideText(u"same")},
        {u"Shorter", WideText(u"a")},
        {u"TextToBag", bag},
        {u"Type", 2},
        {u"User", Platform::GetTokenOfUser(4294967295)},
    };
    const std::string changes =
        R"("changed": {"BagToText": "t", "Half": "😀", "New": "n", "Null": "z", "NullToEmpty": "", )"
        R"("Other": "Xab", "Shorter": "a", "Type": 2, "User": 4294967295}, )"
        R"("appended": {"Empty": "\"x\"", "Grown": "\r\n"}, "removed": ["Gone", "TextToBag"]})"
        "\n";
    EXPECT_EQ(LineOf({"a/\xE4.xml", "bytes"}, {}, before, after),
              R"({"call": 3, "level": -7, "status": 1, "source": "a/�.xml", "ticket": "<a>\u009b\n</a>", )" +
                  changes);
    const std::string nothing = R"("changed": {}, "appended": {}, "removed": []})"
                                "\n";
    const CallError error{"ResultError", 0x8007000E, "no \xE4"}, plain{"JsonError", {}, "x"};
    const std::string rest = R"("source": "inline", "ticket": "<a>\u009b\n</a>", )" + nothing;
    const std::string front = R"({"call": 3, "level": -7, "error": )";
    const Ticket inLine{"inline ticket", WideText(u"<old/>")};
    EXPECT_EQ(LineOf(inLine, error, before, before),
              front + R"({"type": "ResultError", "code": 2147942414, "message": "no �"}, )" + rest);
    EXPECT_EQ(LineOf(inLine, plain, before, before),
              front + R"({"type": "JsonError", "message": "x"}, )" + rest);
}

// Applies a line to the properties that were there before it.
void Apply(const Json::Value& line, Json::Value& properties) {
    for (const std::string& name : line["changed"].getMemberNames()) properties[name] = line["changed"][name];
    for (const std::string& name : line["appended"].getMemberNames())
        properties[name] = properties[name].asString() + line["appended"][name].asString();
    for (const Json::Value& name : line["removed"]) properties.removeMember(name.asString());
}

Json::Value InitialOf(const Job& job) {
    std::ostringstream out;
    WritePropertiesInLine(out, job.Settings.Pipeline);
    return ReadJson("initial", out.str());
}

// Runs each sample once, into both forms, and rebuilds the one from the other.
TEST(JsonLines, TheLinesOfAJobAddUpToItsDocument) {
    int jobs = 0, appended = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLES_DIR)) {
        if (entry.path().extension() != ".json") continue;
        std::ostringstream document, lines;
        SinkList sinks;
        sinks.Add(std::make_unique<JsonOutput>(document));
        sinks.Add(std::make_unique<JsonLinesOutput>(lines));
        const Job job = ReadJob(entry.path().string());
        RunJob(job, true, sinks);
        const Json::Value calls = ReadJson("document", document.str())["calls"];
        Json::Value properties = InitialOf(job);
        std::istringstream in(lines.str());
        Json::ArrayIndex at = 0;
        for (std::string text; std::getline(in, text); ++at) {
            const Json::Value line = ReadJson("line", text);
            Apply(line, properties);
            EXPECT_EQ(line["call"].asUInt(), at + 1);
            EXPECT_EQ(line["ticket"], calls[at]["ticket"]);
            EXPECT_EQ(properties, calls[at]["properties"]) << text;
            appended += line["appended"].isMember("DATA") ? 1 : 0;
        }
        EXPECT_EQ(at, calls.size());
        ++jobs;
    }
    EXPECT_TRUE(jobs >= 4 && appended >= 5) << jobs << " jobs, DATA grew " << appended << " times";
}

}  // namespace
}  // namespace TicketHost
