#include "Host/output/TextOutput.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "Host/ground/Texts.h"
#include "Host/output/CallWords.h"
#include "Host/tickets/TicketChanges.h"

namespace TicketHost {
namespace {

using Platform::WideText;

constexpr std::u16string_view pjlName = u"PJL";
constexpr std::u16string_view dataName = u"DATA";

constexpr std::size_t mostChanges = 500;  // of one ticket; nobody reads more

Tone ToneOf(ChangeKind kind) {
    constexpr Tone tones[] = {Tone::Plain, Tone::Added, Tone::Removed, Tone::Plain};
    return tones[static_cast<int>(kind)];
}

}  // namespace

void TextOutput::Begin(const Job& job, const PipelineProperties& initial) {
    previous_ = initial;
    calls_ = job.Calls.size();
    if (calls_ == 0) out_ << "The job has no calls.\n";
}

void TextOutput::Take(const CallResult& result) {
    if (made_++ > 0) out_ << "\n";
    const std::string call = "Call " + std::to_string(result.Number) + " of " + std::to_string(calls_);
    const std::string subject = NameOfLevel(result.Made.Level) + ", " + Visible(result.Made.Source->Name);
    out_ << painter_.Paint(Tone::Heading, call + ": " + subject) << "\n";
    if (result.Error) WriteError(*result.Error);
    WritePjl(result.Properties);
    WriteData(result.Properties);
    WriteChangedProperties(result.Properties);
    WriteTicketChange(result);
    previous_ = result.Properties;
}

void TextOutput::End(const PipelineProperties&) {
    if (made_ == calls_) return;
    const std::string missed =
        "calls not made: " + std::to_string(calls_ - made_) + "; --keep-going makes them";
    out_ << "\n" << painter_.Paint(Tone::Error, missed) << "\n";
}

void TextOutput::WriteLabel(std::string_view label) {
    out_ << "  " << painter_.Paint(Tone::Label, label) << "\n";
}

void TextOutput::WriteError(const CallError& error) {
    const std::string text = "failed: " + error.Type + ": " + Visible(error.Message);
    out_ << "  " << painter_.Paint(Tone::Error, text) << "\n";
    if (const std::string cause = ExplainError(error); !cause.empty()) out_ << "    " << cause << "\n";
}

void TextOutput::WritePjl(const PipelineProperties& properties) {
    const WideText pjl = FindText(properties, pjlName);
    if (pjl.IsEmpty() || AreSame(pjl, FindText(previous_, pjlName))) return;
    WriteLabel("PJL");
    for (const std::string& line : SplitCommandLines(pjl.View())) out_ << "    " << line << "\n";
}

void TextOutput::WriteData(const PipelineProperties& properties) {
    const WideText data = FindText(properties, dataName), before = FindText(previous_, dataName);
    const bool grew = BeginsWith(data, before);
    const std::u16string_view news = data.View().substr(grew ? before.Length() : 0);
    if (news.empty()) return;
    WriteLabel(grew ? "data" : "data, in place of what was there");
    const char* indent = "    ";
    for (const std::string& line : SplitCommandLines(news)) {
        const bool marks = IsPageMarker(line);
        const std::string shown = line.empty() ? painter_.Paint(Tone::Faint, "(empty line)") : line;
        out_ << (marks ? "    " : indent) << shown << "\n";
        if (marks) indent = "      ";
    }
}

void TextOutput::WriteChangedProperties(const PipelineProperties& properties) {
    bool labelled = false;
    const auto write = [&](const std::u16string& name, const std::string& said) {
        if (!std::exchange(labelled, true)) WriteLabel("properties");
        out_ << "    " << Visible(ToUtf8(name)) << said << "\n";
    };
    for (const auto& [name, value] : properties) {
        const auto before = previous_.find(name);
        if (before != previous_.end() && AreSame(value, before->second)) continue;
        const bool isShownAbove =
            (name == pjlName || name == dataName) && !FindText(properties, name).IsEmpty();
        if (!isShownAbove) write(name, " = " + DescribeValue(value));
    }
    for (const auto& [name, value] : previous_)
        if (!properties.contains(name)) write(name, " is gone");
}

void TextOutput::WriteTicketChange(const CallResult& result) {
    if (result.TicketBefore == result.TicketAfter) return WriteLabel("ticket unchanged");
    const std::vector<TicketChange> changes = CompareTickets(result.TicketBefore, result.TicketAfter);
    if (changes.empty()) return WriteLabel("ticket says the same in another form");
    WriteLabel("ticket changed");
    const std::size_t shown = std::min(changes.size(), mostChanges);
    for (const TicketChange& change : std::span(changes).first(shown))
        out_ << "    " << painter_.Paint(ToneOf(change.Kind), LineOf(change)) << "\n";
    if (shown < changes.size())
        out_ << "    " << painter_.Paint(Tone::Faint, std::to_string(changes.size() - shown) + " more")
             << "\n";
}

}  // namespace TicketHost
