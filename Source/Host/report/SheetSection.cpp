#include "Host/report/SheetSection.h"

#include <cstdlib>
#include <string_view>

#include "Host/report/SheetDrawing.h"

namespace TicketHost {
namespace {

constexpr double columnWidth = 240;  // pixels, as ReportStyle has it; a broad drawing takes two columns

// Micrometres as millimetres, to the last digit that isn't 0.
std::string Millimetres(std::int64_t micrometres) {
    const std::string whole = std::to_string(micrometres / 1000);
    std::string part = std::to_string(1000 + micrometres % 1000).substr(1);
    part.erase(part.find_last_not_of('0') + 1);
    return part.empty() ? whole : whole + "." + part;
}

std::string Dimensions(const PageFacts& facts) {
    if (facts.Width == 0 || facts.Height == 0) return "dimensions not known";
    return Millimetres(facts.Width) + "\u00A0\u00D7\u00A0" + Millimetres(facts.Height) + "\u00A0mm";
}

std::string PagesOf(const SheetRun& run) {
    const std::size_t first = run.Front.Number, last = run.LastPage;
    if (first == 0) return "The job itself";
    if (first == last) return "Page " + std::to_string(first);
    return "Pages " + std::to_string(first) + (run.Sheets == 1 ? " and " : " to ") + std::to_string(last);
}

class Caption {
public:
    explicit Caption(HtmlWriter& html) : html_(html), list_(html.In("dl")) {}

    void Add(std::string_view label, std::string_view value, std::string_view doubt = {}) {
        html_.Put("dt", label);
        const auto description = html_.In("dd");
        html_.Text(value);
        if (doubt.empty()) return;
        if (!value.empty()) html_.Text(", ");
        html_.Put("span", {{"class", "doubt"}}, doubt);
    }

    // A medium or a bin, or what the back has instead.
    void AddFact(std::string_view label, const PageFact& fact) {
        if (fact.Name.empty())
            Add(label, "", "not given");
        else
            Add(label, fact.Name, fact.IsSent ? "" : "no line says so");
    }

private:
    HtmlWriter& html_;
    HtmlWriter::Scope list_;
};

void AddSize(Caption& caption, const PageFacts& facts) {
    if (facts.Size.Name.empty()) return caption.AddFact("Size", facts.Size);
    const std::string name = facts.Size.Name + ", " + Dimensions(facts);
    caption.Add("Size", name, facts.Size.IsSent ? "" : "no line says so");
    if (!facts.TicketSize.empty() && facts.TicketSize != facts.Size.Name)
        caption.Add("", "in the ticket " + facts.TicketSize);
}

std::string OrientationOf(const PageFacts& facts) {
    if (facts.Orientation.empty()) return "";
    return facts.Orientation + (facts.IsJobsOrientation ? " (the job\u2019s)" : "");
}

void AddOrientation(Caption& caption, const SheetRun& run) {
    std::string front = OrientationOf(run.Front.Facts);
    const std::string back = run.Back ? OrientationOf(run.Back->Facts) : front;
    if (front != back) front += ", back " + (back.empty() ? "not given" : back);
    caption.Add("Reads", front, front.empty() ? "not given" : "");
}

// "long edge, left" as the front is read.
std::string EdgeOf(const PageFacts& facts) {
    const bool isLeft = facts.Edge == TurningEdge::Left;
    const std::string place = isLeft ? "left" : "top";
    if (facts.Width == facts.Height) return place + " edge";
    const bool isLong = isLeft == (facts.ReadHeight() > facts.ReadWidth());
    return std::string(isLong ? "long" : "short") + " edge, " + place;
}

void AddSides(Caption& caption, const SheetRun& run, bool isBooklet) {
    const PageFacts& facts = run.Front.Facts;
    if (facts.Edge == TurningEdge::None)
        return caption.Add("Sides", facts.IsOneSided ? "one" : "", facts.IsOneSided ? "" : "no line says so");
    if (facts.IsOneSided)
        return caption.Add("Sides", "one", "yet a line for two goes with it: " + EdgeOf(facts));
    const bool isEmpty = !run.Back && !isBooklet && run.Front.Number > 0;
    caption.Add("Sides", "two, turned on the " + EdgeOf(facts) + (isEmpty ? "; back empty" : ""));
}

void WriteCaption(HtmlWriter& html, const SheetRun& run, const CallAccounts& calls, bool isBooklet) {
    const auto element = html.In("figcaption");
    {
        const auto heading = html.In("h3");
        calls.PutLink(html, run.Front.Call, PagesOf(run));
        if (run.Sheets > 1)
            html.Put("span", {{"class", "quiet"}}, " \u00B7 " + std::to_string(run.Sheets) + " sheets");
    }
    if (run.Front.Facts.Failed) html.Put("p", {{"class", "bad"}}, "The call failed.");
    Caption caption(html);
    AddSize(caption, run.Front.Facts);
    AddOrientation(caption, run);
    caption.AddFact("Medium", run.Front.Facts.Medium);
    caption.AddFact("Bin", run.Front.Facts.Bin);
    AddSides(caption, run, isBooklet);
}

void WriteLegend(HtmlWriter& html, const SheetScale& scale) {
    const auto legend = html.In("p", {{"class", "legend"}});
    {
        const auto entry = html.In("span");
        DrawScaleBar(html, scale);
        html.Text("100 mm; all to one scale, as they are read");
    }
    const auto entry = html.In("span");
    DrawEdgeSample(html);
    html.Text("the edge that turns");
}

void WriteNotes(HtmlWriter& html, const SheetRow& sheets, bool isBooklet) {
    if (isBooklet)
        html.Put(
            "p", {{"class", "quiet wide"}},
            "Booklet is on: the device arranges the pages on its sheets, so each stands by itself here.");
    if (sheets.PagesLeftOut() > 0)
        html.Put("p", {{"class", "doubt wide"}},
                 std::to_string(sheets.PagesLeftOut()) + " more pages are not drawn, since more than " +
                     std::to_string(SheetRow::MostRuns) + " sheets differ from the one before.");
}

}  // namespace

void WriteSheetSection(HtmlWriter& html, const SheetRow& sheets, const CallAccounts& calls, bool isBooklet) {
    const auto section = html.In("section", {{"aria-labelledby", "sheets"}});
    html.Put("h2", {{"id", "sheets"}, {"tabindex", "-1"}}, "Sheets");
    if (sheets.Runs().empty()) return html.Put("p", {{"class", "quiet"}}, "No page was converted.");
    const SheetScale scale = ScaleOf(sheets.Runs());
    WriteLegend(html, scale);
    {
        const auto row = html.In("ol", {{"class", "sheets"}});
        for (const SheetRun& run : sheets.Runs()) {
            const bool isBroad = WidthOfDrawing(run, scale) > columnWidth;
            const auto item = html.In("li", {{"class", isBroad ? "broad" : "sheet"}});
            const auto figure = html.In("figure");
            DrawSheets(html, run, scale);
            WriteCaption(html, run, calls, isBooklet);
        }
    }
    WriteNotes(html, sheets, isBooklet);
}

}  // namespace TicketHost
