#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "Host/jobs/OptionTableSet.h"
#include "devicespecific/DeviceSpecificModule.h"
#include "devicespecific/platform/MemoryBags.h"
#include "devicespecific/platform/TicketDocument.h"

namespace Benchmarks {

namespace Platform = DeviceSpecificModule::Platform;

// Throws when the module refuses the ticket.
Platform::TicketDocument Load(const std::string& ticket);

// A host of the module with its bags in memory, with one snapshot from call to call. Seconds are CPU time of
// the calling thread.
//
// A call leaves things that are freed later: the snapshot keeps the ticket until the next call puts another
// in its place. To charge a call with freeing what it left, and not what its ticket had before, each
// measurement has the freeing of the ticket in it and takes away what freeing a twin of it costs that no call
// has seen and that lived as long.
class Host {
public:
    Host();

    // A new snapshot, filled by a job call with this ticket.
    void StartJob(const std::string& ticket);
    // A call on the snapshot, and the freeing of the ticket of the call before, less the freeing of that
    // one's twin.
    double SecondsOfCall(std::int32_t level, const std::string& ticket);
    // A call on the snapshot, without the freeing of any ticket. Behind StartJob or another one of these.
    double SecondsOfCallAlone(std::int32_t level, const std::string& ticket);
    // A job call on a snapshot of its own, and the freeing of that snapshot with the ticket in it, less the
    // freeing of the ticket's twin. Leaves the host without a snapshot.
    double SecondsOfJobCall(const std::string& ticket);
    // Loading a ticket and a call with it on the snapshot, which frees the ticket of the call before.
    void Call(std::int32_t level, const std::string& ticket) { Convert(level, Load(ticket)); }
    void Convert(std::int32_t level, Platform::TicketDocument ticket);

    // Throws unless a pipeline property holds this text: what is measured must have happened.
    void Expect(std::u16string_view property, std::u16string_view text) const;
    // The length of "DATA" in bytes.
    std::size_t DataBytes() const { return 2 * Text(u"DATA").Length(); }

private:
    Platform::WideText Text(std::u16string_view property) const;

    std::shared_ptr<Platform::MemoryPipelineBag> bag_;
    TicketHost::OptionTableSet tables_;
    using Snapshot = DeviceSpecificModule::PTConverter;
    std::unique_ptr<Snapshot, decltype(&DeviceSpecificModule::DestroyPTConverterClassPointer)> snapshot_;
    Platform::TicketDocument twin_;  // of the ticket that the snapshot keeps
    Platform::TicketDocument kept_;  // the ticket of StartJob or of the last call alone
};

}  // namespace Benchmarks
