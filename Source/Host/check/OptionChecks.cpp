#include "Host/check/OptionChecks.h"

#include <algorithm>
#include <map>
#include <utility>

#include "Host/check/ValueChecks.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/OptionTableSet.h"
#include "pages/PageSize.h"

namespace TicketHost {
namespace {

// A form that the user named at the queue: its size stands in the ticket.
constexpr std::string_view userForm = "UserForm";

std::string OptionOf(const TicketItem& feature, const TicketItem& option) {
    return "option " + Quoted(option.Name) + " of " + feature.Name;
}

// The name by which the device knows an option, if only its prefix is another.
const std::string* WordOfOtherPrefix(const TicketItem& option, const WordList& words) {
    const auto word = std::ranges::find_if(
        words, [&](const std::string& each) { return WithoutPrefix(each) == option.Local; });
    return word == words.end() ? nullptr : &*word;
}

std::string_view SpaceOfWord(std::string_view word) {
    return word.starts_with("psk:") ? KeywordsNamespace : DevmodeNamespace;
}

using Table = std::vector<OptionRecord>;

// The device's own table of a feature's options; null for features without one.
const Table* TableOf(std::string_view feature) {
    static const std::map<std::string_view, Table> tables = [] {
        std::map<std::string_view, Table> all;
        for (const std::string_view name : OptionTableNames) all.emplace(name, CopyOptionTable(name));
        return all;
    }();
    const auto found = tables.find(feature);
    return found == tables.end() ? nullptr : &found->second;
}

const OptionRecord* FindRecord(const Table& table, std::string_view keyword) {
    const auto row = std::ranges::find_if(table, [&](const OptionRecord& each) {
        return !each.Keyword.IsNull() && ToUtf8(each.Keyword) == keyword;
    });
    return row == table.end() ? nullptr : &*row;
}

// Much that the device's tables know sends nothing.
void NoteSilence(const CheckedTicket& ticket, const TicketItem& feature, const TicketItem& option,
                 TicketReport& report) {
    const Table* table = TableOf(feature.Local);
    if (ticket.At == AtDocument || table == nullptr) return;
    const bool isSize = feature.Local == "PageMediaSize";
    const OptionRecord* record = FindRecord(*table, isSize ? option.Local : option.Name);
    if (record != nullptr && record->DataCommand.IsEmpty() && record->JobCommand.IsEmpty())
        report.Note(option.Line, OptionOf(feature, option) +
                                     " counts for nothing: the device knows it and has no command for it");
}

// Options are known by their names as they are written, prefix included.
void CheckWord(const TicketItem& feature, const TicketItem& option, const WordList& words,
               TicketReport& report) {
    const bool isKnown = std::ranges::find(words, option.Name) != words.end();
    if (isKnown && option.Space == SpaceOfWord(option.Name)) return;
    if (isKnown)
        return report.Warn(option.Line,
                           OptionOf(feature, option) + " is of another namespace " +
                               (option.Space.empty() ? "that is not bound" : option.Space) +
                               " and is taken for the device's, since options go by their prefix");
    if (const std::string* word = WordOfOtherPrefix(option, words))
        return report.Warn(
            option.Line,
            OptionOf(feature, option) + " counts for nothing: the device knows it only as " + *word,
            "write it so, with \"" + word->substr(0, word->find(':')) + "\" bound to " +
                std::string(SpaceOfWord(*word)));
    report.Warn(option.Line, OptionOf(feature, option) + " is unknown to the device",
                HintOf(option.Name, words));
}

bool HasScoredValue(const TicketItem& option, std::string_view name) {
    const TicketItem* scored = FindItem(option.Items, ItemKind::ScoredProperty, KeywordsNamespace, name);
    return scored != nullptr && !scored->Value.empty();
}

bool HasParameter(const CheckedTicket& ticket, std::string_view name) {
    return FindItem(ticket.Items, ItemKind::Parameter, KeywordsNamespace, name) != nullptr;
}

// A custom size takes its dimensions from parameters of fixed names, a form from its own properties.
void CheckDimensions(const CheckedTicket& ticket, const TicketItem& option, TicketReport& report) {
    const bool isForm = option.Name.find(userForm) != std::string::npos;
    for (const std::string name : {"MediaSizeWidth", "MediaSizeHeight"}) {
        const std::string parameter = "PageMediaSize" + name;
        if (isForm && !HasScoredValue(option, name))
            report.Warn(option.Line, "option " + Quoted(option.Name) + " is a form without a psk:" + name);
        if (!isForm && !HasParameter(ticket, parameter))
            report.Warn(
                option.Line,
                "option " + Quoted(option.Name) + " is a custom size without a parameter psk:" + parameter,
                "its dimensions are read from there alone");
    }
}

// Under the layout that puts four pages on a sheet a document gets the size that goes with its own.
void CheckFourInOne(const CheckedTicket& ticket, const TicketItem& option, TicketReport& report) {
    if (ticket.At != AtDocument || ticket.Job.Setting("Layout") != "Bl4in1") return;
    const Table& sizes = *TableOf("PageMediaSize");
    const OptionRecord* size = FindRecord(sizes, option.Local);
    const std::string pair = size == nullptr ? "" : ToUtf8(size->PairedKeyword);
    if (size == nullptr || FindRecord(sizes, pair) != nullptr) return;
    report.Warn(
        option.Line,
        "option " + Quoted(option.Name) +
            " has no size that goes with it under Layout \"Bl4in1\", so the ticket loses its media size");
}

void CheckSize(const CheckedTicket& ticket, const TicketItem& feature, const TicketItem& option,
               const ItemRow& row, TicketReport& report) {
    const std::string chosen = ticket.Job.Setting("OutPSize");
    if (chosen != "UsePaperSize") {
        if (std::exchange(ticket.Job.SaidSize, chosen) == chosen) return;
        return report.Warn(feature.Line,
                           "no ticket's " + feature.Name +
                               " counts: the size is that of setting OutPSize, which is " +
                               (chosen.empty() ? "missing" : Quoted(chosen)),
                           "set it to \"UsePaperSize\"");
    }
    const bool isForm = ticket.At != AtDocument && option.Name.find(userForm) != std::string::npos;
    const auto fault = isForm ? std::nullopt : FaultOf(row.Allowed, option.Name);
    if (fault)
        return report.Warn(option.Line,
                           OptionOf(feature, option) + " " + fault->Text +
                               (ticket.At == AtDocument ? ", so the ticket loses its media size" : ""),
                           fault->Hint);
    const bool isCustom = DeviceSpecificModule::IsCustomSize(UnitsOf(option.Local));
    if ((isForm || isCustom) && ticket.At != AtDocument) CheckDimensions(ticket, option, report);
    CheckFourInOne(ticket, option, report);
    NoteSilence(ticket, feature, option, report);
}

}  // namespace

void CheckOptions(const CheckedTicket& ticket, const TicketItem& feature, const ItemRow& row,
                  TicketReport& report) {
    const auto isNamed = [](const TicketItem& item) {
        return item.Kind == ItemKind::Option && !item.Name.empty();
    };
    const auto chosen = std::ranges::find_if(feature.Items, isNamed);
    if (chosen == feature.Items.end())
        return report.Warn(feature.Line, "feature " + Quoted(feature.Name) +
                                             " has no option with a name and counts for nothing");
    for (const TicketItem& item : feature.Items)
        if (isNamed(item) && &item != &*chosen)
            report.Warn(item.Line, OptionOf(feature, item) +
                                       " counts for nothing: only the feature's first option is read");
    if (row.Allowed.Kind == Form::MediaSize) return CheckSize(ticket, feature, *chosen, row, report);
    if (row.Allowed.Kind != Form::Words) return;
    CheckWord(feature, *chosen, row.Allowed.Words(), report);
    NoteSilence(ticket, feature, *chosen, report);
}

}  // namespace TicketHost
