#include <json/value.h>

#include <algorithm>
#include <memory>
#include <sstream>

#include "Host/ground/Errors.h"
#include "Host/output/JsonLinesOutput.h"
#include "Host/output/JsonOutput.h"
#include "Host/output/TextOutput.h"
#include "JobRun.h"
#include "Targets.h"
#include "TicketCalls.h"

// What tickethost says of any tickets: as text for a terminal, and as JSON.

namespace Fuzz {
namespace {

// Whether a terminal only shows the text: UTF-8 without control characters but line feeds, and without what
// turns the order of the text beside it or ends a line.
bool IsHarmless(std::string_view text) {
    const WideText units = Wide(text);
    const auto acts = [](char16_t unit) {
        return (unit < 0x20 && unit != u'\n') || (unit >= 0x7F && unit < 0xA0) || unit == 0x061C ||
               unit == 0x200E || unit == 0x200F || (unit >= 0x2028 && unit <= 0x202E) ||
               (unit >= 0x2066 && unit <= 0x2069);
    };
    return std::ranges::none_of(units.View(), acts) && Narrow(units.View()) == text;
}

void RequireCall(const Json::Value& said, const TicketHost::CallResult& result) {
    Require(said["ticket"].asString() == Narrow(result.TicketAfter.View()), "JSON holds the ticket");
    Require(said["level"].asInt() == result.Made.Level, "JSON holds the level");
    Require(said.isMember("error") == result.Error.has_value(), "JSON holds the error");
    if (result.Error) return;
    for (const char* name : {"PJL", "DATA"}) {
        const auto found = result.Properties.find(Wide(name).View());
        if (found == result.Properties.end()) continue;
        const auto* text = std::get_if<WideText>(&found->second);
        Require(text != nullptr && said["properties"][name].asString() == Narrow(text->View()),
                "JSON holds the properties");
    }
}

// All outputs of a job, call by call.
class Outputs {
public:
    explicit Outputs(std::size_t calls) {
        job_.Calls.resize(calls);
        text_.Begin(job_, {});
        json_.Begin(job_, {});
    }

    void Take(const TicketHost::CallResult& result) {
        ++taken_;
        text_.Take(result);
        json_.Take(result);
        std::ostringstream one;
        TicketHost::JsonOutput(one).Take(result);
        const Json::Value said = Read("{\"calls\":[" + one.str() + "]}")["calls"][0];
        RequireCall(said, result);
        lines_.Take(result);
        RequireLine(Read(line_.str()), said["properties"]);
        line_.str("");
    }

    void End(std::size_t inputSize) {
        text_.End({});
        json_.End({});
        Require(IsHarmless(written_.view()), "text output is harmless on a terminal", written_.view());
        Require(Read(document_.str())["calls"].size() == taken_, "JSON holds all calls", document_.view());
        Require(written_.view().size() <= 20000 * (taken_ + 1) + 40 * (taken_ + 1) * inputSize,
                "text output is bounded");
    }

private:
    // The lines so far must add up to the properties after the call.
    void RequireLine(const Json::Value& line, const Json::Value& after) {
        const Json::Value &changed = line["changed"], &appended = line["appended"];
        for (const std::string& name : changed.getMemberNames()) properties_[name] = changed[name];
        for (const std::string& name : appended.getMemberNames())
            properties_[name] = properties_[name].asString() + appended[name].asString();
        for (const Json::Value& name : line["removed"]) properties_.removeMember(name.asString());
        Require(properties_ == after, "the lines add up to the properties");
    }

    static Json::Value Read(const std::string& json) {
        try {
            return TicketHost::ReadJson("output", json);
        } catch (const TicketHost::InputError& error) {
            Require(false, "JSON output is JSON", error.what() + ("\n" + json));
        }
        return {};
    }

    TicketHost::Job job_;
    std::ostringstream written_, document_, line_;
    TicketHost::TextOutput text_{written_, false};
    TicketHost::JsonOutput json_{document_};
    TicketHost::JsonLinesOutput lines_{line_};
    Json::Value properties_{Json::objectValue};  // put together from the lines
    std::size_t taken_ = 0;
};

}  // namespace

void RunOutput(std::string_view input) {
    const std::vector<TicketCall> calls = ReadTicketCalls(input);
    // The name of a ticket is its file's, which may hold anything.
    const auto source = std::make_shared<TicketHost::Ticket>(
        TicketHost::Ticket{Narrow(Wide(input.substr(0, 40)).View()), std::string()});
    JobRun job;
    Outputs outputs(calls.size());
    for (std::size_t at = 0; at < calls.size(); ++at) {
        const TicketHost::Call made{calls[at].Level, source};
        TicketHost::CallResult result{
            at + 1, made, 1, {}, calls[at].Ticket->xml(), {}, job.Bag->Properties()};
        const std::string error = job.Call(made.Level, calls[at].Ticket, input.size());
        if (!error.empty()) result.Error = TicketHost::CallError{"JsonError", {}, error};
        result.TicketAfter = calls[at].Ticket->xml();
        outputs.Take(result);
    }
    outputs.End(input.size());
}

}  // namespace Fuzz
