#pragma once

#include <json/value.h>

#include <cstdint>
#include <string>
#include <vector>

#include "FaultyPlatform.h"
#include "Support.h"

// What the tests of faults share: the calls of the fullest sample, and all that a call gives or must leave.

namespace DeviceSpecificModule {

struct SampleCall {
    std::int32_t Level = 0;
    std::string Name;
    std::string Ticket;  // a file's bytes
};

// The calls of Samples/all-settings.json.
std::vector<SampleCall> SampleCalls();
// What its bags hold, and the token of a user.
Platform::PipelineProperties SampleProperties();

// The properties and the ticket, with what differs between runs and machines as SteadyPjl writes it.
std::string Describe(const Platform::PipelineProperties& properties, const TicketDocument& ticket,
                     const OptionTables* tables);

// A snapshot as it was, its documents by value, too.
class SnapshotCopy {
public:
    explicit SnapshotCopy(const PTConverter& snapshot);
    void ExpectUntouched(const PTConverter& now) const;

private:
    PTConverter before_;
    Json::Value properties_;
    Json::Value map_;
};

// One call as a host makes it, from the state that the job's earlier calls left. It may be made again, as
// after an error. The bags' own allocations don't fail.
class CallRun {
public:
    CallRun(const SampleCall& call, const Platform::PipelineProperties& properties,
            const PTConverter& snapshot, const OptionTables* tables);

    TicketDocument NewTicket() const;
    void Convert(const TicketDocument& ticket);
    // All that it gave.
    std::string Result(const TicketDocument& ticket) const;

    PTConverter Snapshot;
    std::shared_ptr<Platform::MemoryPipelineBag> Bag;

private:
    const SampleCall& call_;
    const OptionTables* tables_;
    PlatformFault noFault_{PlatformFailure::Nothing, -1};
    PipelineBag heldBag_;
};

}  // namespace DeviceSpecificModule
