#include "Host/report/WarningSection.h"

#include <algorithm>
#include <span>

#include "Host/report/ReportWords.h"

namespace TicketHost {
namespace {

constexpr std::size_t mostFindings = 500;

std::string PlaceOf(const Finding& finding) {
    std::string place = finding.File;
    if (!finding.Place.empty()) place += ", " + finding.Place;
    return finding.Line > 0 ? place + ":" + std::to_string(finding.Line) : place;
}

void WriteFinding(HtmlWriter& html, const Finding& finding) {
    const auto entry = html.In("li");
    const bool isWarning = finding.Kind == FindingKind::Warning;
    html.Put("span", {{"class", isWarning ? "doubt" : "quiet"}}, isWarning ? "Warning: " : "Note: ");
    html.Text(finding.Text + (finding.Hint.empty() ? "" : "; " + finding.Hint));
    html.Put("p", {{"class", "path"}}, PlaceOf(finding));
}

}  // namespace

void WriteWarningSection(HtmlWriter& html, const Findings& findings) {
    if (findings.empty()) return;
    const auto section = html.In("section", {{"aria-labelledby", "warnings"}});
    html.Put("h2", {{"id", "warnings"}, {"tabindex", "-1"}}, "Warnings");
    {
        const auto list = html.In("ul", {{"class", "items"}});
        for (const Finding& finding : std::span(findings).first(std::min(findings.size(), mostFindings)))
            WriteFinding(html, finding);
    }
    if (findings.size() > mostFindings)
        html.Put("p", {{"class", "doubt"}},
                 CountOf(findings.size() - mostFindings, "more finding") + "; tickethost check shows all.");
}

}  // namespace TicketHost
