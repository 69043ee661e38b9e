#include "TwoThreads.h"

#include <latch>
#include <thread>
#include <utility>

#include "Clock.h"
#include "Locks.h"
#include "Tickets.h"

namespace Benchmarks {
namespace {

constexpr int callsOfThread = 24;

// The freeing of what a call leaves falls into the next one; a twin's needn't be taken away from times that
// are held against each other.
// Between two calls the thread loads the next ticket, as a host does.
ThreadsResult CallPages(Host& host, const std::string& ticket, std::latch& start) {
    start.arrive_and_wait();
    ThreadsResult result{};
    for (; result.Calls < callsOfThread; ++result.Calls) {
        Platform::TicketDocument document = Load(ticket);
        const std::uint64_t waitsBefore = CountLocks().Waits;
        result.SecondsPerCall +=
            CpuSeconds([&] { host.Convert(DeviceSpecificModule::PageLevel, std::move(document)); });
        result.LockWaits += static_cast<double>(CountLocks().Waits - waitsBefore);
    }
    return result;
}

}  // namespace

PageCallThreads::PageCallThreads(std::string ticket) : ticket_(std::move(ticket)) {
    for (int count = 0; count < 2; ++count) {
        hosts_.push_back(std::make_unique<Host>());
        hosts_.back()->StartJob(Ticket(UsualTicket, Settings("UsePaperSize")));
    }
    Run(2);  // warms up
}

ThreadsResult PageCallThreads::Run(int threads) {
    std::latch start(threads);
    std::vector<ThreadsResult> results(threads);
    std::vector<std::jthread> running;
    for (int number = 0; number < threads; ++number)
        running.emplace_back([&, number] { results[number] = CallPages(*hosts_[number], ticket_, start); });
    running.clear();
    ThreadsResult sum{};
    for (const ThreadsResult& result : results) {
        sum.SecondsPerCall += result.SecondsPerCall;
        sum.LockWaits += result.LockWaits;
        sum.Calls += result.Calls;
    }
    sum.SecondsPerCall /= sum.Calls;
    return sum;
}

}  // namespace Benchmarks
