#include "Host/explain/Trial.h"

#include <algorithm>
#include <utility>

#include "Host/ground/Texts.h"
#include "Host/tickets/TicketChanges.h"
#include "devicespecific/DeviceSpecificModule.h"

namespace TicketHost {
namespace {

using Platform::PropertyValue;
using Platform::WideText;

bool IsListed(const std::u16string& name, const PropertyValue& value) {
    return name != u"PJL" && name != u"DATA" &&
           !std::holds_alternative<std::shared_ptr<Platform::IPrinterPropertyBag>>(value);
}

// Each run has tables of its own, so that addresses say nothing.
bool SaySame(const PropertyValue& left, const PropertyValue& right) {
    const auto* reference = std::get_if<Platform::BareReference>(&left);
    const auto* other = std::get_if<Platform::BareReference>(&right);
    if (reference != nullptr && other != nullptr)
        return (reference->Address == nullptr) == (other->Address == nullptr);
    return AreSame(left, right);
}

const PropertyValue* Find(const PipelineProperties& properties, const std::u16string& name) {
    const auto found = properties.find(name);
    return found == properties.end() ? nullptr : &found->second;
}

bool SaySame(const PropertyValue* left, const PropertyValue* right) {
    return left == nullptr || right == nullptr ? left == right : SaySame(*left, *right);
}

// Takes a run's outcomes.
class OutcomeTaker final : public ResultSink {
public:
    explicit OutcomeTaker(const Trial* known) : known_(known) {}

    void Begin(const Job&, const PipelineProperties& initial) override { TakeProperties(initial); }

    void Take(const CallResult& result) override {
        TrialOutcome outcome = Read(result);
        const std::size_t call = result.Number - 1;
        const auto known = known_ == nullptr ? Trial::const_iterator() : known_->find(call);
        const bool isKnown = known_ != nullptr && known != known_->end();
        if (!isKnown || !AreSame(known->second, outcome)) trial_.emplace(call, std::move(outcome));
    }

    Trial Taken() { return std::move(trial_); }

private:
    TrialOutcome Read(const CallResult& result);
    void TakeProperties(const PipelineProperties& properties);

    const Trial* known_;
    Trial trial_;
    WideText pjl_, data_;
    PipelineProperties others_;
};

void OutcomeTaker::TakeProperties(const PipelineProperties& properties) {
    pjl_ = FindText(properties, u"PJL");
    data_ = FindText(properties, u"DATA");
    others_.clear();
    for (const auto& [name, value] : properties)
        if (IsListed(name, value)) others_.emplace_hint(others_.end(), name, value);
}

TrialOutcome OutcomeTaker::Read(const CallResult& result) {
    TrialOutcome outcome;
    if (result.Error) outcome.Error = result.Error->Type + ": " + result.Error->Message;
    const WideText pjl = pjl_, data = data_;
    const PipelineProperties before = std::exchange(others_, {});
    TakeProperties(result.Properties);
    outcome.Pjl = pjl_;
    outcome.ChangesPjl = pjl.IsNull() != pjl_.IsNull() || !(pjl == pjl_) ||
                         (result.Made.Level == DeviceSpecificModule::JobLevel && !result.Error);
    outcome.Data = WideText(data_.View().substr(BeginsWith(data_, data) ? data.Length() : 0));
    outcome.Properties = others_;
    for (const auto& [name, value] : others_)
        if (!SaySame(Find(before, name), &value)) outcome.Changed.push_back(name);
    for (const auto& [name, value] : before)
        if (!others_.contains(name)) outcome.Changed.push_back(name);
    std::ranges::sort(outcome.Changed);
    outcome.TicketBefore = result.TicketBefore;
    outcome.TicketAfter = result.TicketAfter;
    return outcome;
}

// What a line says something about: what stands ahead of "=", or what is left without quoted texts.
std::string KeyOf(const std::string& line) {
    if (const std::size_t equals = line.find('='); equals != line.npos) return line.substr(0, equals);
    std::string key;
    bool isQuoted = false;
    for (const char character : line) {
        if (character == '"') isQuoted = !isQuoted;
        if (!isQuoted && character != '\r' && character != '\n') key += character;
    }
    return key;
}

void AddCommands(LineKind kind, const WideText& text, std::vector<OutcomeLine>& lines) {
    const std::string bytes = ToUtf8(text);
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = std::min(bytes.find('\n', at), bytes.size() - 1) + 1;
        const std::string line = bytes.substr(at, end - at);
        lines.push_back({kind, KeyOf(line), line});
        at = end;
    }
}

void AddProperty(const TrialOutcome& outcome, const std::u16string& name, std::vector<OutcomeLine>& lines) {
    const PropertyValue* value = Find(outcome.Properties, name);
    const std::string key = Visible(ToUtf8(name));
    const std::string said = value == nullptr ? " is gone" : " = " + DescribeValue(*value);
    lines.push_back({LineKind::Property, key, key + said});
}

// What stands between the elements of a ticket is no edit, even if none of them is left.
std::vector<TicketChange> EditsOf(const WideText& before, const WideText& after) {
    if (before == after) return {};
    std::vector<TicketChange> edits = CompareTickets(before, after);
    std::erase_if(edits, [](const TicketChange& edit) { return edit.Subject == "/PrintTicket"; });
    return edits;
}

std::vector<OutcomeLine> ListLines(const TrialOutcome& outcome, bool withPjl,
                                   const std::vector<std::u16string>& properties,
                                   const std::vector<TicketChange>& edits) {
    std::vector<OutcomeLine> lines;
    if (!outcome.Error.empty()) lines.push_back({LineKind::Error, "", outcome.Error});
    if (withPjl) AddCommands(LineKind::Pjl, outcome.Pjl, lines);
    AddCommands(LineKind::Data, outcome.Data, lines);
    for (const std::u16string& name : properties) AddProperty(outcome, name, lines);
    for (const TicketChange& edit : edits) lines.push_back({LineKind::Ticket, edit.Subject, LineOf(edit)});
    return lines;
}

enum class CharacterClass { Digit, Letter, Other };

CharacterClass ClassOf(char character) {
    if (character >= '0' && character <= '9') return CharacterClass::Digit;
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'z' ? CharacterClass::Letter : CharacterClass::Other;
}

std::vector<std::string> PartsOf(const std::string& text) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (at == 0 || ClassOf(text[at]) != ClassOf(text[at - 1])) parts.emplace_back();
        parts.back() += text[at];
    }
    return parts;
}

bool Fits(const Pattern& pattern, const std::string& text) {
    return std::ranges::equal(pattern, PartsOf(text), [](const auto& wanted, const std::string& part) {
        return !wanted || *wanted == part;
    });
}

std::optional<Pattern> PatternOf(const std::string& first, const std::string& second) {
    if (first == second) return std::nullopt;
    const std::vector<std::string> parts = PartsOf(first), others = PartsOf(second);
    Pattern pattern(parts.begin(), parts.end());
    bool clock = false;
    for (std::size_t at = 0; at < parts.size(); ++at) {
        const bool differs = at >= others.size() || parts[at] != others[at];
        clock = clock || differs;
        if (differs || (clock && ClassOf(parts[at][0]) == CharacterClass::Digit)) pattern[at].reset();
    }
    return pattern;
}

bool IsSame(const OutcomeLine& line, const OutcomeLine& other, const std::optional<Pattern>* pattern) {
    if (line == other) return true;
    return pattern != nullptr && *pattern && line.Kind == other.Kind && line.Key == other.Key &&
           Fits(**pattern, other.Text);
}

// Which line of the others each line is the same as, by a longest common subsequence; NoIndex: none.
class Alignment {
public:
    std::vector<std::size_t> Partners;

    Alignment(const std::vector<OutcomeLine>& lines, const std::vector<OutcomeLine>& others,
              const Patterns& patterns)
        : Partners(lines.size(), NoIndex), lines_(lines), others_(others), patterns_(patterns) {
        std::size_t end = lines.size(), otherEnd = others.size(), front = 0;
        while (front < std::min(end, otherEnd) && Same(front, front)) Pair(front, front), ++front;
        while (end > front && otherEnd > front && Same(end - 1, otherEnd - 1)) Pair(--end, --otherEnd);
        if ((end - front) * (otherEnd - front) <= mostCells) AlignMiddle(front, end, otherEnd);
    }

private:
    static constexpr std::size_t mostCells = 1 << 22;  // beyond that, what differs counts as all new

    bool Same(std::size_t line, std::size_t other) const {
        return IsSame(lines_[line], others_[other], patterns_.empty() ? nullptr : &patterns_[line]);
    }
    void Pair(std::size_t line, std::size_t other) { Partners[line] = other; }
    void AlignMiddle(std::size_t front, std::size_t end, std::size_t otherEnd);

    const std::vector<OutcomeLine>& lines_;
    const std::vector<OutcomeLine>& others_;
    const Patterns& patterns_;
};

void Alignment::AlignMiddle(std::size_t front, std::size_t end, std::size_t otherEnd) {
    const std::size_t width = otherEnd - front + 1;
    std::vector<unsigned> length((end - front + 1) * width);  // of what is common from there to the ends
    const auto at = [&](std::size_t line, std::size_t other) -> unsigned& {
        return length[(line - front) * width + (other - front)];
    };
    for (std::size_t line = end; line-- > front;)
        for (std::size_t other = otherEnd; other-- > front;)
            at(line, other) = Same(line, other) ? at(line + 1, other + 1) + 1
                                                : std::max(at(line + 1, other), at(line, other + 1));
    for (std::size_t line = front, other = front; line < end && other < otherEnd;) {
        if (Same(line, other))
            Pair(line++, other++);
        else if (at(line + 1, other) >= at(line, other + 1))
            ++line;
        else
            ++other;
    }
}

// Of the others between two pairs of same lines the next one that speaks of the same thing.
std::size_t StandIn(const OutcomeLine& line, const std::vector<OutcomeLine>& others,
                    const std::vector<bool>& used, std::size_t from) {
    for (std::size_t at = from; at < others.size() && !used[at]; ++at)
        if (others[at].Kind == line.Kind && others[at].Key == line.Key) return at;
    return NoIndex;
}

}  // namespace

Trial Convert(const Job& job, std::size_t calls, const Trial* known) {
    OutcomeTaker taker(known);
    if (calls >= job.Calls.size()) {
        RunJob(job, false, taker);
    } else {
        Job some{job.Name, job.Settings, {}};
        some.Calls.assign(job.Calls.begin(), job.Calls.begin() + static_cast<std::ptrdiff_t>(calls));
        RunJob(some, false, taker);
    }
    return taker.Taken();
}

bool AreSame(const TrialOutcome& left, const TrialOutcome& right) {
    const auto sameProperty = [&](const std::u16string& name) {
        return SaySame(Find(left.Properties, name), Find(right.Properties, name));
    };
    return left.Error == right.Error && left.ChangesPjl == right.ChangesPjl &&
           (!left.ChangesPjl || left.Pjl == right.Pjl) && left.Data == right.Data &&
           left.TicketAfter == right.TicketAfter && left.TicketBefore == right.TicketBefore &&
           std::ranges::all_of(left.Changed, sameProperty) &&
           std::ranges::all_of(right.Changed, sameProperty);
}

std::vector<OutcomeLine> LinesOf(const TrialOutcome& outcome) {
    return ListLines(outcome, outcome.ChangesPjl, outcome.Changed,
                     EditsOf(outcome.TicketBefore, outcome.TicketAfter));
}

std::vector<OutcomeLine> LinesAgainst(const TrialOutcome& outcome, const TrialOutcome& other) {
    std::vector<std::u16string> properties;
    for (const std::u16string& name : other.Changed)
        if (outcome.Properties.contains(name) || std::ranges::binary_search(outcome.Changed, name))
            properties.push_back(name);
    for (const std::u16string& name : outcome.Changed)
        if (!std::ranges::binary_search(other.Changed, name) &&
            !SaySame(Find(outcome.Properties, name), Find(other.Properties, name)))
            properties.push_back(name);
    std::ranges::sort(properties);
    const bool endsAlike = EditsOf(outcome.TicketAfter, other.TicketAfter).empty();
    const TrialOutcome& edited = endsAlike ? other : outcome;
    return ListLines(outcome, outcome.ChangesPjl || other.ChangesPjl, properties,
                     EditsOf(edited.TicketBefore, edited.TicketAfter));
}

Patterns PatternsOf(const std::vector<OutcomeLine>& first, const std::vector<OutcomeLine>& second) {
    const auto sameKey = [](const OutcomeLine& left, const OutcomeLine& right) {
        return left.Kind == right.Kind && left.Key == right.Key;
    };
    if (!std::ranges::equal(first, second, sameKey)) return {};
    Patterns patterns(first.size());
    for (std::size_t line = 0; line < first.size(); ++line)
        patterns[line] = PatternOf(first[line].Text, second[line].Text);
    return patterns;
}

std::vector<LineChange> CompareLines(const std::vector<OutcomeLine>& lines,
                                     const std::vector<OutcomeLine>& others, const Patterns& patterns) {
    const std::vector<std::size_t> partners = Alignment(lines, others, patterns).Partners;
    std::vector<LineChange> changes;
    std::vector<bool> used(others.size());
    for (const std::size_t partner : partners)
        if (partner != NoIndex) used[partner] = true;
    std::size_t from = 0;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        if (partners[line] != NoIndex) {
            from = partners[line] + 1;
            continue;
        }
        changes.push_back({line, lines[line].Kind, std::nullopt});
        const std::size_t other = StandIn(lines[line], others, used, from);
        if (other == NoIndex) continue;
        changes.back().Instead = others[other].Text;
        used[other] = true;
        from = other + 1;
    }
    for (std::size_t other = 0; other < others.size(); ++other)
        if (!used[other]) changes.push_back({NoIndex, others[other].Kind, others[other].Text});
    return changes;
}

std::string ShownLine(LineKind kind, const std::string& text) {
    if (kind != LineKind::Pjl && kind != LineKind::Data) return Visible(text);
    const std::vector<std::string> lines = SplitCommandLines(UnitsOf(text));
    return lines.empty() ? "" : lines.front();
}

}  // namespace TicketHost
