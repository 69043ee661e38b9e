#pragma once

#include <ostream>
#include <sstream>
#include <string_view>

#include "Host/JobRunner.h"

namespace TicketHost {

// The standard output, piece by piece: what is written to the stream stays in memory until it is sent, and
// whoever sends it learns whether it arrived.
class StandardOutput {
public:
    std::ostream& Stream() { return pending_; }
    // Throws OutputError when it didn't arrive, NobodyReads when nobody reads the standard output any more.
    void Send();

private:
    std::ostringstream pending_;
};

// Stands behind the sinks that write to the standard output, and sends what they wrote.
class SendingSink final : public ResultSink {
public:
    explicit SendingSink(StandardOutput& output) : output_(output) {}

    void Begin(const Job&, const PipelineProperties&) override { output_.Send(); }
    void Take(const CallResult&) override { output_.Send(); }
    void End(const PipelineProperties&) override { output_.Send(); }

private:
    StandardOutput& output_;
};

// Writes "tickethost: LINE" to the standard error.
void WriteErrorLine(std::string_view line);

}  // namespace TicketHost
