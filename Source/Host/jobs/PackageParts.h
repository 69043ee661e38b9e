#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Host/ground/Platform.h"
#include "Host/jobs/PartNames.h"
#include "Host/jobs/ZipArchive.h"
#include "Platform/XmlElement.h"

namespace TicketHost {

// What leads from a part, or from the whole package, to another part.
struct Relationship {
    std::string Type;
    std::string Target;       // a reference (PartNames.h)
    bool IsExternal = false;  // leads out of the package
    int Line = 0;
};

// The parts of a package that goes by the Open Packaging Conventions. They are asked for by their names in
// any form (PartNames.h). Throws InputError, "PACKAGE: PART: cause".
class PackageParts {
public:
    // Refuses two entries for one part. What can't be a part, such as a folder, counts for nothing. The
    // archive must outlive this.
    explicit PackageParts(const ZipArchive& archive);

    bool Has(std::string_view part) const { return parts_.contains(KeyOfPart(part)); }
    // The rest throws for a part that isn't there.
    std::string NameOf(std::string_view part) const;  // as the archive has it
    // How many bytes the part has. Throws when Read would refuse the part without a look at them.
    std::uint64_t MeasurePart(std::string_view part) const;
    // The bytes of a part that is XML. Refuses one with so much markup that its tree would fill the memory.
    std::string Read(std::string_view part) const;
    Platform::XmlElement ReadXml(std::string_view part) const;
    // The relationships that a part holds, which is one of those that are there for nothing else.
    std::vector<Relationship> ReadRelationships(std::string_view part) const;
    // The value of an attribute that an element of the part must have.
    std::string RequireAttribute(std::string_view part, const Platform::XmlElement& element,
                                 std::string_view name) const;
    // The entries that a part's bytes stand in, one behind the other.
    const std::vector<std::uint64_t>& EntriesOf(std::string_view part) const;

    // "PACKAGE: PART:LINE: cause"; without a line where that is 0.
    [[noreturn]] void Fail(std::string_view part, int line, const std::string& cause) const;

private:
    struct PieceEntry {
        std::size_t Number = 0;
        bool IsLast = false;
        std::uint64_t Entry = 0;
    };
    using Pieces = std::unordered_map<std::string, std::vector<PieceEntry>>;

    void AddEntry(std::uint64_t index, Pieces& pieces);
    void AddPieces(const std::string& key, std::vector<PieceEntry>& pieces);

    const ZipArchive& archive_;
    // By key. A part whose pieces aren't complete has no entries.
    std::unordered_map<std::string, std::vector<std::uint64_t>> parts_;
};

}  // namespace TicketHost
