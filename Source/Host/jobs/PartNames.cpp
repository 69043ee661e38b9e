#include "Host/jobs/PartNames.h"

#include <algorithm>
#include <charconv>

namespace TicketHost {
namespace {

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Decodes what is percent-encoded; a "%" that begins nothing of the kind stays.
std::string Decode(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    while (!text.empty()) {
        unsigned char byte = 0;
        const char* digits = text.data() + 1;
        const bool isEncoded = text.size() >= 3 && text[0] == '%' &&
                               std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
        decoded += isEncoded ? static_cast<char>(byte) : text[0];
        text.remove_prefix(isEncoded ? 3 : 1);
    }
    return decoded;
}

std::string WithSlashes(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

// Whether a reference begins with a scheme, as in "http:".
bool HasScheme(std::string_view reference) {
    const std::size_t colon = reference.find_first_of(":/");
    return colon != reference.npos && reference[colon] == ':';
}

// Takes out empty folders, "." and the folders that a ".." goes back over; none leads out of the root.
std::string WithoutDots(std::string_view path) {
    std::string result;
    for (std::size_t at = 0; at < path.size();) {  // at a slash
        const std::size_t next = std::min(path.find('/', at + 1), path.size());
        const std::string segment = Decode(path.substr(at, next - at));
        if (segment == "/..")
            result.resize(result.empty() ? 0 : result.rfind('/'));
        else if (segment != "/." && segment != "/")
            result += path.substr(at, next - at);
        at = next;
    }
    return result;
}

std::size_t BehindFolder(std::string_view name) { return name.rfind('/') + 1; }

}  // namespace

std::string KeyOfPart(std::string_view name) {
    std::string key = WithSlashes(Decode(name));
    std::transform(key.begin(), key.end(), key.begin(), LowerCase);
    return key;
}

std::optional<std::string> ResolvePart(std::string_view base, std::string_view reference) {
    reference = reference.substr(0, reference.find_first_of("?#"));
    if (reference.empty() || reference.starts_with("//") || HasScheme(reference)) return {};
    std::string path = WithSlashes(std::string(reference));
    if (!path.starts_with('/')) path.insert(0, base.substr(0, BehindFolder(base)));
    if (path.ends_with('/')) return {};
    path = WithoutDots(path);
    if (path.empty()) return {};
    return path;
}

std::string RelationshipsOf(std::string_view name) {
    const std::size_t file = BehindFolder(name);
    return std::string(name.substr(0, file)) + "_rels/" + std::string(name.substr(file)) + ".rels";
}

std::optional<Piece> ReadPieceName(std::string_view name) {
    std::string end(name.substr(std::min(name.rfind('/'), name.size())));
    std::transform(end.begin(), end.end(), end.begin(), LowerCase);
    Piece piece;
    if (!end.starts_with("/[")) return {};
    const char* digits = end.data() + 2;
    const auto [rest, error] = std::from_chars(digits, end.data() + end.size(), piece.Number);
    const std::string_view ending(rest);
    piece.IsLast = ending == "].last.piece";
    if (error != std::errc() || (!piece.IsLast && ending != "].piece")) return {};
    if (*digits == '0' && rest != digits + 1) return {};  // no leading zeros
    piece.Part = name.substr(0, name.size() - end.size());
    return piece;
}

std::string PartOfEntry(std::string_view entry) {
    const std::optional<Piece> piece = ReadPieceName(entry);
    return std::string(1, '/').append(piece ? piece->Part : entry);
}

}  // namespace TicketHost
