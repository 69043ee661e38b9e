#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace TicketHost {

// Names of a package's parts, such as "/Documents/1/FixedDocument.fdoc". Two names are one part's when their
// keys are the same: however they are percent-encoded, in ASCII letters of either case, and with either
// slash.
std::string KeyOfPart(std::string_view name);

// The absolute name of the part that a reference in `base` names. Nothing for a reference that can't name a
// part: an empty one, one to a folder and one out of the package.
std::optional<std::string> ResolvePart(std::string_view base, std::string_view reference);

// The part that holds the relationships of a part; for "/" those of the whole package.
std::string RelationshipsOf(std::string_view name);

// A part may stand in its archive in pieces, "NAME/[0].piece" and so on up to "NAME/[N].last.piece".
struct Piece {
    std::string_view Part;  // "NAME"
    std::size_t Number = 0;
    bool IsLast = false;
};
// Nothing for a name that is no piece's.
std::optional<Piece> ReadPieceName(std::string_view name);

// The name of the part that an entry of an archive is, or is a piece of.
std::string PartOfEntry(std::string_view entry);

}  // namespace TicketHost
