#include <gtest/gtest.h>

#include <barrier>
#include <cstdio>
#include <optional>
#include <thread>

#include "FaultRuns.h"

// Conversions on several threads at a time, each with snapshots, bags and tickets of its own, all with one
// set of option tables. The threads are the first to use the module and the libraries below, where each test
// has a process of its own, as with ctest. The thread sanitizer says whether they get into each other's way.

namespace DeviceSpecificModule {
namespace {

constexpr int conversionsInAll = 20000;
constexpr int threadCount = 8;

const std::vector<std::string> tableNames(TicketHost::OptionTableNames.begin(),
                                          TicketHost::OptionTableNames.end());

// What each call of a job gave, one after the other. The properties are what the host puts there.
std::string ConvertJob(const std::vector<SampleCall>& calls, Platform::PipelineProperties properties,
                       const OptionTables& tables) {
    PTConverter snapshot;
    std::string results;
    for (const SampleCall& call : calls) {
        CallRun run(call, properties, snapshot, &tables);
        const TicketDocument ticket = run.NewTicket();
        run.Convert(ticket);
        results += run.Result(ticket);
        properties = run.Bag->Properties();
        snapshot = run.Snapshot;
    }
    return results;
}

struct Worker {
    std::optional<TicketHost::OptionTableSet> Tables;
    std::string Job;  // what the first one gave, or the error
    int Conversions = 0;
    int OtherJobs = 0;  // that gave something else than the first

    void Convert(const std::vector<SampleCall>& calls, const OptionTables& tables) try {
        Platform::PipelineProperties properties = SampleProperties();
        properties.erase(u"PrinterName");  // the print service would take all the time
        while (Conversions < conversionsInAll / threadCount) {
            const std::string job = ConvertJob(calls, properties, tables);
            if (Job.empty()) Job = job;
            if (job != Job) ++OtherJobs;
            Conversions += static_cast<int>(calls.size());
        }
    } catch (const std::exception& error) {
        Job = error.what();
    }
};

TEST(Threads, GiveWhatOneThreadGives) {
    std::vector<SampleCall> calls = SampleCalls();
    calls.resize(10, calls.back());  // several pages
    std::vector<Worker> workers(threadCount);
    std::barrier together(threadCount);
    std::vector<std::thread> threads;
    for (Worker& worker : workers)
        threads.emplace_back([&] {
            together.arrive_and_wait();
            worker.Tables.emplace(tableNames);
            together.arrive_and_wait();
            worker.Convert(calls, *workers.front().Tables->Record());
        });
    for (std::thread& thread : threads) thread.join();

    Worker alone;
    alone.Tables.emplace(tableNames);
    alone.Conversions = conversionsInAll / threadCount - 1;  // one job
    alone.Convert(calls, *alone.Tables->Record());
    int conversions = 0;
    for (const Worker& worker : workers) {
        EXPECT_EQ(worker.OtherJobs, 0);
        EXPECT_TRUE(worker.Job == alone.Job) << worker.Job << "\ninstead of\n" << alone.Job;
        conversions += worker.Conversions;
    }
    EXPECT_GE(conversions, conversionsInAll);
    std::printf("%d conversions on %d threads\n", conversions, threadCount);
}

}  // namespace
}  // namespace DeviceSpecificModule
