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

// A line on a terminal that says how far something has come that takes more than a second. It is erased at
// the end.
class StatusLine {
public:
    explicit StatusLine(std::ostream& out)
        : out_(out), next_(std::chrono::steady_clock::now() + std::chrono::seconds(1)) {}
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;
    ~StatusLine();

    void Show(const std::string& text);  // ten times a second at most
    void Erase();

private:
    std::ostream& out_;
    std::chrono::steady_clock::time_point next_;  // when to write again
    bool visible_ = false;
};

// Shows how far a job has come.
class ProgressLine final : public ResultSink {
public:
    explicit ProgressLine(std::ostream& out) : line_(out) {}

    void Begin(const Job& job, const PipelineProperties& initial) override;
    void Take(const CallResult& result) override;
    void End(const PipelineProperties& final) override;

private:
    StatusLine line_;
    std::size_t calls_ = 0;
};

}  // namespace TicketHost
