#include "Host/JsonText.h"

#include <json/reader.h>

#include <algorithm>
#include <cstdio>

#include "Host/Errors.h"
#include "Host/Texts.h"

namespace TicketHost {
namespace {

[[noreturn]] void FailAt(const std::string& file, std::size_t line, std::size_t column,
                         const std::string& cause) {
    throw InputError(file + ":" + std::to_string(line) + ":" + std::to_string(column), cause);
}

// The place is where `before`, the front part of the file, ends.
[[noreturn]] void FailBehind(const std::string& file, std::string_view before, const std::string& cause) {
    const auto line = 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    FailAt(file, line, before.size() - (before.rfind('\n') + 1) + 1, cause);
}

void RequireUtf8(const std::string& file, std::string_view bytes) {
    const std::string again = ToUtf8(FromUtf8(bytes));
    if (again == bytes) return;
    const auto at = std::mismatch(bytes.begin(), bytes.end(), again.begin(), again.end()).first;
    FailBehind(file, bytes.substr(0, static_cast<std::size_t>(at - bytes.begin())), "not UTF-8");
}

// The JSON reader lets comments pass inside objects, whatever its settings say. Outside its texts JSON has no
// "/".
void RequireNoComments(const std::string& file, std::string_view bytes) {
    bool inText = false;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (bytes[at] == '"') inText = !inText;
        if (inText && bytes[at] == '\\') ++at;
        if (!inText && bytes[at] == '/') FailBehind(file, bytes.substr(0, at), "comments are not allowed");
    }
}

// The JSON reader gives its errors as one text, in which the first reads "* Line 3, Column 5\n  What it
// is.\n".
[[noreturn]] void FailWithReaderErrors(const std::string& file, const std::string& errors) {
    std::size_t line = 0, column = 0;
    char text[200] = "";
    std::sscanf(errors.c_str(), "* Line %zu, Column %zu %199[^\n]", &line, &column, text);
    std::string cause = text;
    if (cause.ends_with('.')) cause.pop_back();
    FailAt(file, line, column, cause);
}

std::unique_ptr<Json::CharReader> NewStrictReader() {
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    return std::unique_ptr<Json::CharReader>(builder.newCharReader());
}

}  // namespace

Json::Value ReadJson(const std::string& file, std::string_view bytes) {
    RequireUtf8(file, bytes);
    RequireNoComments(file, bytes);
    Json::Value value;
    std::string errors;
    try {
        if (NewStrictReader()->parse(bytes.data(), bytes.data() + bytes.size(), &value, &errors))
            return value;
    } catch (const Json::Exception&) {
        throw InputError(file, "nested too deeply");
    }
    FailWithReaderErrors(file, errors);
}

JsonWriter::JsonWriter(std::ostream& out) : out_(out) {
    Json::StreamWriterBuilder builder;
    builder["emitUTF8"] = true;
    builder["indentation"] = "";
    writer_.reset(builder.newStreamWriter());
}

void JsonWriter::Write(const Json::Value& value) { writer_->write(value, &out_); }

}  // namespace TicketHost
