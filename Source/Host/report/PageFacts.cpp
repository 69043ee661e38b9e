#include "Host/report/PageFacts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "Host/ground/Texts.h"
#include "Host/jobs/OptionTableSet.h"

namespace TicketHost {
namespace {

using Lines = std::vector<std::string>;

// What counts of an option table here: its keywords with their data lines.
struct OptionLine {
    std::string Keyword;
    std::string Line;      // empty: none
    std::string Fragment;  // what the option is in a ticket
};
using OptionLines = std::vector<OptionLine>;

OptionLines ReadOptionLines(std::string_view table) {
    OptionLines lines;
    for (const OptionRecord& row : CopyOptionTable(table)) {
        if (row.Keyword.IsNull()) break;
        const std::vector<std::string> data = SplitCommandLines(row.DataCommand.View());
        lines.push_back({ToUtf8(row.Keyword), data.empty() ? "" : data.front(), ToUtf8(row.TicketFragment)});
    }
    return lines;
}

enum Table : std::size_t { Sizes, Media, Bins, OneSidedModes, TwoSidedModes };  // as OptionTableNames

const OptionLines& OptionsOf(Table table) {
    static const auto all = [] {
        std::array<OptionLines, OptionTableNames.size()> options;
        std::ranges::transform(OptionTableNames, options.begin(), ReadOptionLines);
        return options;
    }();
    return all[table];
}

std::string WithoutPrefix(std::string_view name) { return std::string(name.substr(name.find(':') + 1)); }

// The option whose line was sent. Several may have one line: then it is the wanted one, else the first.
const OptionLine* FindSent(const OptionLines& options, const Lines& lines, std::string_view wanted) {
    const OptionLine* sent = nullptr;
    for (const OptionLine& option : options) {
        if (option.Line.empty() || std::ranges::find(lines, option.Line) == lines.end()) continue;
        if (option.Keyword == wanted) return &option;
        if (sent == nullptr) sent = &option;
    }
    return sent;
}

std::string ChosenOptionName(const std::vector<TicketItem>& ticket, std::string_view feature) {
    const TicketItem* found = FindItem(ticket, ItemKind::Feature, KeywordsNamespace, feature);
    const TicketItem* option = found == nullptr ? nullptr : ChosenOption(*found);
    return option == nullptr ? "" : option->Name;
}

PageFact ReadFact(const OptionLines& options, const Lines& lines, const std::string& wanted) {
    const OptionLine* sent = FindSent(options, lines, wanted);
    return {WithoutPrefix(sent == nullptr ? wanted : sent->Keyword), sent != nullptr};
}

// The digits as a whole number of these units; 0 for what no sheet of paper measures.
std::int64_t ReadLength(std::string_view digits, std::int64_t unit) {
    constexpr std::int64_t longest = 100'000'000;  // a hundred metres
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool isLength = error == std::errc() && end == digits.data() + digits.size() && number > 0;
    return isLength && number <= longest / unit ? number * unit : 0;
}

// The value of a data line with this name, as in: ubyte "1485" CustWidth.
std::string_view ValueOfLine(const Lines& lines, std::string_view name) {
    for (const std::string_view line : lines) {
        const std::size_t begin = line.find('"'), end = line.rfind('"');
        if (begin < end && line.substr(end).ends_with(name)) return line.substr(begin + 1, end - begin - 1);
    }
    return {};
}

constexpr std::int64_t tenthOfMillimetre = 100;

// The dimensions behind an option's name in a ticket, given in place or by a parameter.
std::int64_t ReadDimension(const std::vector<TicketItem>& ticket, const TicketItem& option,
                           std::string_view name) {
    const TicketItem* scored = FindItem(option.Items, ItemKind::ScoredProperty, KeywordsNamespace, name);
    if (scored == nullptr) return 0;
    if (scored->Reference.empty()) return ReadLength(scored->Value, 1);
    const TicketItem* parameter =
        FindItem(ticket, ItemKind::Parameter, KeywordsNamespace, WithoutPrefix(scored->Reference));
    return parameter == nullptr ? 0 : ReadLength(parameter->Value, 1);
}

void SetDimensions(PageFacts& facts, const std::vector<TicketItem>& ticket) {
    const TicketItem* size = FindItem(ticket, ItemKind::Feature, KeywordsNamespace, "PageMediaSize");
    const TicketItem* option = size == nullptr ? nullptr : ChosenOption(*size);
    if (option == nullptr) return;
    facts.Width = ReadDimension(ticket, *option, "MediaSizeWidth");
    facts.Height = ReadDimension(ticket, *option, "MediaSizeHeight");
}

// Of a size's row, for one that no longer stands in the ticket.
void SetTableDimensions(PageFacts& facts) {
    const auto row = std::ranges::find(OptionsOf(Sizes), facts.Size.Name, &OptionLine::Keyword);
    if (row != OptionsOf(Sizes).end()) SetDimensions(facts, ItemsOf(RootOfFragment(row->Fragment)));
}

// Of several sizes with one line it is the one that the conversion says it found. Where none was sent, that
// property may be of an earlier page, so that only the ticket is left to ask.
void ReadSize(PageFacts& facts, const Lines& lines, const std::vector<TicketItem>& ticket,
              const PipelineProperties& properties) {
    facts.TicketSize = WithoutPrefix(ChosenOptionName(ticket, "PageMediaSize"));
    facts.Size = ReadFact(OptionsOf(Sizes), lines, ToUtf8(FindText(properties, u"PAPER_SIZE")));
    if (!facts.Size.IsSent) {
        facts.Size.Name = facts.TicketSize;
        SetDimensions(facts, ticket);
    } else {
        facts.Width = ReadLength(ValueOfLine(lines, "CustWidth"), tenthOfMillimetre);
        facts.Height = ReadLength(ValueOfLine(lines, "CustHeight"), tenthOfMillimetre);
    }
    if (facts.Width == 0 && facts.Height == 0) SetTableDimensions(facts);
}

TurningEdge ReadEdge(const Lines& lines) {
    const OptionLine* mode = FindSent(OptionsOf(TwoSidedModes), lines, "");
    if (mode == nullptr) return TurningEdge::None;
    return mode->Keyword.ends_with("ShortEdge") ? TurningEdge::Top : TurningEdge::Left;
}

}  // namespace

PageFacts ReadPageFacts(const Lines& lines, const std::vector<TicketItem>& ticket,
                        const PipelineProperties& properties) {
    PageFacts facts;
    ReadSize(facts, lines, ticket, properties);
    facts.Medium = ReadFact(OptionsOf(Media), lines, ChosenOptionName(ticket, "PageMediaType"));
    facts.Bin = ReadFact(OptionsOf(Bins), lines, ChosenOptionName(ticket, "PageInputBin"));
    facts.Orientation = WithoutPrefix(ChosenOptionName(ticket, "PageOrientation"));
    facts.IsJobsOrientation = facts.Orientation.empty();
    if (facts.IsJobsOrientation)
        facts.Orientation = WithoutPrefix(ToUtf8(FindText(properties, u"PageOrientation")));
    facts.IsOneSided = FindSent(OptionsOf(OneSidedModes), lines, "") != nullptr;
    facts.Edge = ReadEdge(lines);
    return facts;
}

}  // namespace TicketHost
