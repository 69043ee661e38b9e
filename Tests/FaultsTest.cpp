#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include "FailingMemory.h"
#include "FaultRuns.h"
#include "Platform/XmlElement.h"
#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/ResultError.h"
#include "secrets/SecretPreparation.h"

// Every allocation of a call failed in turn, those of the libraries below as well.

namespace DeviceSpecificModule {
namespace {

constexpr long stride = SANITIZED ? 17 : 1, usualColdStride = SANITIZED ? 197 : 13;
constexpr bool countsBlocks = !SANITIZED;  // a sanitizer does

// How a call with a failed allocation ends.
enum Ending {
    Same,         // it gives what it always gives
    OutOfMemory,  // ResultError
    OfJson,       // the JSON library's own error
    Other,
};

struct Ended {
    Ending Kind = Same;
    std::string Where;  // for messages
};

using Tally = std::array<long, 4>;  // by ending

long Sum(const Tally& tally) { return tally[Same] + tally[OutOfMemory] + tally[OfJson] + tally[Other]; }

void Print(const char* state, const std::string& what, Allocator allocator, const Tally& tally) {
    std::printf("%s, %s, %s: %ld faults; %ld the same, %ld ResultError, %ld the JSON library's\n", state,
                what.c_str(), allocator == Allocator::New ? "operator new" : "malloc", Sum(tally),
                tally[Same], tally[OutOfMemory], tally[OfJson]);
}

// A call that returns may still have given something else.
Ended RunWithFault(AllocationFault& fault, const std::function<void()>& call) {
    Ending kind = Same;
    std::string reason = "returned";
    try {
        call();
        fault.End();
    } catch (const Platform::ResultError& error) {
        fault.End();
        kind = error.Code() == Platform::ResultOutOfMemory ? OutOfMemory : Other;
        reason = error.what();
    } catch (const std::exception& error) {
        fault.End();
        kind = fault.Library().starts_with("libjsoncpp") ? OfJson : Other;
        reason = error.what();
    }
    return {kind, reason + " below " + fault.Library()};
}

class Sweep {
public:
    Sweep(const SampleCall& call, const TestHost& before)
        : call_(call),
          properties_(before.Bag->Properties()),
          snapshot_(before.Snapshot),
          tables_(before.Tables) {
        CallRun run = NewRun();
        const TicketDocument ticket = run.NewTicket();
        run.Convert(ticket);
        golden_ = run.Result(ticket);
    }

    // All allocations in turn; stops at the first that is out of order.
    Tally Try(Allocator allocator) const {
        Tally tally{};
        for (long number = 0; !::testing::Test::HasFailure(); number += stride) {
            Ending ending = Same;
            long blocks = LiveBlocks();
            if (!TryOne(allocator, number, ending)) break;
            ++tally[ending];
            if (!countsBlocks || LiveBlocks() == blocks) continue;
            // What a library keeps it takes once, what leaks, each time.
            blocks = LiveBlocks();
            TryOne(allocator, number, ending);
            EXPECT_EQ(LiveBlocks(), blocks) << call_.Name << " leaks at " << number;
        }
        return tally;
    }

private:
    CallRun NewRun() const { return CallRun(call_, properties_, snapshot_, &tables_); }

    // False when the call has fewer allocations.
    bool TryOne(Allocator allocator, long number, Ending& ending) const {
        CallRun run = NewRun();
        const SnapshotCopy before(run.Snapshot);
        const TicketDocument ticket = run.NewTicket();
        AllocationFault fault(allocator, number);
        const Ended ended = RunWithFault(fault, [&] { run.Convert(ticket); });
        if (!fault.End()) return false;
        ending = ended.Kind;
        SCOPED_TRACE(call_.Name + ", allocation " + std::to_string(number) + ": " + ended.Where);
        if (ended.Kind == Same) {
            EXPECT_EQ(run.Result(ticket), golden_);
            return true;
        }
        EXPECT_NE(ended.Kind, Other);
        before.ExpectUntouched(run.Snapshot);
        EXPECT_TRUE(LoadsAgain(ticket));
        const TicketDocument again = run.NewTicket();
        run.Convert(again);
        EXPECT_EQ(run.Result(again), golden_);
        return true;
    }

    static bool LoadsAgain(const TicketDocument& ticket) {
        Platform::ParseError error;
        return Platform::LoadTicketDocument(ticket->xml(), error) != nullptr;
    }

    const SampleCall call_;
    const Platform::PipelineProperties properties_;
    const PTConverter snapshot_;
    const OptionTables tables_;
    std::string golden_;
};

// No print service answers; asking for one allocates all the same.
void HideThePrintService() { setenv("CUPS_SERVER", "/nonexistent/print-service", 1); }

TEST(Faults, LeaveAllAsItWasWhateverAllocationFails) {
    HideThePrintService();
    TestHost job(SampleProperties());
    const std::vector<SampleCall> calls = SampleCalls();
    job.Run(JobLevel, MakeDocument(calls.front().Ticket));
    // At least so many allocations, or the faults don't reach the calls any more: by level and allocator.
    const long floors[][2] = {{900, 700}, {25, 60}, {25, 3}};
    ASSERT_EQ(calls.size(), std::size(floors));
    for (std::size_t call = 0; call < calls.size(); ++call)
        for (const Allocator allocator : {Allocator::New, Allocator::Malloc}) {
            const Tally tally = Sweep(calls[call], job).Try(allocator);
            Print("warm", calls[call].Name, allocator, tally);
            const long floor = floors[call][allocator == Allocator::New ? 0 : 1];
            EXPECT_GE(Sum(tally), countsBlocks ? floor / stride : 1);
        }
}

// Without settings nothing of the JSON library is left that can fail.
TEST(Faults, AreResultErrorsWithoutSettings) {
    HideThePrintService();
    TestHost job(SampleProperties());
    const std::string ticket = Narrow(
        MakeTicket(Feature("psk:DocumentCollate", "psk:Collated") +
                   Parameter("psk:JobCopiesAllDocuments", "3") + Feature("psk:PageMediaSize", "psk:ISOA4") +
                   Feature("psk:PageMediaType", "psk:Plain") + Parameter("ns0000:PageDevmodeSnapshot", "x"))
            ->xml());
    job.Bag->DeleteProperty(u"Series");  // with its command map
    for (const std::int32_t level : {JobLevel, DocumentLevel, PageLevel})
        for (const Allocator allocator : {Allocator::New, Allocator::Malloc}) {
            const std::string name = "level " + std::to_string(level) + " without settings";
            const Tally tally = Sweep({level, name, ticket}, job).Try(allocator);
            Print("warm", name, allocator, tally);
            EXPECT_EQ(tally[OfJson], 0);
            EXPECT_TRUE(allocator == Allocator::Malloc || Sum(tally) > 0);
        }
}

// A host's tables, to be filled when that may fail.
class LateTables {
public:
    LateTables() {
        for (std::size_t table = 0; table < std::size(getters); ++table) {
            std::uint32_t count = 0;
            getters[table].Size(&count);
            rows_[table].resize(count);
            Record.*getters[table].Slot = rows_[table].data();
        }
    }
    void Fill() {
        for (std::size_t table = 0; table < std::size(getters); ++table)
            getters[table].Rows(rows_[table].data());
    }
    OptionTables Record;

private:
    struct Getter {
        std::int32_t (*Size)(std::uint32_t*);
        std::int32_t (*Rows)(OptionRecord*);
        const OptionRecord* OptionTables::*Slot;
    };
    static constexpr Getter getters[] = {
        {GetSizeOfPageMediaSize, GetPageMediaSize, &OptionTables::PageMediaSizes},
        {GetSizeOfPageMediaType, GetPageMediaType, &OptionTables::PageMediaTypes},
        {GetSizeOfPageInputBin, GetPageInputBin, &OptionTables::PageInputBins},
        {GetSizeOfSimplexPageMode, GetSimplexPageMode, &OptionTables::SimplexPageModes},
        {GetSizeOfDuplexPageMode, GetDuplexPageMode, &OptionTables::DuplexPageModes},
    };
    std::vector<OptionRecord> rows_[std::size(getters)];
};

// What processes of their own tell the test.
struct ColdResults {
    Tally Endings;
    bool Reached;  // the fault
    char Golden[60000];
};

constexpr long never = 1'000'000'000;  // the number of no allocation

// The first things that a process does with the module: it takes the tables, loads a ticket and converts it.
// After an error it does so again, and nothing fails any more.
void ConvertCold(const SampleCall& call, const Platform::PipelineProperties& properties, Allocator allocator,
                 long number, ColdResults& results) {
    LateTables tables;
    CallRun run(call, properties, PTConverter(), &tables.Record);
    const SnapshotCopy before(run.Snapshot);
    TicketDocument ticket;
    const std::function<void()> convert = [&] {
        tables.Fill();
        ticket = run.NewTicket();
        run.Convert(ticket);
    };
    AllocationFault fault(allocator, number);
    const Ended ended = RunWithFault(fault, convert);
    results.Reached = fault.End();
    if (results.Reached) ++results.Endings[ended.Kind];
    SCOPED_TRACE(call.Name + ", cold, allocation " + std::to_string(number) + ": " + ended.Where);
    // Of a code page's converter that it has no memory to load the C library says that there is none.
    const bool lacksConverter =
        allocator == Allocator::Malloc && ended.Where.starts_with("result code 0x80070057");
    EXPECT_TRUE(ended.Kind != Other || lacksConverter);
    if (ended.Kind != Same) {
        before.ExpectUntouched(run.Snapshot);
        convert();
    }
    const std::string result = run.Result(ticket);
    if (number == never) std::snprintf(results.Golden, sizeof results.Golden, "%s", result.c_str());
    EXPECT_EQ(result, results.Golden);
}

// Runs it in a process of its own, which begins where this one is now.
void RunInProcess(const std::function<void()>& function) {
    std::fflush(stdout);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        EXPECT_NO_THROW(function());
        std::fflush(stdout);
        _exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(EndOf(status), 0);
}

// COLD_STRIDE=1 in the environment has every allocation fail in turn, which takes a process for each.
TEST(Faults, LeaveAllAsItWasAtFirstUse) {
    if (::testing::UnitTest::GetInstance()->test_to_run_count() > 1)
        GTEST_SKIP() << "other tests of this process may have used it; ctest gives each one a process";
    const char* const asked = getenv("COLD_STRIDE");
    const long coldStride = asked == nullptr ? usualColdStride : std::strtol(asked, nullptr, 10);
    ASSERT_GT(coldStride, 0);
    HideThePrintService();
    Platform::PipelineProperties properties = SampleProperties();
    // At its first use the print service's library does not survive it.
    properties.erase(u"PrinterName");
    void* const shared =
        mmap(nullptr, sizeof(ColdResults), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(shared, MAP_FAILED);
    auto& results = *static_cast<ColdResults*>(shared);
    for (const SampleCall& call : SampleCalls())
        for (const Allocator allocator : {Allocator::New, Allocator::Malloc}) {
            results = {};
            // Nor does the C library's user database survive it when its malloc fails.
            if (allocator == Allocator::Malloc) properties.erase(u"UserSecurityToken");
            const auto convert = [&](long number) {
                RunInProcess([&] { ConvertCold(call, properties, allocator, number, results); });
            };
            convert(never);
            results.Reached = true;
            for (long number = 0; results.Reached && !HasFailure(); number += coldStride) convert(number);
            Print("cold", call.Name, allocator, results.Endings);
            EXPECT_GT(Sum(results.Endings), 100 / coldStride);
        }
    munmap(shared, sizeof(ColdResults));
}

// Where a text is made, lack of memory is one error, and results are then as they were.
TEST(Faults, OfTextsAreResultErrors) {
    const std::string letters(100, 'x'), others = letters + "\xC3\xA9";
    const WideText wide = Wide(letters), otherWide = Wide(others);
    std::string bytes;
    WideText text;
    PTConverter converter;
    TestHost host{{{u"EncryptionID", Wide("[1,2]")}}};
    converter.Pipeline = host.Bag;
    const TicketDocument ticket = MakeTicket(Feature("psk:F", "psk:O"));
    Platform::TicketNode option;
    ASSERT_TRUE(ticket->selectSingleNode(u"//psf:Option", option) && option);
    const WideText before = ticket->xml();
    Platform::ParseError error;
    const Platform::XmlElement element = Platform::ReadXml(before, error).value();
    using Platform::CodePage;
    const struct {
        const char* Name;
        std::function<void()> Make;
        Allocator From = Allocator::New;
    } cases[] = {
        {"to wide", [&] { ConvertToWide(CodePage::Utf8, letters, text); }},
        {"others to wide", [&] { ConvertToWide(CodePage::Utf8, others, text); }},
        {"from wide", [&] { ConvertFromWide(CodePage::Utf8, wide.View(), bytes); }},
        {"others from wide", [&] { ConvertFromWide(CodePage::Utf8, otherWide.View(), bytes); }},
        {"secret", [&] { text = ProtectJobSecret(converter, otherWide); }},
        {"a ticket's text", [&] { text = ticket->xml(); }},
        {"a ticket's text in the library", [&] { text = ticket->xml(); }, Allocator::Malloc},
        {"a document's text in the library", [&] { bytes = Platform::WriteXml(element); }, Allocator::Malloc},
        {"an item's text", [&] { text = option->parentNode()->text(); }, Allocator::Malloc},
        {"an item's new text", [&] { option->setText(otherWide); }, Allocator::Malloc},
    };
    for (const auto& [name, make, allocator] : cases) {
        bool reached = true;
        for (long allocation = 0; reached; ++allocation) {
            text = WideText(u"old");
            bytes = "old";
            AllocationFault fault(allocator, allocation);
            const Ended ended = RunWithFault(fault, make);
            reached = fault.End();
            EXPECT_EQ(ended.Kind, reached ? OutOfMemory : Same) << name << allocation;
            EXPECT_TRUE(!reached || (text == u"old" && bytes == "old" && ticket->xml() == before))
                << name << allocation;
            EXPECT_TRUE(reached || allocation > 0) << name;  // else nothing was tried
        }
    }
}

// An append that fails shows in the text and its copies, until another text takes their place.
TEST(Faults, OfAppendsShowInTheText) {
    WideText text(u"a");
    AllocationFault fault(Allocator::New, 0);
    EXPECT_FALSE(text.Append(u"b"));
    EXPECT_EQ(text, u"a");
    WideText copy(text), moved(std::move(copy)), assigned;
    assigned = text;
    EXPECT_FALSE(text.IsWhole() || moved.IsWhole() || assigned.IsWhole());
    EXPECT_TRUE(copy.IsNull() && copy.IsWhole());
    assigned = WideText();
    EXPECT_TRUE(assigned.IsWhole());
}

}  // namespace
}  // namespace DeviceSpecificModule
