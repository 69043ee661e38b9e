#pragma once

#include <chrono>
#include <ostream>
#include <string>

#include "Host/ground/StandardStreams.h"
#include "Host/jobs/JobRunner.h"

namespace TicketHost {

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

// Writes each error as one line, "JOB: call N (TICKET): TYPE: MESSAGE", to the standard error.
class ErrorLines final : public ResultSink {
public:
    void Begin(const Job& job, const PipelineProperties&) override { name_ = job.Name; }
    void Take(const CallResult& result) override;

private:
    std::string name_;
};

// Shows on a terminal how far a job has come that takes more than a second. The line is erased at the end.
class ProgressLine final : public ResultSink {
public:
    explicit ProgressLine(std::ostream& out) : out_(out) {}
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine() override;

    void Begin(const Job& job, const PipelineProperties& initial) override;
    void Take(const CallResult& result) override;
    void End(const PipelineProperties& final) override;

private:
    void Erase();

    std::ostream& out_;
    std::size_t calls_ = 0;
    std::chrono::steady_clock::time_point next_;  // when to write again
    bool visible_ = false;
};

}  // namespace TicketHost
