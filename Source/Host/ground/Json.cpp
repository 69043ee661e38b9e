#include "Host/ground/Json.h"

#include <json/reader.h>

#include <algorithm>
#include <cstdio>
#include <sstream>

#include "Host/ground/Errors.h"
#include "Host/ground/Texts.h"
#include "devicespecific/platform/Identities.h"

namespace TicketHost {
namespace {

[[noreturn]] void FailAt(const std::string& file, std::size_t line, std::size_t column,
                         const std::string& cause) {
    throw InputError(file + ":" + std::to_string(line) + ":" + std::to_string(column), cause);
}

// Names the place behind `before`, the front part of the file.
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

// The JSON reader lets comments pass inside objects, whatever its settings say. A "/" outside a text can only
// begin a comment, since JSON has no other use for it.
void RequireNoComments(const std::string& file, std::string_view bytes) {
    bool inText = false;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (bytes[at] == '"') inText = !inText;
        if (inText && bytes[at] == '\\') ++at;
        if (!inText && bytes[at] == '/') FailBehind(file, bytes.substr(0, at), "comments are not allowed");
    }
}

// The JSON reader gives its errors as one text. Its first line is "* Line 3, Column 5", the next the cause.
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

// The JSON library writes an object's members in the order of their names, but those of a call are easier to
// read in an order of their own. So what stands around the values is written here.
struct WriteValue {
    std::ostream& Out;
    JsonWriter& Json;

    void operator()(std::monostate) const { Out << "null"; }
    void operator()(const Platform::WideText& text) const { Json.Write(text); }
    void operator()(std::int32_t number) const { Out << number; }
    void operator()(Platform::TokenHandle token) const {
        if (IsOfUserName(token))
            Json.Write(GetNameOfUser(token));
        else
            Out << GetIdOfUser(token);
    }
    // The option tables are all that a property ever refers to.
    void operator()(Platform::BareReference reference) const {
        Out << "{\"reference\": " << (reference.Address == nullptr ? "null" : "\"OptionTables\"") << "}";
    }
    void operator()(const std::shared_ptr<Platform::IPrinterPropertyBag>&) const {}
};

// The escape of a character below U+10000.
std::string EscapeOf(char32_t character) {
    std::string escape = "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) escape += "0123456789abcdef"[(character >> shift) & 15];
    return escape;
}

// What stands between the members of an object.
struct Spaces {
    std::string BeforeFirst, BeforeNext, BehindLast;
};

void WriteMembers(std::ostream& out, const PipelineProperties& properties, const Spaces& spaces) {
    JsonWriter json(out);
    bool empty = true;
    out << "{";
    for (const auto& [name, value] : properties) {
        if (IsPrinterBag(value)) continue;
        out << (empty ? spaces.BeforeFirst : spaces.BeforeNext);
        json.Write(ToUtf8(name));
        out << ": ";
        std::visit(WriteValue{out, json}, value);
        empty = false;
    }
    out << (empty ? "" : spaces.BehindLast) << "}";
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

bool IsPrinterBag(const Platform::PropertyValue& value) {
    return std::holds_alternative<std::shared_ptr<Platform::IPrinterPropertyBag>>(value);
}

JsonWriter::JsonWriter(std::ostream& out) : out_(out) {
    Json::StreamWriterBuilder builder;
    builder["emitUTF8"] = true;
    builder["indentation"] = "";
    writer_.reset(builder.newStreamWriter());
}

// The JSON library passes on, as JSON may, DEL and what acts on the display beyond ASCII. All of it is within
// a text, where it may as well stand as an escape.
void JsonWriter::Write(const Json::Value& value) {
    std::ostringstream written;
    writer_->write(value, &written);
    const std::string_view bytes = written.view();
    std::size_t sent = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto [code, length] = FirstCharacter(bytes.substr(at));
        if (length > 0 && ActsOnDisplay(code)) {
            out_ << bytes.substr(sent, at - sent) << EscapeOf(code);
            sent = at + length;
        }
        at += std::max<std::size_t>(length, 1);
    }
    out_ << bytes.substr(sent);
}

void JsonWriter::Write(const Platform::WideText& text) {
    if (text.IsNull())
        out_ << "null";
    else
        Write(ToUtf8(text));
}

void WriteProperties(std::ostream& out, const PipelineProperties& properties, int indent) {
    const std::string lineEnd = std::string("\n").append(static_cast<std::size_t>(indent), ' ');
    WriteMembers(out, properties, {lineEnd + "  ", "," + lineEnd + "  ", lineEnd});
}

void WritePropertiesInLine(std::ostream& out, const PipelineProperties& properties) {
    WriteMembers(out, properties, {"", ", ", ""});
}

}  // namespace TicketHost
