#include "Host/output/JsonLinesOutput.h"

#include "Host/ground/Texts.h"

namespace TicketHost {
namespace {

using Platform::WideText;

// File names and messages may hold bytes of any kind.
std::string AsUtf8(const std::string& bytes) { return ToUtf8(FromUtf8(bytes)); }

// The content of a file is bytes; only a ticket in the manifest itself is a text.
std::string SourceOf(const Ticket& ticket) {
    return std::holds_alternative<WideText>(ticket.Content) ? "inline" : AsUtf8(ticket.Name);
}

bool IsHalfOfPair(char16_t unit, char16_t half) { return (unit & 0xFC00) == half; }

// What a text gained behind its former value; no units where it is no longer one that goes on from there. A
// character of two units must come whole, since half of one has no form in UTF-8.
std::u16string_view GainOf(const Platform::PropertyValue& value, const Platform::PropertyValue& former) {
    const auto* text = std::get_if<WideText>(&value);
    const auto* before = std::get_if<WideText>(&former);
    if (text == nullptr || before == nullptr || before->IsNull() || !BeginsWith(*text, *before)) return {};
    const std::u16string_view gain = text->View().substr(before->Length());
    const bool cutsPair = !gain.empty() && IsHalfOfPair(gain.front(), 0xDC00) && !before->IsEmpty() &&
                          IsHalfOfPair(before->View().back(), 0xD800);
    return cutsPair ? std::u16string_view() : gain;
}

PipelineProperties WithoutPrinterBags(PipelineProperties properties) {
    std::erase_if(properties, [](const auto& each) { return IsPrinterBag(each.second); });
    return properties;
}

}  // namespace

void JsonLinesOutput::Begin(const Job&, const PipelineProperties& initial) {
    previous_ = WithoutPrinterBags(initial);
}

void JsonLinesOutput::Take(const CallResult& result) {
    out_ << "{\"call\": " << result.Number << ", \"level\": " << result.Made.Level << ", ";
    WriteOutcome(result);
    out_ << ", \"source\": ";
    json_.Write(SourceOf(*result.Made.Source));
    out_ << ", \"ticket\": ";
    json_.Write(ToUtf8(result.TicketAfter));
    PipelineProperties properties = WithoutPrinterBags(result.Properties);
    WriteChanges(properties);
    WriteRemoved(properties);
    out_ << "}\n";
    previous_ = std::move(properties);
}

void JsonLinesOutput::WriteOutcome(const CallResult& result) {
    if (!result.Error) {
        out_ << "\"status\": " << result.Status;
        return;
    }
    const CallError& error = *result.Error;
    out_ << "\"error\": {\"type\": \"" << error.Type << "\", ";
    if (error.Code) out_ << "\"code\": " << *error.Code << ", ";
    out_ << "\"message\": ";
    json_.Write(AsUtf8(error.Message));
    out_ << "}";
}

void JsonLinesOutput::WriteChanges(const PipelineProperties& properties) {
    PipelineProperties changed, appended;
    for (const auto& [name, value] : properties) {
        const auto before = previous_.find(name);
        if (before != previous_.end() && AreSame(value, before->second)) continue;
        const std::u16string_view gain = before == previous_.end() ? u"" : GainOf(value, before->second);
        if (gain.empty())
            changed[name] = value;
        else
            appended[name] = WideText(gain);
    }
    out_ << ", \"changed\": ";
    WritePropertiesInLine(out_, changed);
    out_ << ", \"appended\": ";
    WritePropertiesInLine(out_, appended);
}

void JsonLinesOutput::WriteRemoved(const PipelineProperties& properties) {
    out_ << ", \"removed\": [";
    const char* separator = "";
    for (const auto& [name, value] : previous_) {
        if (properties.contains(name)) continue;
        out_ << separator;
        json_.Write(ToUtf8(name));
        separator = ", ";
    }
    out_ << "]";
}

}  // namespace TicketHost
