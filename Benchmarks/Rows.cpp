#include <memory>

#include "Allocations.h"
#include "Children.h"
#include "Clock.h"
#include "Floor.h"
#include "Host.h"
#include "Locks.h"
#include "Row.h"
#include "Tickets.h"
#include "TwoThreads.h"

namespace Benchmarks {
namespace {

using namespace DeviceSpecificModule;
using Preparation = std::function<Measure()>;

constexpr Goal AtMost(double value) { return {Goal::AtMost, value}; }
constexpr Goal AtLeast(double value) { return {Goal::AtLeast, value}; }

// A host in a job of 160 settings. What a page call on the ticket must do is looked at once.
std::shared_ptr<Host> HostInJob(std::string_view outputSize = "UsePaperSize") {
    auto host = std::make_shared<Host>();
    host->StartJob(Ticket(UsualTicket, Settings(outputSize)));
    host->Expect(u"PJL", u"@PJL SET HOLDKEY = 4711");
    host->Expect(u"DATA", u"Page_0\r\nubyte \"");
    return host;
}

std::shared_ptr<Host> HostAtPages(const std::string& ticket) {
    auto host = HostInJob();
    host->Call(PageLevel, ticket);
    host->Expect(u"DATA", u"Page_1\r\nubyte \"02\" MediaSize\r\nubyte_array \"dThin\" MediaType\r\n");
    return host;
}

Preparation PageCall(int features) {
    return [ticket = Ticket(features)]() -> Measure {
        return [ticket, host = HostAtPages(ticket)]() -> Sample {
            return {host->SecondsOfCall(PageLevel, ticket), FloorSeconds(ticket)};
        };
    };
}

Measure LoadAndPageCall() {
    const std::string ticket = Ticket(UsualTicket);
    return [ticket, host = HostAtPages(ticket)]() -> Sample {
        return {CpuSeconds([&] { host->Call(PageLevel, ticket); }), FloorSeconds(ticket)};
    };
}

void ExpectSize(Host& host, const std::string& ticket, std::u16string_view option) {
    const Platform::TicketDocument document = Load(ticket);
    host.Convert(DocumentLevel, document);
    if (document->xml().View().find(option) == std::u16string_view::npos)
        throw std::runtime_error("a document call did not write its size");
}

// The size that the job prints on, and the option that the document's ticket, at ISOA4, then has.
Preparation DocumentCall(std::string_view outputSize, std::u16string_view option) {
    return [=]() -> Measure {
        const std::string ticket = Ticket(UsualTicket);
        auto host = HostInJob(outputSize);
        ExpectSize(*host, ticket, option);
        return [ticket, host]() -> Sample {
            return {host->SecondsOfCall(DocumentLevel, ticket), FloorSeconds(ticket)};
        };
    };
}

Preparation JobCall(bool withSettings) {
    return [=]() -> Measure {
        const std::string ticket = Ticket(UsualTicket, withSettings ? Settings("UsePaperSize") : "");
        auto host = HostInJob();
        return [ticket, host]() -> Sample { return {host->SecondsOfJobCall(ticket), FloorSeconds(ticket)}; };
    };
}

std::string TicketWithExceptions(Host& host, int count, std::size_t pieceLength) {
    std::string ticket = Ticket(SmallTicket, Exceptions(count, pieceLength));
    host.StartJob(ticket);
    host.Expect(u"PAPER_SIZE", u"ISOA5");  // which stands behind the exceptions
    return ticket;
}

Preparation TenTimesTheExceptions(std::size_t pieceLength) {
    return [=]() -> Measure {
        auto host = std::make_shared<Host>();
        const std::string few = TicketWithExceptions(*host, 500, pieceLength);
        const std::string many = TicketWithExceptions(*host, 5'000, pieceLength);
        return [=]() -> Sample { return {host->SecondsOfJobCall(many), host->SecondsOfJobCall(few)}; };
    };
}

// Small tickets lead to the late page, usual ones are measured. Both sides begin warm: the late page behind
// another one, the first page behind the late one.
Preparation LatePage(int page) {
    return [=]() -> Measure {
        const std::string jobTicket = Ticket(UsualTicket, Settings("UsePaperSize"));
        const std::string ticket = Ticket(UsualTicket);
        auto late = HostInJob();
        for (int number = 1; number < page; ++number) late->Call(PageLevel, Ticket(SmallTicket));
        auto first = std::make_shared<Host>();
        return [=]() -> Sample {
            first->StartJob(jobTicket);
            late->SecondsOfCallAlone(PageLevel, ticket);
            const double seconds = late->SecondsOfCallAlone(PageLevel, ticket);
            return {seconds, first->SecondsOfCallAlone(PageLevel, ticket)};
        };
    };
}

Measure SpeedUpOfTwoThreads() {
    return [threads = std::make_shared<PageCallThreads>(Ticket(UsualTicket))]() -> Sample {
        const double alone = threads->Run(1).SecondsPerCall;
        return {2 * alone, threads->Run(2).SecondsPerCall};
    };
}

// Over all calls at once: a single wait counts, which a median would hide.
Measure LocksWaitedFor() {
    ExpectToSeeLockWaits();
    return [threads = std::make_shared<PageCallThreads>(Ticket(UsualTicket))]() -> Sample {
        ThreadsResult sum{};
        for (int run = 0; run < 60; ++run) {
            const ThreadsResult result = threads->Run(2);
            sum.LockWaits += result.LockWaits;
            sum.Calls += result.Calls;
        }
        return {sum.LockWaits, sum.Calls / 1000};
    };
}

Measure LocksTaken() {
    const std::string ticket = Ticket(UsualTicket);
    return [ticket, host = HostAtPages(ticket)]() -> Sample {
        Platform::TicketDocument document = Load(ticket);
        const std::uint64_t before = CountLocks().Taken;
        host->Convert(PageLevel, std::move(document));
        return {static_cast<double>(CountLocks().Taken - before), 1};
    };
}

struct JobMemory {
    double Peak, Live, Data;  // bytes
};

// Malloc's bytes of a host that runs a job from its first call to its last; `Live` while all of it still
// stands.
JobMemory MemoryOfJob(int pages) {
    const std::string jobTicket = Ticket(UsualTicket, Settings("UsePaperSize"));
    const std::string ticket = Ticket(UsualTicket);
    Host host;
    const AllocationCounts counts = CountAllocations([&] {
        host.StartJob(jobTicket);
        for (int page = 0; page < pages; ++page) host.Call(PageLevel, ticket);
    });
    return {static_cast<double>(counts.PeakBytes), static_cast<double>(counts.LiveBytes),
            static_cast<double>(host.DataBytes())};
}

// What a job of so many pages takes beyond one of a single page, and so beyond its tickets and settings. Both
// run once.
const JobMemory& MemoryOfPages(int pages) {
    static const JobMemory memory = [pages] {
        const JobMemory all = MemoryOfJob(pages);
        const JobMemory one = MemoryOfJob(1);
        return JobMemory{all.Peak - one.Peak, all.Live - one.Live, all.Data};
    }();
    return memory;
}

Preparation PeakAgainstGoal(int pages) {
    return [=]() -> Measure {
        return [=]() -> Sample {
            return {MemoryOfPages(pages).Peak, 2 * MemoryOfPages(pages).Data + 1024 * 1024};
        };
    };
}

Preparation MemoryAgainstData(int pages, double JobMemory::*bytes) {
    return [=]() -> Measure {
        return [=]() -> Sample { return {MemoryOfPages(pages).*bytes, MemoryOfPages(pages).Data}; };
    };
}

// The count must work: the floor's is never zero.
void ExpectToCount(const std::string& ticket) {
    if (CountAllocations([&] { ParseAndSerialise(ticket); }).Calls == 0)
        throw std::runtime_error("allocations are not counted");
}

// In the middle of a job, so that what a process or a job allocates once doesn't show.
Preparation AllocationsOfPageCall(int features) {
    return [=]() -> Measure {
        const std::string ticket = Ticket(features);
        ExpectToCount(ticket);
        return [ticket, host = HostAtPages(ticket)]() -> Sample {
            host->Call(PageLevel, ticket);
            Platform::TicketDocument document = Load(ticket);
            const AllocationCounts counts =
                CountAllocations([&] { host->Convert(PageLevel, std::move(document)); });
            return {static_cast<double>(counts.Calls), 1};
        };
    };
}

Measure LoadingTheLibrary() {
    return []() -> Sample { return {SecondsOfLoading(MODULE_FILE) - SecondsOfLoading(""), 0.001}; };
}

// Seconds of what our own side of a comparison takes for each call, over some hundred calls.
template <typename Call>
double SecondsPerCall(const Call& call) {
    constexpr int calls = 300;
    double seconds = 0;
    for (int count = 0; count < calls; ++count) seconds += call();
    return seconds / calls;
}

Preparation LxmlOnLoadedTicket(double LxmlLoop::Seconds::*way) {
    return [=]() -> Measure {
        const std::string ticket = Ticket(UsualTicket);
        auto loop = std::make_shared<LxmlLoop>(ticket);
        return [=, host = HostAtPages(ticket)]() -> Sample {
            return {loop->Run().*way, SecondsPerCall([&] { return host->SecondsOfCall(PageLevel, ticket); })};
        };
    };
}

double SecondsFromTextToText(Host& host, const std::string& ticket) {
    return CpuSeconds([&] {
        const Platform::TicketDocument document = Load(ticket);
        host.Convert(PageLevel, document);
        document->xml();
    });
}

Measure LxmlFromTextToText() {
    const std::string ticket = Ticket(UsualTicket);
    auto loop = std::make_shared<LxmlLoop>(ticket);
    return [=, host = HostAtPages(ticket)]() -> Sample {
        return {loop->Run().Whole, SecondsPerCall([&] { return SecondsFromTextToText(*host, ticket); })};
    };
}

Preparation FloorItself(int features) {
    return [ticket = Ticket(features)]() -> Measure {
        return [ticket]() -> Sample { return {FloorSeconds(ticket), 1e-6}; };
    };
}

std::string Thousands(int number) {
    return number < 1000 ? std::to_string(number) : std::to_string(number / 1000) + ",000";
}

}  // namespace

std::vector<Row> Rows(const Scale& scale) {
    constexpr Rounds timed = Rounds::Timed, slow = Rounds::Slow, counted = Rounds::Counted;
    const std::string pages = Thousands(scale.JobPages) + " pages";
    return {
        {"floor, 1 KB ticket", "us", {}, timed, FloorItself(SmallTicket)},
        {"floor, 11 KB ticket", "us", {}, timed, FloorItself(UsualTicket)},
        {"floor, 100 KB ticket", "us", {}, timed, FloorItself(LargeTicket)},
        {"page call, 1 KB ticket", "floors", AtMost(0.6), timed, PageCall(SmallTicket)},
        {"page call, 11 KB ticket", "floors", AtMost(0.2), timed, PageCall(UsualTicket)},
        {"page call, 100 KB ticket", "floors", AtMost(0.12), timed, PageCall(LargeTicket)},
        {"load + page call, 11 KB", "floors", AtMost(1.1), timed, LoadAndPageCall},
        {"document call, size not changed", "floors", AtMost(0.25), timed,
         DocumentCall("UsePaperSize", u"\"psk:ISOA4\"")},
        {"document call, size changed", "floors", AtMost(0.25), timed,
         DocumentCall("ISOA5", u"\"psk:ISOA5\"")},
        {"job call, 0 settings", "floors", AtMost(1.6), timed, JobCall(false)},
        {"job call, 160 settings", "floors", AtMost(3.5), timed, JobCall(true)},
        {"5,000 exceptions, pieces of 1,000", "x 500", AtMost(12), slow, TenTimesTheExceptions(1'000)},
        {"5,000 exceptions, pieces of 30,000", "x 500", AtMost(12), slow, TenTimesTheExceptions(30'000)},
        {"page " + Thousands(scale.LatePage), "x page 1", AtMost(1.1), timed, LatePage(scale.LatePage)},
        {"two threads, speed-up", "x one", AtLeast(1.85), timed, SpeedUpOfTwoThreads},
        {"page call, 11 KB ticket", "locks taken", {}, counted, LocksTaken},
        {"two threads, locks waited for", "in 1,000 calls", AtMost(0), Rounds::Once, LocksWaitedFor},
        {"malloc peak, " + pages, "of 2 DATA+1 MiB", AtMost(1), counted, PeakAgainstGoal(scale.JobPages)},
        {"malloc peak, " + pages, "x DATA", {}, counted, MemoryAgainstData(scale.JobPages, &JobMemory::Peak)},
        {"malloc live, " + pages, "x DATA", {}, counted, MemoryAgainstData(scale.JobPages, &JobMemory::Live)},
        {"page call, 1 KB ticket", "allocations", AtMost(120), counted, AllocationsOfPageCall(SmallTicket)},
        {"page call, 11 KB ticket", "allocations", AtMost(120), counted, AllocationsOfPageCall(UsualTicket)},
        {"page call, 100 KB ticket", "allocations", AtMost(120), counted, AllocationsOfPageCall(LargeTicket)},
        {"loading the library", "ms", AtMost(2), timed, LoadingTheLibrary},
        {"lxml loop, loaded 11 KB ticket", "x page call", AtLeast(3), slow,
         LxmlOnLoadedTicket(&LxmlLoop::Seconds::Loop)},
        {"lxml by XPath, loaded 11 KB ticket",
         "x page call",
         {},
         slow,
         LxmlOnLoadedTicket(&LxmlLoop::Seconds::XPath)},
        {"lxml loop, text to text", "x ours", {}, slow, LxmlFromTextToText},
    };
}

}  // namespace Benchmarks
