#pragma once

#include <ostream>

#include "Host/ground/Json.h"
#include "Host/jobs/JobRunner.h"

namespace TicketHost {

// Writes a job's results as one JSON document, each call as it comes:
//
//   { "calls": [ { "level": 2, "status": 1, "ticket": xml, "properties": { NAME: value } } ] }
//
// A call that threw has "error": { "type": text, "code": integer, "message": text } instead of "status"; only
// a ResultError has a code.
class JsonOutput final : public ResultSink {
public:
    explicit JsonOutput(std::ostream& out) : out_(out), json_(out) {}

    void Begin(const Job& job, const PipelineProperties& initial) override;
    void Take(const CallResult& result) override;
    void End(const PipelineProperties& final) override;

private:
    void WriteError(const CallError& error);

    std::ostream& out_;
    JsonWriter json_;
    bool empty_ = true;
};

}  // namespace TicketHost
