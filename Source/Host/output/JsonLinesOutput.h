#pragma once

#include <ostream>

#include "Host/ground/Json.h"
#include "Host/jobs/JobRunner.h"

namespace TicketHost {

// Writes a job's results as one JSON object for each call, on a line of its own. A line says what the call
// changed and nothing of what was there before, so that the whole grows with the job:
//
//   { "call": 1, "level": 2, "status": 1, "source": where the ticket came from, "ticket": xml,
//     "changed": { NAME: value }, "appended": { NAME: text }, "removed": [ NAME ] }
//
// A call that threw has "error" instead of "status", as in JsonOutput. "source" is a path, a part of a
// package, or "inline" for a ticket that stands in the manifest. "changed" holds the properties that are new
// or have another value than after the call before, or, at the first call, before it. A text that begins with
// its former value stands in "appended" instead, with what it gained. "removed" names those that are gone.
//
// Who applies the three to the manifest's properties, line by line, has the whole bag after each call.
class JsonLinesOutput final : public ResultSink {
public:
    explicit JsonLinesOutput(std::ostream& out) : out_(out), json_(out) {}

    void Begin(const Job& job, const PipelineProperties& initial) override;
    void Take(const CallResult& result) override;

private:
    void WriteOutcome(const CallResult& result);
    void WriteChanges(const PipelineProperties& properties);
    void WriteRemoved(const PipelineProperties& properties);

    std::ostream& out_;
    JsonWriter json_;
    PipelineProperties previous_;  // after the call before
};

}  // namespace TicketHost
