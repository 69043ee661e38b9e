#include "Host/jobs/Package.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Host/ground/Errors.h"
#include "Host/jobs/PartNames.h"
#include "devicespecific/DeviceSpecificModule.h"

namespace TicketHost {
namespace {

using Platform::XmlElement;

constexpr std::size_t mostCalls = 100'000;
constexpr std::uint64_t mostBytes = 256 << 20;

// The namespaces of both kinds of package. The types of their relationships are names behind a slash.
constexpr std::string_view namespaces[] = {"http://schemas.microsoft.com/xps/2005/06",
                                           "http://schemas.openxps.org/oxps/v1.0"};
constexpr std::string_view representation = "/fixedrepresentation", printTicket = "/printticket";

constexpr const char* rootRelationships = "/_rels/.rels";

constexpr std::string_view compatibilityNamespace =
    "http://schemas.openxmlformats.org/markup-compatibility/2006";

constexpr std::string_view emptyTicket =
    "<psf:PrintTicket "
    "xmlns:psf=\"http://schemas.microsoft.com/windows/2003/08/printing/printschemaframework\""
    " xmlns:psk=\"http://schemas.microsoft.com/windows/2003/08/printing/printschemakeywords\""
    " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
    " xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" version=\"1\"/>";

bool IsOurs(std::string_view space) { return std::ranges::find(namespaces, space) != std::end(namespaces); }

std::string DescribeName(const Platform::XmlName& name) {
    if (IsOurs(name.Namespace)) return name.Local;
    return name.Local + (name.Namespace.empty() ? " without a namespace" : " of " + name.Namespace);
}

bool HasType(const Relationship& relationship, std::string_view name) {
    return std::ranges::any_of(namespaces, [&](std::string_view space) {
        const std::string_view type = relationship.Type;
        return type.starts_with(space) && type.substr(space.size()) == name;
    });
}

std::shared_ptr<const Ticket> NoTicketIn(const Package& package) {
    const Ticket ticket{package.Archive->Name() + ": no ticket", std::string(emptyTicket), {}};
    return std::make_shared<const Ticket>(ticket);
}

// One part that a call is made for.
struct Step {
    std::int32_t Level = 0;
    std::string Part;
};

// Reads a package in steps, each of which first looks at how much it will read.
class CallReader {
public:
    explicit CallReader(const Package& package) : package_(package), parts_(package.Parts) {}

    std::vector<Call> Read();

private:
    using Names = std::vector<std::string>;

    void Charge(const std::string& part);
    void AddStep(std::int32_t level, const std::string& part);
    void AddDocuments(const Names& documents);
    std::string Resolve(std::string_view holder, int line, std::string_view base,
                        const std::string& reference) const;
    std::string TargetOf(std::string_view part, std::string_view type) const;
    Names ReferencesIn(const std::string& part, std::string_view root, std::string_view child) const;
    void AddReferences(const std::string& part, const XmlElement& element, std::string_view child,
                       Names& references) const;
    void FindTickets();
    std::vector<Call> MakeCalls() const;

    const Package& package_;
    const PackageParts& parts_;
    std::uint64_t bytes_ = 0;  // of the parts that are read
    std::vector<Step> steps_;
    // The part that is the ticket of a part; empty where it has none, absent until it was looked for.
    std::unordered_map<std::string, std::optional<std::string>> tickets_;
};

void CallReader::Charge(const std::string& part) {
    bytes_ += parts_.MeasurePart(part);
    if (bytes_ > mostBytes) throw InputError(package_.Archive->Name(), "more than 256 MiB to read");
}

void CallReader::AddStep(std::int32_t level, const std::string& part) {
    if (steps_.size() == mostCalls)
        throw InputError(package_.Archive->Name(),
                         "more than " + std::to_string(mostCalls) + " documents and pages");
    steps_.push_back({level, part});
}

// The name of the part that a reference in `holder` names, which counts from `base`.
std::string CallReader::Resolve(std::string_view holder, int line, std::string_view base,
                                const std::string& reference) const {
    const std::optional<std::string> part = ResolvePart(base, reference);
    if (!part) parts_.Fail(holder, line, "\"" + reference + "\" names no part of the package");
    if (!parts_.Has(*part)) parts_.Fail(holder, line, "names " + *part + ", which is not in the package");
    return parts_.NameOf(*part);
}

// The one part that a part, or the package ("/"), has a relationship of that type to; empty where there is
// none.
std::string CallReader::TargetOf(std::string_view part, std::string_view type) const {
    const std::string holder = RelationshipsOf(part);
    if (!parts_.Has(holder)) return {};
    std::string target;
    for (const Relationship& relationship : parts_.ReadRelationships(holder)) {
        if (!HasType(relationship, type)) continue;
        const int line = relationship.Line;
        if (relationship.IsExternal)
            parts_.Fail(holder, line, "\"" + relationship.Target + "\" is not in the package");
        const std::string found = Resolve(holder, line, part, relationship.Target);
        if (!target.empty() && found != target)
            parts_.Fail(holder, line, "has a second relationship of the type " + relationship.Type);
        target = found;
    }
    return target;
}

// Only a fallback of what there are choices for asks for no namespace but ours.
void CallReader::AddReferences(const std::string& part, const XmlElement& element, std::string_view child,
                               Names& references) const {
    for (const XmlElement& each : element.Children) {
        const auto& [prefix, local, space] = each.Name;
        if (space == compatibilityNamespace && (local == "AlternateContent" || local == "Fallback"))
            AddReferences(part, each, child, references);
        if (!IsOurs(space)) continue;
        if (local != child)
            parts_.Fail(part, each.Line,
                        "holds " + local + " where only " + std::string(child) + " may stand");
        references.push_back(Resolve(part, each.Line, part, parts_.RequireAttribute(part, each, "Source")));
    }
}

// The parts that the children of a part's root refer to, by the names of both elements.
CallReader::Names CallReader::ReferencesIn(const std::string& part, std::string_view root,
                                           std::string_view child) const {
    const XmlElement element = parts_.ReadXml(part);
    if (!IsOurs(element.Name.Namespace) || element.Name.Local != root)
        parts_.Fail(part, element.Line, "is no " + std::string(root) + " but " + DescribeName(element.Name));
    Names references;
    AddReferences(part, element, child, references);
    if (references.empty()) parts_.Fail(part, element.Line, "holds no " + std::string(child));
    return references;
}

void CallReader::AddDocuments(const Names& documents) {
    std::unordered_map<std::string, Names> pages;
    for (const std::string& document : documents)
        if (pages.try_emplace(document).second) Charge(document);
    for (const std::string& document : documents) {
        Names& ofDocument = pages[document];
        if (ofDocument.empty()) ofDocument = ReferencesIn(document, "FixedDocument", "PageContent");
        AddStep(DeviceSpecificModule::DocumentLevel, document);
        for (const std::string& page : ofDocument) AddStep(DeviceSpecificModule::PageLevel, page);
    }
}

void CallReader::FindTickets() {
    for (const Step& step : steps_) {
        const std::string relationships = RelationshipsOf(step.Part);
        if (tickets_.try_emplace(step.Part).second && parts_.Has(relationships)) Charge(relationships);
    }
    std::unordered_set<std::string_view> charged;
    for (const Step& step : steps_) {
        std::optional<std::string>& ticket = tickets_.at(step.Part);
        if (ticket) continue;
        ticket = TargetOf(step.Part, printTicket);
        if (!ticket->empty() && charged.insert(*ticket).second) Charge(*ticket);
    }
}

std::vector<Call> CallReader::MakeCalls() const {
    std::unordered_map<std::string_view, std::shared_ptr<const Ticket>> read;
    std::vector<Call> calls;
    calls.reserve(steps_.size());
    for (const Step& step : steps_) {
        const std::string& part = *tickets_.at(step.Part);
        std::shared_ptr<const Ticket>& ticket = read[part];
        if (!ticket) ticket = part.empty() ? NoTicketIn(package_) : ReadPackageTicket(package_, part);
        calls.push_back({step.Level, ticket});
    }
    return calls;
}

std::vector<Call> CallReader::Read() {
    Charge(rootRelationships);
    const std::string sequence = TargetOf("/", representation);
    if (sequence.empty())
        parts_.Fail(rootRelationships, 0,
                    "leads to no fixed representation, as that of an XPS or OpenXPS package does");
    Charge(sequence);
    AddStep(DeviceSpecificModule::JobLevel, sequence);
    AddDocuments(ReferencesIn(sequence, "FixedDocumentSequence", "DocumentReference"));
    FindTickets();
    return MakeCalls();
}

}  // namespace

std::vector<Call> ReadPackageCalls(const Package& package) { return CallReader(package).Read(); }

bool IsOpenXps(const Package& package) {
    const std::vector<Relationship> relationships = package.Parts.ReadRelationships(rootRelationships);
    return std::ranges::any_of(relationships, [](const Relationship& relationship) {
        return HasType(relationship, representation) && relationship.Type.starts_with(namespaces[1]);
    });
}

std::shared_ptr<const Ticket> ReadPackageTicket(const Package& package, std::string_view part) {
    const std::string& file = package.Archive->Name();
    const std::string name = package.Parts.NameOf(part);
    return MakeTicket({file + name, package.Parts.Read(part), name}, file + ": " + name);
}

}  // namespace TicketHost
