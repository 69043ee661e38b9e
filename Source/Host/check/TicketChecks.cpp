#include "Host/check/TicketChecks.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "Host/check/OptionChecks.h"
#include "Host/check/ValueChecks.h"
#include "Host/tickets/Settings.h"

namespace TicketHost {
namespace {

using Platform::XmlElement;
using Platform::XmlNamespace;

constexpr std::size_t mostNamed = 5;  // items that one note names

std::string KindName(ItemKind kind) { return kind == ItemKind::Feature ? "feature " : "parameter "; }

std::string NamesOfLevels(unsigned levels) {
    std::string names;
    for (const auto& [level, name] : {std::pair{AtJob, "job"}, {AtDocument, "document"}, {AtPage, "page"}})
        if ((levels & level) != 0) names.append(names.empty() ? "" : " and ").append(name);
    return names;
}

// Items that count for nothing for the same reason, for one note.
struct Nothings {
    int Line = 0;  // of the first
    std::vector<std::string> Names;

    void Add(const TicketItem& item) {
        if (Names.empty()) Line = item.Line;
        if (std::ranges::find(Names, item.Name) == Names.end()) Names.push_back(item.Name);
    }
    std::string List() const {
        std::string list;
        for (std::size_t at = 0; at < std::min(Names.size(), mostNamed); ++at)
            list.append(at == 0 ? "" : ", ").append(Names[at]);
        if (Names.size() > mostNamed) list += " and " + std::to_string(Names.size() - mostNamed) + " more";
        return list + (Names.size() == 1 ? " counts for nothing" : " count for nothing");
    }
};

// The prefix by which names of a namespace are found in an item: of those in scope the one that the outermost
// element declares, and among its declarations the last.
std::string CountingPrefix(const XmlElement& root, const XmlElement& item, std::string_view uri) {
    const auto isHidden = [&](const XmlNamespace& space) {
        return std::ranges::find(item.Namespaces, space.Prefix, &XmlNamespace::Prefix) !=
               item.Namespaces.end();
    };
    const std::string* prefix = nullptr;
    for (const XmlNamespace& space : root.Namespaces)
        if (space.Uri == uri && !isHidden(space)) prefix = &space.Prefix;
    if (prefix == nullptr)
        for (const XmlNamespace& space : item.Namespaces)
            if (space.Uri == uri) prefix = &space.Prefix;
    return prefix == nullptr ? "" : *prefix;
}

bool IsPiece(std::string_view local) {
    return std::ranges::any_of(AllSettingsSeries, [&](const SettingsSeries& series) {
        return local.size() == series.Piece.size() + 3 && local.starts_with(series.Piece) &&
               local.find_first_not_of("0123456789", series.Piece.size()) == local.npos;
    });
}

std::string_view SpaceOf(const ItemRow& row) {
    return row.Prefix == "psk" ? KeywordsNamespace : DevmodeNamespace;
}

const ItemRow* FindRow(const TicketItem& item, bool byPrefix) {
    const auto rows = ItemRows();
    const auto row = std::ranges::find_if(rows, [&](const ItemRow& each) {
        if (each.Kind != item.Kind || each.Name != item.Local) return false;
        return byPrefix ? item.Name == each.FullName() : item.Space == SpaceOf(each);
    });
    return row == rows.end() ? nullptr : &*row;
}

class TicketChecker {
public:
    TicketChecker(const TicketContent& ticket, Level level, JobState& job, TicketReport& report)
        : root_(ticket.Root), items_(ticket.Items), level_(level), job_(job), report_(report) {}

    void Check();

private:
    void CheckRoot();
    void CheckItem(const TicketItem& item, const XmlElement& element);
    void CheckName(const TicketItem& item);
    void CheckUnknown(const TicketItem& item);
    void CheckKnown(const TicketItem& item, const XmlElement& element, const ItemRow& row);
    void CheckValue(const TicketItem& item, const ItemRow& row);
    void CheckOther(const TicketItem& item);
    void CheckCopies();
    void WriteNothings();

    const XmlElement& root_;
    const std::vector<TicketItem>& items_;
    Level level_;
    JobState& job_;
    TicketReport& report_;
    std::set<std::tuple<ItemKind, std::string, std::string>> seen_;
    std::map<unsigned, Nothings> otherLevels_;  // by the levels at which they count
    Nothings published_, parts_;
    std::map<std::string, Nothings> foreign_;
};

// Fragments go in by the literal "psf:PrintTicket", and those of sizes need a bound "xsi".
void TicketChecker::CheckRoot() {
    const char* lost = level_ == AtJob ? ", not even the one-sided mode that takes the duplex option's place"
                       : level_ == AtDocument ? ", not even the media size that takes the place of its own"
                                              : "";
    if (root_.Name.Prefix != "psf")
        report_.Warn(root_.Line,
                     "the root is not written psf:PrintTicket: it is read, but nothing can be put into it" +
                         std::string(lost),
                     "bind \"psf\" to the framework's namespace and use it");
    const bool hasTypes =
        std::ranges::find(root_.Namespaces, "xsi", &XmlNamespace::Prefix) != root_.Namespaces.end();
    if (level_ == AtDocument && !hasTypes)
        report_.Warn(root_.Line,
                     "the prefix \"xsi\" is not bound, so the media size is taken out and none can be put in",
                     "bind it in the root to http://www.w3.org/2001/XMLSchema-instance");
}

void TicketChecker::CheckName(const TicketItem& item) {
    const std::string prefix = item.Name.substr(0, item.Name.find(':'));
    if (item.Name.empty())
        report_.Warn(item.Line, "an element without a name counts for nothing");
    else if (prefix == item.Name)
        report_.Warn(item.Line, KindName(item.Kind) + Quoted(item.Name) + " has no prefix and is never found",
                     "write psk:" + item.Name);
    else
        report_.Warn(item.Line,
                     "the prefix of " + KindName(item.Kind) + Quoted(item.Name) +
                         " is not bound, so it is never found",
                     "declare xmlns:" + prefix + " in the root");
}

// The same name where it would be read: of the other namespace or of the other kind.
const ItemRow* Elsewhere(const TicketItem& item) {
    const auto rows = ItemRows();
    const auto row = std::ranges::find(rows, std::string_view(item.Local), &ItemRow::Name);
    return row == rows.end() ? nullptr : &*row;
}

std::string NearestItem(const TicketItem& item) {
    std::vector<std::string> names;
    for (const ItemRow& row : ItemRows())
        if (row.Kind == item.Kind) names.push_back(row.FullName());
    if (item.Kind == ItemKind::Parameter)
        for (const SettingsSeries& series : AllSettingsSeries)
            names.push_back("ns0000:" + std::string(series.Piece) + "000");
    const std::string hint = HintOf(item.Name, names);
    return hint.starts_with("nearest") ? hint : "";
}

bool IsPublished(const TicketItem& item, bool byBeginning) {
    const auto isIt = [&](std::string_view name) {
        return item.Local == name || (byBeginning && item.Local.starts_with(name));
    };
    return std::ranges::any_of(PublishedFeatures(), isIt) ||
           (item.Kind == ItemKind::Parameter && std::ranges::any_of(PublishedParameters(), isIt));
}

void TicketChecker::CheckUnknown(const TicketItem& item) {
    const auto later = LaterKeywordsNamespaces();
    if (std::ranges::find(later, item.Space) != later.end()) return published_.Add(item);
    if (item.Space != KeywordsNamespace && item.Space != DevmodeNamespace && item.Space != FrameworkNamespace)
        return foreign_[item.Space].Add(item);
    if (item.Space == DevmodeNamespace && item.Kind == ItemKind::Parameter && IsPiece(item.Local)) return;
    const std::string what = KindName(item.Kind) + Quoted(item.Name);
    if (const ItemRow* row = Elsewhere(item))
        return report_.Warn(item.Line, what + " counts for nothing: the device looks for " +
                                           KindName(row->Kind) + row->FullName());
    if (item.Space == KeywordsNamespace && IsPublished(item, false)) return published_.Add(item);
    const std::string nearest = NearestItem(item);
    if (nearest.empty() && item.Space == KeywordsNamespace && IsPublished(item, true))
        return published_.Add(item);
    report_.Warn(item.Line, what + " is unknown to the device", nearest);
}

void TicketChecker::CheckItem(const TicketItem& item, const XmlElement& element) {
    if (item.Kind == ItemKind::Property) return parts_.Add(item);
    if (item.Kind != ItemKind::Feature && item.Kind != ItemKind::Parameter) return CheckOther(item);
    const ItemRow* row = FindRow(item, true);
    const bool isFoundByPrefix = row != nullptr && (row->FoundAt & AtAll) != 0 && row->ReadAt == NoLevel;
    if (item.Space.empty() && !isFoundByPrefix) return CheckName(item);
    if (!isFoundByPrefix) row = FindRow(item, false);
    if (row == nullptr) return CheckUnknown(item);
    CheckKnown(item, element, *row);
}

bool HasNamedOption(const TicketItem& feature) {
    return std::ranges::any_of(feature.Items, [](const TicketItem& item) {
        return item.Kind == ItemKind::Option && !item.Name.empty();
    });
}

void TicketChecker::CheckKnown(const TicketItem& item, const XmlElement& element, const ItemRow& row) {
    const std::string what = KindName(item.Kind) + Quoted(item.Name);
    const unsigned levels = row.ReadAt | row.FoundAt;
    if ((levels & level_) == 0) return otherLevels_[levels].Add(item);
    if ((row.ReadAt & level_) != 0) {
        const std::string prefix = CountingPrefix(root_, element, SpaceOf(row));
        if (prefix != item.Name.substr(0, item.Name.find(':')))
            return report_.Warn(item.Line,
                                what + " is never found: of the prefixes of its namespace only " +
                                    (prefix.empty() ? "the default one" : Quoted(prefix)) + " counts",
                                "bind the namespace once, to \"" + std::string(row.Prefix) + "\"");
    }
    if ((row.FoundAt & level_) != 0 && item.Name != row.FullName())
        report_.Warn(item.Line,
                     what + " is not written " + row.FullName() + ", so " + std::string(row.Otherwise),
                     "bind \"" + std::string(row.Prefix) + "\" to its namespace and use it");
    const bool saysNothing = item.Kind == ItemKind::Feature && !HasNamedOption(item);
    if (!saysNothing && !seen_.emplace(item.Kind, item.Space, item.Local).second)
        return report_.Warn(item.Line, what + " stands there a second time; only the first counts");
    if ((row.ReadAt & level_) != 0) CheckValue(item, row);
}

void TicketChecker::CheckValue(const TicketItem& item, const ItemRow& row) {
    if (item.Kind == ItemKind::Feature) return CheckOptions({items_, level_, job_}, item, row, report_);
    if (const auto fault = FaultOf(row.Allowed, item.Value))
        report_.Warn(item.Line, "value " + Quoted(item.Value) + " of " + item.Name + " " + fault->Text,
                     fault->Hint);
}

void TicketChecker::CheckOther(const TicketItem& item) {
    constexpr std::string_view elements[] = {"psf:Feature", "psf:ParameterInit"};
    report_.Warn(item.Line, "element " + Quoted(item.Name) + " counts for nothing in the root",
                 HintOf(item.Name, elements));
}

// The number of copies is looked for only where the ticket says how they are collated.
void TicketChecker::CheckCopies() {
    const TicketItem* copies =
        FindItem(items_, ItemKind::Parameter, KeywordsNamespace, "JobCopiesAllDocuments");
    const TicketItem* collate = FindItem(items_, ItemKind::Feature, KeywordsNamespace, "DocumentCollate");
    if (level_ != AtJob || copies == nullptr || collate != nullptr || copies->Value == "1") return;
    report_.Warn(copies->Line, "the number of copies counts for nothing without feature psk:DocumentCollate",
                 "say psk:Collated or psk:Uncollated");
}

void TicketChecker::WriteNothings() {
    for (const auto& [levels, names] : otherLevels_)
        report_.Note(names.Line, names.List() + " in a " + NamesOfLevels(level_) + " ticket: read at " +
                                     NamesOfLevels(levels) + " level alone");
    if (!published_.Names.empty())
        report_.Note(published_.Line, published_.List() + ": the device has no such thing");
    if (!parts_.Names.empty())
        report_.Note(parts_.Line, parts_.List() + ": properties in the root are not read");
    for (const auto& [space, names] : foreign_)
        report_.Warn(names.Line, names.List() + ": of another vendor's namespace " + space,
                     "the device's own is " + std::string(DevmodeNamespace));
}

void TicketChecker::Check() {
    CheckRoot();
    for (std::size_t at = 0; at < items_.size(); ++at) CheckItem(items_[at], root_.Children[at]);
    CheckCopies();
    WriteNothings();
}

// What a root is that isn't a Print Ticket's.
constexpr struct {
    std::string_view Local, What;
} otherRoots[] = {
    {"PrintCapabilities",
     "a PrintCapabilities document, which says what a printer can do, not what a job wants"},
    {"PrintTicket", "a PrintTicket element of another namespace than the framework's"},
    {"html", "an HTML page"},
    {"FixedPage", "a page of an XPS document, not its ticket"},
    {"FixedDocument", "a document part of an XPS package, not its ticket"},
    {"FixedDocumentSequence", "the document list of an XPS package, not its ticket"},
    {"Relationships", "a list of a package's relationships"},
};

void SayWhatElse(const XmlElement& root, TicketReport& report) {
    const auto row = std::ranges::find(otherRoots, std::string_view(root.Name.Local),
                                       &std::remove_cvref_t<decltype(otherRoots[0])>::Local);
    const std::string what = row == std::end(otherRoots)
                                 ? "a document with the root " + Quoted(root.Name.Local)
                                 : std::string(row->What);
    report.Warn(
        root.Line, "not a Print Ticket but " + what,
        "its root must be psf:PrintTicket, with xmlns:psf=\"" + std::string(FrameworkNamespace) + "\"");
}

}  // namespace

std::string JobState::Setting(std::string_view name) const {
    for (const char* group : SettingsGroups) {
        const Json::Value& members = Settings[group];
        const Json::Value* value = members.find(name.data(), name.data() + name.size());
        if (value != nullptr) return value->isConvertibleTo(Json::stringValue) ? value->asString() : "";
    }
    return "";
}

void CheckTicket(const TicketContent& ticket, Level level, JobState& job, TicketReport& report) {
    if (!IsPrintTicket(ticket.Root)) return SayWhatElse(ticket.Root, report);
    TicketChecker(ticket, level, job, report).Check();
}

}  // namespace TicketHost
