#pragma once

#include <json/value.h>
#include <json/writer.h>

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "Host/ground/MemoryBags.h"

namespace TicketHost {

// Reads JSON by the strict rules: UTF-8, no comments, no key twice, nothing behind the document. Throws
// InputError with line and column of the first fault; `file` is only the name in it.
Json::Value ReadJson(const std::string& file, std::string_view bytes);

// Writes texts to a stream as JSON in UTF-8. What acts on a display (Texts.h) stands as its escape, as in
// \u009b.
class JsonWriter {
public:
    explicit JsonWriter(std::ostream& out);
    void Write(const std::string& text) { Write(Json::Value(text)); }
    void Write(const Platform::WideText& text);  // null for a null one
    void Write(const Json::Value& value);        // in one line

private:
    std::ostream& out_;
    std::unique_ptr<Json::StreamWriter> writer_;
};

// Printer bags have no form in JSON.
bool IsPrinterBag(const Platform::PropertyValue& value);

// Writes the properties as one JSON object without its printer bags. All lines but the first are indented by
// `indent` blanks.
void WriteProperties(std::ostream& out, const PipelineProperties& properties, int indent);
// The same object, all in one line.
void WritePropertiesInLine(std::ostream& out, const PipelineProperties& properties);

}  // namespace TicketHost
