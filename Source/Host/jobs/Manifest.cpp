#include "Host/jobs/Manifest.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

#include "Host/ground/Errors.h"
#include "Host/ground/Json.h"
#include "Host/ground/Nearest.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/OptionTableSet.h"
#include "devicespecific/platform/Identities.h"

namespace TicketHost {
namespace {

std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string Below(const std::string& place, const std::string& key) {
    return place.empty() ? key : place + "." + key;
}

// A number with a point or an exponent is no integer, whatever its value. The JSON reader gives integers of
// more than 64 bits in the same form; their size tells them apart.
bool IsInteger(const Json::Value& value) {
    if (value.type() == Json::realValue) return std::abs(value.asDouble()) >= 0x1p63;
    return value.type() == Json::intValue || value.type() == Json::uintValue;
}

std::string DescribeType(const Json::Value& value) {
    switch (value.type()) {
        case Json::nullValue:
            return "null";
        case Json::intValue:
        case Json::uintValue:
            return "an integer";
        case Json::realValue:
            return "a decimal number";
        case Json::stringValue:
            return "a text";
        case Json::booleanValue:
            return value.asBool() ? "true" : "false";
        case Json::arrayValue:
            return "a list";
        case Json::objectValue:
            return "an object";
    }
    return "of no known type";
}

// Reads a manifest's parts. `place` says where in the document a value stands, as in "calls[2].level".
class ManifestReader {
public:
    explicit ManifestReader(const std::string& file) : file_(file) {}

    Manifest Read(const Json::Value& root) const;

private:
    using Keys = std::initializer_list<std::string_view>;

    [[noreturn]] void Fail(const std::string& place, const std::string& cause) const {
        throw InputError(file_, place, cause);
    }
    [[noreturn]] void FailType(const std::string& place, const char* wanted, const Json::Value& value) const {
        Fail(place, std::string("must be ") + wanted + ", is " + DescribeType(value));
    }
    void RequireObject(const Json::Value& value, const std::string& place) const;
    void RequireKeys(const Json::Value& value, const std::string& place, Keys known, Keys needed) const;
    template <typename Integer>
    Integer ReadInteger(const Json::Value& value, const std::string& place) const;
    Platform::WideText ReadText(const Json::Value& value) const { return FromUtf8(value.asString()); }
    Platform::PropertyValue ReadPipelineValue(const Json::Value& value, const std::string& place) const;
    void ReadPipeline(const Json::Value& root, PipelineProperties& properties) const;
    void ReadPrinter(const Json::Value& root, const char* key, PrinterProperties& properties) const;
    void ReadTables(const Json::Value& root, JobSettings& settings) const;
    void ReadSnapshot(const Json::Value& root, JobSettings& settings) const;
    ManifestCall ReadCall(const Json::Value& value, const std::string& place) const;

    const std::string& file_;
};

void ManifestReader::RequireObject(const Json::Value& value, const std::string& place) const {
    if (!value.isObject()) FailType(place, "an object", value);
}

void ManifestReader::RequireKeys(const Json::Value& value, const std::string& place, Keys known,
                                 Keys needed) const {
    RequireObject(value, place);
    std::string unknown;
    for (const std::string& key : value.getMemberNames()) {
        if (std::find(known.begin(), known.end(), key) != known.end()) continue;
        unknown.append(unknown.empty() ? "unknown: " : ", ").append(Quoted(key));
        const std::string_view nearest = FindNearest(key, known);
        if (!nearest.empty()) unknown.append(" (did you mean ").append(Quoted(nearest)).append("?)");
    }
    if (!unknown.empty()) Fail(place, unknown);
    for (const std::string_view key : needed)
        if (!value.isMember(std::string(key))) Fail(place, Quoted(key) + " is missing");
}

template <typename Integer>
Integer ManifestReader::ReadInteger(const Json::Value& value, const std::string& place) const {
    if (!IsInteger(value)) FailType(place, "an integer", value);
    using Limits = std::numeric_limits<Integer>;
    const bool fits = value.isInt64() && value.asInt64() >= Limits::min() && value.asInt64() <= Limits::max();
    if (!fits)
        Fail(place, "must be from " + std::to_string(Limits::min()) + " to " + std::to_string(Limits::max()));
    return static_cast<Integer>(value.asInt64());
}

Platform::PropertyValue ManifestReader::ReadPipelineValue(const Json::Value& value,
                                                          const std::string& place) const {
    if (value.isNull()) return Platform::WideText();
    if (value.isString()) return ReadText(value);
    if (!IsInteger(value)) FailType(place, "a text, an integer or null", value);
    return ReadInteger<std::int32_t>(value, place);
}

void ManifestReader::ReadPipeline(const Json::Value& root, PipelineProperties& properties) const {
    if (!root.isMember("pipeline")) return;
    RequireObject(root["pipeline"], "pipeline");
    for (const std::string& name : root["pipeline"].getMemberNames()) {
        const Json::Value& value = root["pipeline"][name];
        const std::string place = Below("pipeline", name);
        if (name == "UserSecurityToken")
            properties[UnitsOf(name)] = Platform::GetTokenOfUser(ReadInteger<std::uint32_t>(value, place));
        else
            properties[UnitsOf(name)] = ReadPipelineValue(value, place);
    }
}

void ManifestReader::ReadPrinter(const Json::Value& root, const char* key,
                                 PrinterProperties& properties) const {
    if (!root.isMember(key)) return;
    RequireObject(root[key], key);
    for (const std::string& name : root[key].getMemberNames()) {
        const Json::Value& value = root[key][name];
        const std::string place = Below(key, name);
        if (value.isString())
            properties[UnitsOf(name)] = ReadText(value);
        else if (IsInteger(value))
            properties[UnitsOf(name)] = ReadInteger<std::int32_t>(value, place);
        else
            FailType(place, "a text or an integer", value);
    }
}

void ManifestReader::ReadTables(const Json::Value& root, JobSettings& settings) const {
    settings.Tables.emplace();
    if (!root.isMember("tables")) {
        settings.Tables->assign(OptionTableNames.begin(), OptionTableNames.end());
        return;
    }
    const Json::Value& tables = root["tables"];
    if (tables.isNull()) {
        settings.Tables.reset();
        return;
    }
    if (!tables.isArray()) FailType("tables", "a list or null", tables);
    for (Json::ArrayIndex index = 0; index < tables.size(); ++index) {
        const std::string place = "tables[" + std::to_string(index) + "]";
        if (!tables[index].isString()) FailType(place, "a text", tables[index]);
        const std::string name = tables[index].asString();
        if (!IsOptionTableName(name))
            Fail(place, "unknown table " + DescribeUnknownTable(name, Quoted(name)));
        settings.Tables->push_back(name);
    }
}

void ManifestReader::ReadSnapshot(const Json::Value& root, JobSettings& settings) const {
    if (!root.isMember("snapshot")) return;
    if (!root["snapshot"].isBool()) FailType("snapshot", "true or false", root["snapshot"]);
    settings.Snapshot = root["snapshot"].asBool();
}

ManifestCall ManifestReader::ReadCall(const Json::Value& value, const std::string& place) const {
    RequireKeys(value, place, {"level", "ticket"}, {"level", "ticket"});
    ManifestCall call;
    call.Level = ReadInteger<std::int32_t>(value["level"], Below(place, "level"));
    const Json::Value& ticket = value["ticket"];
    if (!ticket.isString()) FailType(Below(place, "ticket"), "a text", ticket);
    call.Ticket = ticket.asString();
    if (call.Ticket.empty()) Fail(Below(place, "ticket"), "must name a file or be XML, is empty");
    if (!call.IsInline() && call.Ticket.find('\0') != std::string::npos)
        Fail(Below(place, "ticket"), "must name a file, holds U+0000");
    return call;
}

Manifest ManifestReader::Read(const Json::Value& root) const {
    RequireKeys(root, "", {"pipeline", "driver", "queue", "tables", "snapshot", "calls"}, {"calls"});
    Manifest manifest;
    ReadPipeline(root, manifest.Settings.Pipeline);
    ReadPrinter(root, "driver", manifest.Settings.Driver);
    ReadPrinter(root, "queue", manifest.Settings.Queue);
    ReadTables(root, manifest.Settings);
    ReadSnapshot(root, manifest.Settings);
    const Json::Value& calls = root["calls"];
    if (!calls.isArray()) FailType("calls", "a list", calls);
    manifest.Calls.reserve(calls.size());
    for (Json::ArrayIndex index = 0; index < calls.size(); ++index)
        manifest.Calls.push_back(ReadCall(calls[index], "calls[" + std::to_string(index) + "]"));
    return manifest;
}

}  // namespace

Manifest ParseManifest(const std::string& file, std::string_view bytes) {
    return ManifestReader(file).Read(ReadJson(file, bytes));
}

}  // namespace TicketHost
