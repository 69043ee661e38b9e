#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Host/jobs/Job.h"
#include "devicespecific/platform/WideText.h"

namespace TicketHost {

// What a conversion threw.
struct CallError {
    std::string Type;                   // "ResultError", "JsonError", or as in "std::out_of_range"
    std::optional<std::uint32_t> Code;  // of a ResultError alone
    std::string Message;
};

// One call and what came of it. What it refers to is valid until the sink's Take returns.
struct CallResult {
    std::size_t Number = 0;  // counts from 1
    const Call& Made;
    std::int32_t Status = 0;  // what the module returned; 0 after an error
    std::optional<CallError> Error;
    Platform::WideText TicketBefore;
    Platform::WideText TicketAfter;
    const PipelineProperties& Properties;  // all of them, after the call
};

// Takes the results call by call, so that those of a long job needn't fit into memory. An exception from a
// sink ends the run.
class ResultSink {
public:
    virtual ~ResultSink() = default;
    virtual void Begin(const Job& job, const PipelineProperties& initial);  // before the first call
    virtual void Take(const CallResult& result) = 0;                        // after each call
    virtual void End(const PipelineProperties& final);                      // after the last call made
};

// Hands everything on to several sinks, in the order in which they were added.
class SinkList final : public ResultSink {
public:
    void Add(std::unique_ptr<ResultSink> sink) { sinks_.push_back(std::move(sink)); }

    void Begin(const Job& job, const PipelineProperties& initial) override;
    void Take(const CallResult& result) override;
    void End(const PipelineProperties& final) override;

private:
    std::vector<std::unique_ptr<ResultSink>> sinks_;
};

// Makes the calls of a job in their order, on one pipeline bag. After a call that threw it makes no more,
// unless `keepGoing`. True when no call threw.
bool RunJob(const Job& job, bool keepGoing, ResultSink& sink);

}  // namespace TicketHost
