#include "Host/check/Findings.h"

#include <algorithm>

#include "Host/ground/Json.h"
#include "Host/ground/Texts.h"

namespace TicketHost {
namespace {

std::size_t Count(const Findings& findings, FindingKind kind) {
    return static_cast<std::size_t>(std::ranges::count(findings, kind, &Finding::Kind));
}

std::string Numbered(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string TextOf(const Finding& finding) {
    std::string text(finding.File);
    if (!finding.Place.empty()) text += ": " + finding.Place;
    if (finding.Line > 0) text += ":" + std::to_string(finding.Line);
    text += finding.Kind == FindingKind::Note ? ": note: " : ": ";
    text += finding.Text;
    return finding.Hint.empty() ? text : text + "; " + finding.Hint;
}

void WriteList(std::ostream& out, JsonWriter& json, const Findings& findings, FindingKind kind) {
    const char* separator = "\n    ";
    for (const Finding& finding : findings) {
        if (finding.Kind != kind) continue;
        out << separator << "{\"file\": ";
        json.Write(ToUtf8(FromUtf8(finding.File)));  // names of files may be any bytes
        if (!finding.Place.empty()) json.Write(((out << ", \"place\": "), finding.Place));
        if (finding.Line > 0) out << ", \"line\": " << finding.Line;
        json.Write(((out << ", \"text\": "), finding.Text));
        if (!finding.Hint.empty()) json.Write(((out << ", \"hint\": "), finding.Hint));
        out << "}";
        separator = ",\n    ";
    }
}

}  // namespace

std::size_t CountWarnings(const Findings& findings) { return Count(findings, FindingKind::Warning); }

std::string CountsOf(const Findings& findings) {
    const std::size_t warnings = CountWarnings(findings), notes = findings.size() - warnings;
    if (findings.empty()) return "nothing to warn of";
    if (notes == 0) return Numbered(warnings, "warning");
    return Numbered(warnings, "warning") + " and " + Numbered(notes, "note");
}

void WriteFindingsAsText(std::ostream& out, const Findings& findings) {
    for (const Finding& finding : findings) out << Visible(TextOf(finding)) << "\n";
    out << CountsOf(findings) << "\n";
}

void WriteFindingsAsJson(std::ostream& out, const Findings& findings) {
    JsonWriter json(out);
    out << "{\n  \"warnings\": [";
    WriteList(out, json, findings, FindingKind::Warning);
    out << "],\n  \"notes\": [";
    WriteList(out, json, findings, FindingKind::Note);
    out << "]\n}\n";
}

}  // namespace TicketHost
