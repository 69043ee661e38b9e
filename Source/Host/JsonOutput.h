#pragma once

#include <ostream>

#include "Host/JobRunner.h"
#include "Host/JsonText.h"

namespace TicketHost {

// Writes the properties as one JSON object whose lines are indented by `indent` blanks, but for the first.
// Printer bags are left out.
void WriteProperties(std::ostream& out, const PipelineProperties& properties, int indent);

// Writes a job's results as one JSON document, each call as it comes:
//
//   { "calls": [ { "level": 2, "status": 1, "ticket": xml, "properties": { NAME: value } },
//                { "level": 0, "error": { "type": ..., "code": ..., "message": ... }, "ticket": ..., ... } ]
//                }
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
