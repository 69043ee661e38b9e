#include <algorithm>
#include <map>

#include "Host/explain/ExplainOutput.h"
#include "Host/ground/Painter.h"
#include "Host/ground/Texts.h"
#include "Host/output/CallWords.h"

namespace TicketHost {
namespace {

constexpr const char* labelsOfLines[] = {"error", "PJL", "data", "properties", "ticket"};
constexpr std::size_t longestText = 160;  // characters of a property or an edit

class TextExplanation {
public:
    TextExplanation(std::ostream& out, const Explanation& explanation, bool colour)
        : out_(out),
          painter_(colour),
          explanation_(explanation),
          withEffect_(ItemsWithEffect(explanation)),
          inner_(explanation.Items.size()) {
        for (std::size_t item = 0; item < explanation.Items.size(); ++item)
            if (Item(item).Parent != NoIndex) inner_[Item(item).Parent].push_back(item);
    }

    void Write() {
        for (const ExplainedCall& call : explanation_.Calls) WriteCall(call);
        WriteItemsWithEffect();
        for (std::size_t item = 0; item < explanation_.Items.size(); ++item)
            if (Item(item).Parent == NoIndex) WriteIdle(item);
    }

private:
    const SourceItem& Item(std::size_t index) const { return explanation_.Items[index]; }
    std::string PlaceOf(const SourceItem& item) const;
    std::string NameOf(const std::vector<std::size_t>& items) const;
    std::string TextOf(const Effect& effect) const;
    void WriteNote(const std::string& note) { out_ << "      " << painter_.Paint(Tone::Faint, note) << "\n"; }
    void WriteCall(const ExplainedCall& call);
    void WriteLine(const ExplainedLine& line);
    void ListSets();
    void WriteHeading(const char* heading);
    void WriteItemsWithEffect();
    void WriteEffects(const SourceItem& item);
    void WriteSetsWith(std::size_t item);
    void WriteIdle(std::size_t item);
    void WriteFate(std::size_t item);
    bool IsTriedAround(std::size_t item) const;

    std::ostream& out_;
    Painter painter_;
    const Explanation& explanation_;
    const char* heading_ = nullptr;
    const std::vector<bool> withEffect_;
    std::vector<std::vector<std::size_t>> inner_;  // what stands right in each item
    std::vector<std::map<std::vector<std::size_t>, std::vector<std::string>>> sets_;
};

std::string TextExplanation::PlaceOf(const SourceItem& item) const {
    return Visible(item.File) + (item.Line > 0 ? ":" + std::to_string(item.Line) : "");
}

// "LABEL, FILE:LINE" of each.
std::string TextExplanation::NameOf(const std::vector<std::size_t>& items) const {
    std::string text;
    for (const std::size_t item : items)
        text += (item == items.front() ? "" : " and ") + Item(item).Label + ", " + PlaceOf(Item(item));
    return text;
}

void TextExplanation::WriteCall(const ExplainedCall& call) {
    if (call.Lines.empty()) return;
    const std::string number =
        "Call " + std::to_string(call.Number) + " of " + std::to_string(explanation_.CallCount) + ": ";
    const std::string subject = NameOfLevel(call.Level) + ", " + Visible(call.Ticket);
    out_ << painter_.Paint(Tone::Heading, number + subject) << "\n";
    const ExplainedLine* before = nullptr;
    for (const ExplainedLine& line : call.Lines) {
        if (before == nullptr || before->Kind != line.Kind)
            out_ << "  " << painter_.Paint(Tone::Label, labelsOfLines[static_cast<int>(line.Kind)]) << "\n";
        WriteLine(line);
        before = &line;
    }
    out_ << "\n";
}

void TextExplanation::WriteLine(const ExplainedLine& line) {
    const std::string text =
        line.Text.empty() ? painter_.Paint(Tone::Faint, "(empty line)") : Shortened(line.Text, longestText);
    out_ << "    " << (line.Kind == LineKind::Error ? painter_.Paint(Tone::Error, text) : text) << "\n";
    for (const Cause& cause : line.Causes) {
        const bool isOne = cause.Items.size() == 1;
        WriteNote((isOne ? "<- " : "<- only together: ") + NameOf(cause.Items));
        if (cause.Instead)
            WriteNote((isOne ? "   without it: " : "   without them: ") +
                      Shortened(*cause.Instead, longestText));
    }
    if (!line.Subjects.empty()) WriteNote("of " + NameOf({line.Subjects.front()}));
}

std::string TextExplanation::TextOf(const Effect& effect) const {
    const auto quoted = [](const std::string& text) { return Shortened(text, longestText); };
    if (effect.Line == NoIndex) return "keeps away: " + quoted(effect.Instead.value_or(""));
    const std::string& line = explanation_.Calls[effect.Call].Lines[effect.Line].Text;
    const std::string text = line.empty() ? "(empty line)" : quoted(line);
    return text + (effect.Instead ? "; without it: " + quoted(*effect.Instead) : "");
}

// What is the same in several calls is said once.
void TextExplanation::WriteEffects(const SourceItem& item) {
    std::vector<std::pair<std::string, std::vector<std::size_t>>> said;
    for (const Effect& effect : item.Effects) {
        const std::string text =
            std::string(labelsOfLines[static_cast<int>(effect.Kind)]) + ": " + TextOf(effect);
        const auto known = std::ranges::find(said, text, [](const auto& each) { return each.first; });
        auto& calls =
            (known == said.end() ? said.emplace_back(text, std::vector<std::size_t>()) : *known).second;
        const std::size_t number = explanation_.Calls[effect.Call].Number;
        if (calls.empty() || calls.back() != number) calls.push_back(number);
    }
    for (const auto& [text, calls] : said) out_ << "    " << NameCalls(calls) << ", " << text << "\n";
}

void TextExplanation::WriteSetsWith(std::size_t item) {
    for (const auto& [others, lines] : sets_[item]) {
        out_ << "    only together with " << NameOf(others) << ":\n";
        for (const std::string& line : lines) out_ << "      " << line << "\n";
    }
}

// What items cause only together with others, by item and others.
void TextExplanation::ListSets() {
    sets_.resize(explanation_.Items.size());
    for (const ExplainedCall& call : explanation_.Calls)
        for (const ExplainedLine& line : call.Lines)
            for (const Cause& cause : line.Causes)
                for (const std::size_t item : cause.Items) {
                    std::vector<std::size_t> others = cause.Items;
                    std::erase(others, item);
                    if (!others.empty())
                        sets_[item][others].push_back(NameCalls({call.Number}) + ", " + line.Text);
                }
}

void TextExplanation::WriteItemsWithEffect() {
    ListSets();
    for (std::size_t item = 0; item < explanation_.Items.size(); ++item) {
        if (Item(item).Effects.empty() && sets_[item].empty()) continue;
        WriteHeading("What each item did");
        out_ << "  " << painter_.Paint(Tone::Label, NameOf({item})) << "\n";
        WriteEffects(Item(item));
        WriteSetsWith(item);
    }
}

// One line for an item with all that stands in it, but where that is what a person looks for.
void TextExplanation::WriteIdle(std::size_t item) {
    const bool opens = Item(item).Kind == SourceKind::Series ||
                       std::ranges::any_of(inner_[item], [&](auto at) { return !Item(at).HiddenBy.empty(); });
    if (withEffect_[item] || (opens && !inner_[item].empty())) {
        for (const std::size_t at : inner_[item]) WriteIdle(at);
        return;
    }
    if (!Item(item).Tried && !IsTriedAround(item)) return;
    WriteHeading("Without effect");
    const std::size_t count = inner_[item].size();
    const bool says = count > 0 && Item(item).Kind != SourceKind::Feature;
    out_ << "  " << NameOf({item}) << (says ? ", with the " + std::to_string(count) + " in it" : "") << "\n";
    if (!Item(item).HiddenBy.empty()) WriteNote("hidden by " + NameOf(Item(item).HiddenBy));
    WriteFate(item);
}

// What was done to it.
void TextExplanation::WriteFate(std::size_t item) {
    for (const ExplainedCall& call : explanation_.Calls)
        for (const ExplainedLine& line : call.Lines)
            if (!line.Subjects.empty() && line.Subjects.front() == item)
                WriteNote(NameCalls({call.Number}) + ", ticket: " + Shortened(line.Text, longestText));
}

// What stands in something without effect has none, and needn't have been taken away by itself.
bool TextExplanation::IsTriedAround(std::size_t item) const {
    const std::size_t outer = Item(item).Parent;
    return outer != NoIndex && !withEffect_[outer] && (Item(outer).Tried || IsTriedAround(outer));
}

void TextExplanation::WriteHeading(const char* heading) {
    if (heading == heading_) return;
    if (heading_ != nullptr) out_ << "\n";
    heading_ = heading;
    out_ << painter_.Paint(Tone::Heading, heading) << "\n";
}

}  // namespace

void WriteExplanation(std::ostream& out, const Explanation& explanation, bool colour) {
    TextExplanation(out, explanation, colour).Write();
}

}  // namespace TicketHost
