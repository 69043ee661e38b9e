#include <gtest/gtest.h>
#include <json/writer.h>

#include <algorithm>
#include <random>
#include <span>
#include <sstream>

#include "Host/compare/DifferenceOutput.h"
#include "Host/ground/Json.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/JobRunner.h"
#include "HostTool.h"
#include "Platform/Clock.h"
#include "Support.h"
#include "ticket/TicketNamespaces.h"

namespace TicketHost {
namespace {

namespace Module = DeviceSpecificModule;

using Lines = std::vector<std::string>;

std::vector<std::string> SplitLines(const std::string& text) {
    std::istringstream stream(text);
    Lines lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// How many lines stay at most, by trying all: the last of both stays, or one of them doesn't.
std::size_t CountShared(std::span<const std::string> before, std::span<const std::string> after) {
    if (before.empty() || after.empty()) return 0;
    const auto cutBefore = before.first(before.size() - 1), cutAfter = after.first(after.size() - 1);
    if (before.back() == after.back()) return CountShared(cutBefore, cutAfter) + 1;
    return std::max(CountShared(before, cutAfter), CountShared(cutBefore, after));
}

// Whether the lines of one stand in the other in the same order.
bool IsPart(const Lines& part, const Lines& list) {
    std::size_t found = 0;
    for (const std::string& line : list)
        if (found < part.size() && line == part[found]) ++found;
    return found == part.size();
}

Lines Together(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    std::ranges::sort(lines);
    return lines;
}

// The changes must lead from the one to the other and be as few as can be.
TEST(Diff, LinesChangeAsLittleAsTheyMust) {
    std::mt19937 random(7);
    for (int time = 0; time < 500; ++time) {
        Lines lists[2];
        for (Lines& list : lists)
            for (unsigned left = random() % 8; left > 0; --left) list.emplace_back(1, "abc"[random() % 3]);
        const std::vector<LineEdit> changes = DiffLines(lists[0], lists[1]);
        const std::size_t all = lists[0].size() + lists[1].size();
        EXPECT_EQ(changes.size(), all - 2 * CountShared(lists[0], lists[1]));
        Lines goes, comes;
        for (const auto& [mark, line] : changes) (mark == '-' ? goes : comes).push_back(line);
        EXPECT_TRUE(IsPart(goes, lists[0]) && IsPart(comes, lists[1]));
        EXPECT_EQ(Together(lists[0], comes), Together(lists[1], goes));
    }
    const Lines many(3000, "a"), others(3000, "b");
    EXPECT_EQ(DiffLines(many, others).size(), 6000u);
}

// The second job is the first as the arguments make it. "..." stands for all further lines.
TEST(Diff, JobsDifferByWhatTheirCallsDo) {
    for (const Json::Value& each : Module::ReadCases("host/job-differences.json")) {
        Job job{"job.json", {}, {}};
        job.Settings.Tables.emplace(OptionTableNames.begin(), OptionTableNames.end());
        for (const Json::Value& call : each[1]) {
            const std::string name = "ticket " + std::to_string(job.Calls.size() + 1);
            const auto document = Module::MakeTicket(Module::Children(call[1]));
            job.Calls.push_back(
                {call[0].asInt(), std::make_shared<const Ticket>(Ticket{name, document->xml()})});
        }
        Job other = job;
        ApplyArguments(each[0], other);

        std::ostringstream out;
        DifferenceText text(out, false);
        CompareJobs(job, other, [&](const CallDifference& difference) { text.Write(difference); });
        Lines lines = SplitLines(out.str()), expected;
        for (const Json::Value& line : each[2]) expected.push_back(line.asString());
        if (!expected.empty() && expected.back() == "...")
            lines.resize(expected.size() - 1), expected.pop_back();
        EXPECT_EQ(lines, expected) << each[0];
    }
}

TEST(Diff, CallsAreMadeAtTheMomentThatAJobNames) {
    Job job{"job", {}, {}};
    job.Settings.Seconds = 86'400;
    job.Calls.push_back({2, std::make_shared<const Ticket>(Ticket{"ticket", Module::MakeTicket("")->xml()})});
    struct Sink final : ResultSink {
        void Take(const CallResult& result) override {
            Pjl = Module::Narrow(FindText(result.Properties, u"PJL"));
        }
        std::string Pjl;
    } sink;
    RunJob(job, false, sink);
    EXPECT_NE(sink.Pjl.find("JOBTIME = \"1970010"), sink.Pjl.npos) << sink.Pjl;  // in any time zone
    EXPECT_GT(Platform::GetSystemSeconds(), 1'700'000'000);
}

TEST_F(HostTool, TellsByItsStatusWhetherJobsDiffer) {
    const std::string job = " '" SAMPLES_DIR "/whole-job.json'";
    const std::string ticket = " '" SAMPLES_DIR "/tickets/job.xml'";
    const Outcome same = Run("diff" + job + job);
    EXPECT_EQ(same.Output, "Both convert alike.\n");
    EXPECT_EQ(same.Status, 0) << same.Errors;
    EXPECT_EQ(Run("diff --format json" + job).Output, "{\n  \"calls\": []\n}\n");
    EXPECT_EQ(Run("diff absent.xml" + job).Status, 2);

    const Outcome other = Run("diff --format json --user $(id -u)" + ticket + job);
    EXPECT_EQ(other.Status, 1) << other.Errors;
    const Json::Value calls = ReadJson("output", other.Output)["calls"];
    ASSERT_EQ(calls.size(), 7u);  // all but the first, which both make
    EXPECT_EQ(calls[0]["call"].asInt(), 2);
    EXPECT_TRUE(calls[0]["before"].isNull() && calls[0]["after"]["level"].asInt() == 1) << calls[0];

    const std::string gone = Run("diff --user ''" + job + ticket).Output;
    EXPECT_TRUE(gone.starts_with("Call 2: document level, ") && gone.ends_with(" -> no such call\n")) << gone;
    Write("bad.xml", "<psf:PrintTicket xmlns:psf='" FRAMEWORK_NAMESPACE "' xmlns:psk='" KEYWORDS_NAMESPACE
                     "' xmlns:ns0000='" DEVMODE_NAMESPACE "'>" +
                         Module::Settings("7") + "</psf:PrintTicket>");
    const Outcome fails = Run("diff --format json" + ticket + " bad.xml");
    const Json::Value errors = ReadJson("output", fails.Output)["calls"][0]["errors"];
    EXPECT_TRUE(errors["before"].isNull()) << errors;
    EXPECT_TRUE(errors["after"].asString().starts_with("JsonError: ")) << errors;
}

}  // namespace
}  // namespace TicketHost
