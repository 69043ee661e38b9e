#pragma once

#include <chrono>
#include <memory>
#include <ostream>
#include <vector>

#include "Host/JobRunner.h"

namespace TicketHost {

// Hands everything on to several sinks, in their order.
class SinkList final : public ResultSink {
public:
    void Add(std::unique_ptr<ResultSink> sink) { sinks_.push_back(std::move(sink)); }

    void Begin(const Job& job, const PipelineProperties& initial) override;
    void Take(const CallResult& result) override;
    void End(const PipelineProperties& final) override;

private:
    std::vector<std::unique_ptr<ResultSink>> sinks_;
};

// Writes each error as one line, "JOB: call N (TICKET): TYPE: MESSAGE", to the standard error.
class ErrorLines final : public ResultSink {
public:
    void Begin(const Job& job, const PipelineProperties&) override { name_ = job.Name; }
    void Take(const CallResult& result) override;

private:
    std::string name_;
};

// Shows on a terminal how far a job has come, once it has taken a second; the line goes when the job ends.
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
