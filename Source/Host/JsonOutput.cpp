#include "Host/JsonOutput.h"

#include "Host/Texts.h"

namespace TicketHost {
namespace {

// The library's writer puts the members of an object in the order of their names; people want those of a call
// in the order in which they read. So the frame is written here, and only the values are its own.
struct WriteValue {
    std::ostream& Out;
    JsonWriter& Json;

    void operator()(std::monostate) const { Out << "null"; }
    void operator()(const Platform::WideText& text) const {
        Json.Write(text.IsNull() ? Json::Value() : Json::Value(ToUtf8(text)));
    }
    void operator()(std::int32_t number) const { Out << number; }
    void operator()(Platform::TokenHandle token) const { Out << token.UserId; }
    // The option tables are all that a property ever refers to.
    void operator()(Platform::BareReference reference) const {
        Out << "{\"reference\": " << (reference.Address == nullptr ? "null" : "\"OptionTables\"") << "}";
    }
    void operator()(const std::shared_ptr<Platform::IPrinterPropertyBag>&) const {}
};

bool IsPrinterBag(const Platform::PropertyValue& value) {
    return std::holds_alternative<std::shared_ptr<Platform::IPrinterPropertyBag>>(value);
}

}  // namespace

void WriteProperties(std::ostream& out, const PipelineProperties& properties, int indent) {
    JsonWriter json(out);
    const std::string lineEnd = std::string("\n").append(static_cast<std::size_t>(indent), ' ');
    const char* separator = "";
    out << "{";
    for (const auto& [name, value] : properties) {
        if (IsPrinterBag(value)) continue;
        out << separator << lineEnd << "  ";
        json.Write(ToUtf8(name));
        out << ": ";
        std::visit(WriteValue{out, json}, value);
        separator = ",";
    }
    out << (*separator == '\0' ? "" : lineEnd) << "}";
}

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
