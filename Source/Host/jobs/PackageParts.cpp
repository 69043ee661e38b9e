#include "Host/jobs/PackageParts.h"

#include <algorithm>

#include "Host/ground/Errors.h"

namespace TicketHost {
namespace {

constexpr std::string_view relationshipNamespace =
    "http://schemas.openxmlformats.org/package/2006/relationships";

// Of tags and attributes in a part: its tree takes a hundred times the memory of a short one of these.
constexpr std::ptrdiff_t mostMarkup = 120'000;

const std::string* FindAttribute(const Platform::XmlElement& element, std::string_view name) {
    for (const Platform::XmlAttribute& attribute : element.Attributes)
        if (attribute.Name.Local == name && attribute.Name.Namespace.empty()) return &attribute.Value;
    return nullptr;
}

bool IsRelationshipName(const Platform::XmlName& name, std::string_view local) {
    return name.Local == local && name.Namespace == relationshipNamespace;
}

}  // namespace

PackageParts::PackageParts(const ZipArchive& archive) : archive_(archive) {
    Pieces pieces;
    for (std::uint64_t index = 0; index < archive.Count(); ++index) AddEntry(index, pieces);
    for (auto& [key, ofPart] : pieces) AddPieces(key, ofPart);
}

void PackageParts::AddEntry(std::uint64_t index, Pieces& pieces) {
    const std::string name = archive_.Entry(index).Name;
    if (name.empty() || name.ends_with('/')) return;
    const std::string part = PartOfEntry(name), key = KeyOfPart(part);
    if (const std::optional<Piece> piece = ReadPieceName(name))
        pieces[key].push_back({piece->Number, piece->IsLast, index});
    else if (!parts_.try_emplace(key, 1, index).second)
        Fail(part, 0, "more than one entry of this name");
}

void PackageParts::AddPieces(const std::string& key, std::vector<PieceEntry>& pieces) {
    std::ranges::sort(pieces, {}, &PieceEntry::Number);
    const std::string name = PartOfEntry(archive_.Entry(pieces.front().Entry).Name);
    const auto [part, isNew] = parts_.try_emplace(key);
    if (!isNew || std::ranges::adjacent_find(pieces, {}, &PieceEntry::Number) != pieces.end())
        Fail(name, 0, "more than one entry of this name");
    const auto last = std::ranges::find(pieces, true, &PieceEntry::IsLast);
    const bool isComplete = last + 1 == pieces.end() && last->Number + 1 == pieces.size();
    if (!isComplete) return;
    for (const PieceEntry& piece : pieces) part->second.push_back(piece.Entry);
}

const std::vector<std::uint64_t>& PackageParts::EntriesOf(std::string_view part) const {
    const auto found = parts_.find(KeyOfPart(part));
    if (found == parts_.end()) Fail(part, 0, "is not in the package");
    if (found->second.empty()) Fail(part, 0, "has not all of its pieces");
    return found->second;
}

std::string PackageParts::NameOf(std::string_view part) const {
    return PartOfEntry(archive_.Entry(EntriesOf(part).front()).Name);
}

std::uint64_t PackageParts::MeasurePart(std::string_view part) const {
    std::uint64_t bytes = 0;
    for (const std::uint64_t entry : EntriesOf(part)) {
        archive_.RequireReadable(entry);
        bytes += archive_.Entry(entry).Bytes;
    }
    if (bytes > ZipLimits::EntryBytes) Fail(NameOf(part), 0, "larger than 16 MiB");
    return bytes;
}

std::string PackageParts::Read(std::string_view part) const {
    MeasurePart(part);
    std::string bytes;
    for (const std::uint64_t entry : EntriesOf(part)) bytes += archive_.Read(entry);
    if (std::ranges::count(bytes, '<') + std::ranges::count(bytes, '=') > mostMarkup)
        Fail(NameOf(part), 0, "more than " + std::to_string(mostMarkup) + " tags and attributes");
    return bytes;
}

Platform::XmlElement PackageParts::ReadXml(std::string_view part) const {
    const std::string bytes = Read(part);
    Platform::ParseError error;
    if (auto root = Platform::ReadXml(bytes, error)) return std::move(*root);
    std::string place = NameOf(part);
    if (error.Line > 0)
        place.append(":").append(std::to_string(error.Line)).append(":").append(std::to_string(error.Column));
    throw InputError(archive_.Name(), place, error.Reason);
}

std::vector<Relationship> PackageParts::ReadRelationships(std::string_view part) const {
    const Platform::XmlElement root = ReadXml(part);
    if (!IsRelationshipName(root.Name, "Relationships"))
        Fail(NameOf(part), root.Line, "is no Relationships but " + root.Name.Local);
    std::vector<Relationship> relationships;
    for (const Platform::XmlElement& child : root.Children) {
        if (!IsRelationshipName(child.Name, "Relationship")) continue;
        const std::string* mode = FindAttribute(child, "TargetMode");
        relationships.push_back({RequireAttribute(part, child, "Type"),
                                 RequireAttribute(part, child, "Target"),
                                 mode != nullptr && *mode == "External", child.Line});
    }
    return relationships;
}

std::string PackageParts::RequireAttribute(std::string_view part, const Platform::XmlElement& element,
                                           std::string_view name) const {
    if (const std::string* value = FindAttribute(element, name)) return *value;
    Fail(NameOf(part), element.Line, element.Name.Local + " has no " + std::string(name));
}

void PackageParts::Fail(std::string_view part, int line, const std::string& cause) const {
    std::string place(part);
    if (line > 0) place.append(":").append(std::to_string(line));
    throw InputError(archive_.Name(), place, cause);
}

}  // namespace TicketHost
