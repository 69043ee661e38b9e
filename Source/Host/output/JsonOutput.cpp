#include "Host/output/JsonOutput.h"

#include "Host/ground/Texts.h"

namespace TicketHost {

void JsonOutput::Begin(const Job&, const PipelineProperties&) { out_ << "{\n  \"calls\": ["; }

void JsonOutput::Take(const CallResult& result) {
    out_ << (empty_ ? "" : ",") << "\n    {\n      \"level\": " << result.Made.Level << ",\n      ";
    if (result.Error)
        WriteError(*result.Error);
    else
        out_ << "\"status\": " << result.Status;
    out_ << ",\n      \"ticket\": ";
    json_.Write(ToUtf8(result.TicketAfter));
    out_ << ",\n      \"properties\": ";
    WriteProperties(out_, result.Properties, 6);
    out_ << "\n    }";
    empty_ = false;
}

void JsonOutput::WriteError(const CallError& error) {
    out_ << "\"error\": {\n        \"type\": \"" << error.Type << "\",\n        ";
    if (error.Code) out_ << "\"code\": " << *error.Code << ",\n        ";
    out_ << "\"message\": ";
    json_.Write(ToUtf8(FromUtf8(error.Message)));  // it may quote bytes of any kind
    out_ << "\n      }";
}

void JsonOutput::End(const PipelineProperties&) { out_ << (empty_ ? "]\n}\n" : "\n  ]\n}\n"); }

}  // namespace TicketHost
