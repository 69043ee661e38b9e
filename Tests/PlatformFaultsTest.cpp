#include <gtest/gtest.h>
#include <json/json.h>
#include <stdlib.h>

#include <cstdio>
#include <stdexcept>

#include "FaultRuns.h"
#include "FaultyPlatform.h"
#include "conversion/PipelineProperties.h"
#include "devicespecific/platform/Identities.h"
#include "devicespecific/platform/ResultError.h"

// Every call of the platform failed in turn: bags, document, nodes, print queue, identities, clock.

namespace DeviceSpecificModule {
namespace {

constexpr std::u16string_view oldText = u"of an earlier job";

// What became of "PJL" or "DATA", which held the above.
std::string StateOf(const Platform::MemoryPipelineBag& bag, std::u16string_view name) {
    Platform::PropertyValue value;
    if (!bag.GetProperty(name, value)) return "absent";
    return std::get<WideText>(value) == oldText ? "old" : "new";
}

// What an error may leave in "PJL" and "DATA", by the call that failed. Else they are both old or, where the
// ticket is edited behind them, both new.
struct Rule {
    std::string_view Failed;
    std::string_view Pjl;
    std::string_view Data;
};
constexpr Rule jobRules[] = {
    {"DeleteProperty PJL", "old", "old"},
    {"AddProperty PJL", "absent", "old"},
    {"DeleteProperty DATA", "new", "old"},
    {"AddProperty DATA", "new", "absent"},
};
constexpr Rule pageRules[] = {
    {"DeleteProperty DATA", "old", "old"},
    {"AddProperty DATA", "old", "absent"},
};

struct Counts {
    long Tried = 0;
    long Threw = 0;
    long ThrewBehindData = 0;
};

class PlatformSweep {
public:
    PlatformSweep(const SampleCall& call, const TestHost& before, PlatformFailure failure, bool general)
        : call_(call), before_(before), failure_(failure), usesGeneralForms_(general) {}

    Counts Run() {
        constexpr long stride = SANITIZED ? 7 : 1;
        for (long number = 0; !::testing::Test::HasFailure() && TryOne(number); number += stride) {
        }
        return counts_;
    }

private:
    // False when the call makes fewer of them.
    bool TryOne(long number) {
        Platform::PipelineProperties properties = before_.Bag->Properties();
        properties[u"PJL"] = properties[u"DATA"] = WideText(oldText);
        const auto bag = std::make_shared<Platform::MemoryPipelineBag>(properties);
        PTConverter snapshot = before_.Snapshot;
        const SnapshotCopy copy(snapshot);
        const TicketDocument ticket = MakeDocument(call_.Ticket);
        PlatformFault fault(failure_, number);
        const bool threw = Convert(fault, bag, ticket, snapshot);
        if (fault.Failed().empty()) return false;
        SCOPED_TRACE(call_.Name + ", " + fault.Failed());
        ++counts_.Tried;
        if (threw) {
            ++counts_.Threw;
            copy.ExpectUntouched(snapshot);
            ExpectOrder(*bag, fault.Failed());
        }
        Platform::ParseError error;
        EXPECT_TRUE(Platform::LoadTicketDocument(ticket->xml(), error)) << error.Reason;
        return true;
    }

    // Whether an error left the call; it must be the platform's own, or one that follows from a lack.
    bool Convert(PlatformFault& fault, const PipelineBag& bag, const TicketDocument& ticket,
                 PTConverter& snapshot) const {
        try {
            EXPECT_EQ(ProcessDrvPT(fault.Wrap(bag), fault.Wrap(ticket, usesGeneralForms_), call_.Level,
                                   &before_.Tables, &snapshot),
                      1);
            return false;
        } catch (const Platform::ResultError& error) {
            EXPECT_EQ(error.Code(), InjectedResult);
        } catch (const std::out_of_range& error) {
            EXPECT_EQ(fault.Failed(), "GetProperty EncryptionID");
            EXPECT_STREQ(error.what(), "invalid string position");
        } catch (const Json::Exception& error) {
            // Of settings that lack a piece; reads of the ticket drop the errors of its queries.
            EXPECT_TRUE(failure_ != PlatformFailure::ResultError && call_.Level == JobLevel) << error.what();
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), InjectedReason);
        }
        return true;
    }

    void ExpectOrder(const Platform::MemoryPipelineBag& bag, const std::string& failed) {
        const std::string pjl = StateOf(bag, u"PJL"), data = StateOf(bag, u"DATA");
        const bool isJob = call_.Level == JobLevel;
        for (const Rule& rule : isJob ? std::span<const Rule>(jobRules) : pageRules)
            if (rule.Failed == failed) {
                EXPECT_EQ(pjl, rule.Pjl);
                EXPECT_EQ(data, rule.Data);
                return;
            }
        EXPECT_EQ(pjl, isJob ? data : "old");
        EXPECT_NE(data, "absent");
        if (data != "new") return;
        ++counts_.ThrewBehindData;
        EXPECT_EQ(failed.find("Property"), failed.npos) << "no property is touched behind \"DATA\"";
    }

    const SampleCall call_;
    const TestHost& before_;
    const PlatformFailure failure_;
    const bool usesGeneralForms_;
    Counts counts_;
};

TEST(PlatformFaults, LeaveTheSnapshotUntouchedWhateverCallFails) {
    setenv("CUPS_SERVER", "/nonexistent/print-service", 1);
    TestHost job(SampleProperties());
    const std::vector<SampleCall> calls = SampleCalls();
    job.Run(JobLevel, MakeDocument(calls.front().Ticket));
    for (const SampleCall& call : calls) {
        Counts sum;
        for (const bool general : {false, true})
            for (const auto failure : {PlatformFailure::Nothing, PlatformFailure::FalseDespite,
                                       PlatformFailure::ResultError, PlatformFailure::StandardError}) {
                const Counts counts = PlatformSweep(call, job, failure, general).Run();
                EXPECT_GT(counts.Tried, 0);
                sum.Tried += counts.Tried;
                sum.Threw += counts.Threw;
                sum.ThrewBehindData += counts.ThrewBehindData;
            }
        std::printf("%s: %ld platform calls failed; %ld left as errors, %ld of them behind \"DATA\"\n",
                    call.Name.c_str(), sum.Tried, sum.Threw, sum.ThrewBehindData);
        EXPECT_EQ(sum.ThrewBehindData > 0, call.Level != DocumentLevel);
    }
}

// A bag that writes a value and says that there is none: of two properties the saying counts.
TEST(PlatformFaults, OfTokenAndPrinterNameCountWhateverWasWritten) {
    const auto bag = std::make_shared<Platform::MemoryPipelineBag>(Platform::PipelineProperties{
        {u"UserSecurityToken", Platform::GetTokenOfUser(0)},
        {u"PrinterName", Wide("office")},
        {u"Series", Wide("S")},
    });
    EXPECT_EQ(GetSubmittingUserName(bag), u"root");
    EXPECT_EQ(GetPrinterName(bag), u"office");
    const auto denied = [&](auto read) {
        PlatformFault fault(PlatformFailure::FalseDespite, 0);
        return read(fault.Wrap(bag));
    };
    EXPECT_EQ(denied(GetSubmittingUserName), u"");
    EXPECT_TRUE(denied(GetPrinterName).IsNull());
    EXPECT_EQ(denied([](const PipelineBag& each) { return GetPipelineText(each, u"Series"); }), u"S");
}

}  // namespace
}  // namespace DeviceSpecificModule
