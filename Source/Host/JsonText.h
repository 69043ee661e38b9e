#pragma once

#include <json/value.h>
#include <json/writer.h>

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

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

}  // namespace TicketHost
