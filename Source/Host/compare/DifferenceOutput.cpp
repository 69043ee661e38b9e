#include "Host/compare/DifferenceOutput.h"

#include <utility>

#include "Host/ground/Texts.h"
#include "Host/output/CallWords.h"

namespace TicketHost {
namespace {

std::string HeadingOf(const CallDifference& difference) {
    const auto name = [](const std::optional<CallName>& call) {
        return call ? NameOfLevel(call->Level) + ", " + Visible(call->Ticket) : "no such call";
    };
    const std::string heading = "Call " + std::to_string(difference.Number) + ": " + name(difference.Before);
    return difference.Before == difference.After ? heading : heading + " -> " + name(difference.After);
}

// JSON texts that may be absent.
Json::Value TextOrNull(const std::optional<std::string>& text) {
    return text ? Json::Value(*text) : Json::Value();
}

Json::Value NameAsJson(const std::optional<CallName>& call) {
    Json::Value value;
    if (!call) return value;
    value["level"] = call->Level;
    value["ticket"] = ToUtf8(FromUtf8(call->Ticket));  // paths may hold any bytes
    return value;
}

Json::Value LinesAsJson(const std::vector<LineEdit>& lines) {
    Json::Value list(Json::arrayValue);
    for (const auto& [mark, line] : lines) list.append(std::string{mark, ' '} + line);
    return list;
}

Json::Value ErrorsAsJson(const CallDifference& difference) {
    Json::Value value;
    if (difference.ErrorBefore == difference.ErrorAfter) return value;
    const auto error = [](const std::string& text) {
        return text.empty() ? Json::Value() : Json::Value(text);
    };
    value["before"] = error(difference.ErrorBefore);
    value["after"] = error(difference.ErrorAfter);
    return value;
}

Json::Value PropertiesAsJson(const std::vector<PropertyDifference>& properties) {
    Json::Value list(Json::arrayValue);
    for (const auto& [name, before, after] : properties) {
        Json::Value& value = list.append(Json::objectValue);
        value["name"] = name;
        value["before"] = TextOrNull(before);
        value["after"] = TextOrNull(after);
    }
    return list;
}

Json::Value TicketsAsJson(const std::vector<TicketChange>& changes) {
    constexpr const char* kinds[] = {"changed", "added", "removed", "rewritten"};
    Json::Value list(Json::arrayValue);
    for (const TicketChange& change : changes) {
        Json::Value& value = list.append(Json::objectValue);
        value["kind"] = kinds[static_cast<int>(change.Kind)];
        value["subject"] = change.Subject;
        value["before"] = change.Before;
        value["after"] = change.After;
    }
    return list;
}

}  // namespace

void DifferenceText::Write(const CallDifference& difference) {
    if (!std::exchange(empty_, false)) out_ << "\n";
    out_ << painter_.Paint(Tone::Heading, HeadingOf(difference)) << "\n";
    WriteErrors(difference);
    WriteLines("PJL", difference.Pjl);
    WriteLines("data", difference.Data);
    WriteProperties(difference.Properties);
    WriteTicket(difference.Ticket);
}

void DifferenceText::End(std::size_t count) {
    if (count == 0) out_ << "Both convert alike.\n";
}

void DifferenceText::WriteLabel(std::string_view label) {
    out_ << "  " << painter_.Paint(Tone::Label, label) << "\n";
}

void DifferenceText::WriteLines(std::string_view label, const std::vector<LineEdit>& lines) {
    if (!lines.empty()) WriteLabel(label);
    for (const auto& [mark, line] : lines) {
        const Tone tone = mark == '+' ? Tone::Added : Tone::Removed;
        out_ << "    " << painter_.Paint(tone, std::string{mark, ' '} + line) << "\n";
    }
}

void DifferenceText::WriteErrors(const CallDifference& difference) {
    const auto write = [this](const char* which, const std::string& error) {
        if (!error.empty()) out_ << "  " << painter_.Paint(Tone::Error, which + error) << "\n";
    };
    write("failed before: ", difference.ErrorBefore);
    write("fails now: ", difference.ErrorAfter);
}

void DifferenceText::WriteProperties(const std::vector<PropertyDifference>& properties) {
    if (!properties.empty()) WriteLabel("properties");
    for (const auto& [name, before, after] : properties)
        out_ << "    " << name << ": " << before.value_or("absent") << " -> " << after.value_or("absent")
             << "\n";
}

void DifferenceText::WriteTicket(const std::vector<TicketChange>& changes) {
    if (!changes.empty()) WriteLabel("ticket");
    for (const TicketChange& change : changes) out_ << "    " << LineOf(change) << "\n";
}

void DifferenceJson::Write(const CallDifference& difference) {
    const std::pair<const char*, Json::Value> members[] = {
        {"before", NameAsJson(difference.Before)},
        {"after", NameAsJson(difference.After)},
        {"errors", ErrorsAsJson(difference)},
        {"pjl", LinesAsJson(difference.Pjl)},
        {"data", LinesAsJson(difference.Data)},
        {"properties", PropertiesAsJson(difference.Properties)},
        {"tickets", TicketsAsJson(difference.Ticket)},
    };
    out_ << (std::exchange(empty_, false) ? "{\n  \"calls\": [" : ",")
         << "\n    {\n      \"call\": " << difference.Number;
    for (const auto& [name, value] : members) {
        out_ << ",\n      \"" << name << "\": ";
        json_.Write(value);
    }
    out_ << "\n    }";
}

void DifferenceJson::End(std::size_t count) {
    out_ << (count == 0 ? "{\n  \"calls\": []\n}\n" : "\n  ]\n}\n");
}

}  // namespace TicketHost
