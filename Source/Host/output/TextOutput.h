#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "Host/ground/Painter.h"
#include "Host/jobs/JobRunner.h"

namespace TicketHost {

// Writes a job's results for a person who wants to know why a job came out as it did. Of each call it says
// what the call did and nothing of what was there before:
//
// - The error, if the call threw.
// - The lines of "PJL", if it changed.
// - The lines that came to "DATA", each below the marker of its page.
// - The other pipeline properties that changed.
// - How the ticket changed.
//
// SplitCommandLines and DescribeValue say what the lines and the properties look like.
class TextOutput final : public ResultSink {
public:
    TextOutput(std::ostream& out, bool colour) : out_(out), painter_(colour) {}

    void Begin(const Job& job, const PipelineProperties& initial) override;
    void Take(const CallResult& result) override;
    void End(const PipelineProperties& final) override;

private:
    void WriteLabel(std::string_view label);
    void WriteError(const CallError& error);
    void WritePjl(const PipelineProperties& properties);
    void WriteData(const PipelineProperties& properties);
    void WriteChangedProperties(const PipelineProperties& properties);
    void WriteTicketChange(const CallResult& result);

    std::ostream& out_;
    Painter painter_;
    PipelineProperties previous_;  // after the call before
    std::size_t calls_ = 0;        // of the whole job
    std::size_t made_ = 0;
};

}  // namespace TicketHost
