#pragma once

#include <json/value.h>
#include <json/writer.h>

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "Host/JobRunner.h"

namespace TicketHost {

// Reads JSON by the strict rules: UTF-8, no comments, no key twice, nothing behind the document. Throws
// InputError with line and column of the first fault; `file` is its name there.
Json::Value ReadJson(const std::string& file, std::string_view bytes);

// Writes values to a stream as JSON in UTF-8.
class JsonWriter {
public:
    explicit JsonWriter(std::ostream& out);
    // A text, number or null, for which it puts no white space anywhere.
    void Write(const Json::Value& value);

private:
    std::ostream& out_;
    std::unique_ptr<Json::StreamWriter> writer_;
};

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
