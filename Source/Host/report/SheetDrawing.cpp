#include "Host/report/SheetDrawing.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>

namespace TicketHost {
namespace {

// Pixels.
constexpr double margin = 3;
constexpr double gap = 8;        // between a front and its back
constexpr double stackStep = 4;  // between equal sheets behind each other
constexpr double longestSide = 190;
constexpr double shortestSide = 12;
constexpr double cutSide = 240;                             // of what is longer than that
constexpr double smallestScale = 0.22, largestScale = 0.5;  // pixels per millimetre

constexpr double micrometres = 1000;                       // in a millimetre
constexpr double unknownWidth = 210, unknownHeight = 297;  // millimetres, for a size that isn't known

struct Box {
    double Left = 0, Top = 0, Width = 0, Height = 0;
    double Right() const { return Left + Width; }
    double Bottom() const { return Top + Height; }
};

bool IsKnown(const PageFacts& facts) { return facts.Width > 0 && facts.Height > 0; }

double MillimetresWide(const PageFacts& facts) {
    if (IsKnown(facts)) return static_cast<double>(facts.ReadWidth()) / micrometres;
    return facts.IsAcross() ? unknownHeight : unknownWidth;
}

double MillimetresHigh(const PageFacts& facts) {
    if (IsKnown(facts)) return static_cast<double>(facts.ReadHeight()) / micrometres;
    return facts.IsAcross() ? unknownWidth : unknownHeight;
}

double PixelsOf(double millimetres, const SheetScale& scale) {
    return std::clamp(millimetres * scale.PixelsPerMillimetre, shortestSide, cutSide);
}

// One decimal is finer than a screen shows.
std::string Number(double pixels) {
    char digits[32];
    const auto [end, error] =
        std::to_chars(digits, digits + sizeof digits, pixels, std::chars_format::fixed, 1);
    return {digits, end};
}

// Points of a line, as "M1,2 L3,4".
std::string Path(std::initializer_list<std::pair<double, double>> points) {
    std::string path;
    for (const auto& [x, y] : points) path += (path.empty() ? "M" : " L") + Number(x) + "," + Number(y);
    return path;
}

Box BoxOf(const PageFacts& facts, const SheetScale& scale, double left, double bottom) {
    const double height = PixelsOf(MillimetresHigh(facts), scale);
    return {left, bottom - height, PixelsOf(MillimetresWide(facts), scale), height};
}

void DrawRectangle(HtmlWriter& html, const Box& box, const std::string& kind) {
    html.PutEmpty("rect", {{"class", kind},
                           {"x", Number(box.Left)},
                           {"y", Number(box.Top)},
                           {"width", Number(box.Width)},
                           {"height", Number(box.Height)}});
}

void DrawPath(HtmlWriter& html, const std::string& kind, const std::string& path) {
    html.PutEmpty("path", {{"class", kind}, {"d", path}});
}

// The edge of the front as it is read, and the same edge of the back as that is read.
void DrawEdge(HtmlWriter& html, const Box& box, TurningEdge edge, bool isBack) {
    constexpr double inset = 2;  // half the line's width
    const double x = isBack ? box.Right() - inset : box.Left + inset;
    const double y = isBack ? box.Bottom() - inset : box.Top + inset;
    if (edge == TurningEdge::Left) DrawPath(html, "edge", Path({{x, box.Top}, {x, box.Bottom()}}));
    if (edge == TurningEdge::Top) DrawPath(html, "edge", Path({{box.Left, y}, {box.Right(), y}}));
}

// A zigzag over the middle of a side that is longer than it is drawn.
void DrawCut(HtmlWriter& html, const Box& box, bool isTall) {
    constexpr double tooth = 5;
    const double x = box.Left + box.Width / 2, y = box.Top + box.Height / 2;
    const double left = box.Left - tooth / 2, right = box.Right() + tooth / 2;
    const double top = box.Top - tooth / 2, bottom = box.Bottom() + tooth / 2;
    if (isTall)
        DrawPath(html, "cut", Path({{left, y}, {x - tooth, y - tooth}, {x + tooth, y + tooth}, {right, y}}));
    else
        DrawPath(html, "cut", Path({{x, top}, {x - tooth, y - tooth}, {x + tooth, y + tooth}, {x, bottom}}));
}

void DrawNumber(HtmlWriter& html, const Box& box, std::size_t number) {
    const std::string text = number == 0 ? "job" : std::to_string(number);
    const double room = 0.8 * box.Width / (0.6 * static_cast<double>(text.size()));
    const double size = std::min({20.0, 0.5 * box.Height, room});
    html.Put("text",
             {{"class", "number"},
              {"x", Number(box.Left + box.Width / 2)},
              {"y", Number(box.Top + box.Height / 2 + 0.35 * size)},
              {"font-size", Number(size)}},
             text);
}

void DrawSide(HtmlWriter& html, const SheetPage& page, const Box& box, const SheetScale& scale, bool isBack) {
    const PageFacts& facts = page.Facts;
    DrawRectangle(html, box, IsKnown(facts) && !facts.Failed ? "paper" : "paper unknown");
    if (facts.Failed)
        DrawPath(html, "failed-page",
                 Path({{box.Left, box.Top}, {box.Right(), box.Bottom()}}) + " " +
                     Path({{box.Right(), box.Top}, {box.Left, box.Bottom()}}));
    DrawEdge(html, box, facts.Edge, isBack);
    const bool isTall = MillimetresHigh(facts) * scale.PixelsPerMillimetre > cutSide;
    if (isTall || MillimetresWide(facts) * scale.PixelsPerMillimetre > cutSide) DrawCut(html, box, isTall);
    DrawNumber(html, box, page.Number);
}

void DrawStack(HtmlWriter& html, Box box) {
    for (int behind = 2; behind > 0; --behind)
        DrawRectangle(html,
                      {box.Left + behind * stackStep, box.Top - behind * stackStep, box.Width, box.Height},
                      "paper");
}

struct Drawing {
    Box Front, Back;
    double Width = 0, Height = 0;
};

// Front and back stand on one line. A stack takes room above and to the right.
Drawing LayOut(const SheetRun& run, const SheetScale& scale) {
    const double stack = run.Sheets > 1 ? 2 * stackStep : 0;
    const PageFacts& back = run.Back ? run.Back->Facts : run.Front.Facts;
    const double highest =
        std::max(PixelsOf(MillimetresHigh(run.Front.Facts), scale), PixelsOf(MillimetresHigh(back), scale));
    const double bottom = margin + stack + highest;
    Drawing drawing;
    drawing.Front = drawing.Back = BoxOf(run.Front.Facts, scale, margin, bottom);
    if (run.Back) drawing.Back = BoxOf(back, scale, drawing.Front.Right() + stack + gap, bottom);
    drawing.Width = drawing.Back.Right() + stack + margin;
    drawing.Height = bottom + margin;
    return drawing;
}

HtmlWriter::Scope Picture(HtmlWriter& html, double width, double height) {
    return html.In("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                           {"aria-hidden", "true"},
                           {"width", Number(width)},
                           {"height", Number(height)},
                           {"viewBox", "0 0 " + Number(width) + " " + Number(height)}});
}

}  // namespace

SheetScale ScaleOf(std::span<const SheetRun> runs) {
    double longest = 1;
    for (const SheetRun& run : runs)
        for (const SheetPage* page : {&run.Front, run.Back ? &*run.Back : &run.Front})
            longest = std::max({longest, MillimetresWide(page->Facts), MillimetresHigh(page->Facts)});
    return {std::clamp(longestSide / longest, smallestScale, largestScale)};
}

double WidthOfDrawing(const SheetRun& run, const SheetScale& scale) { return LayOut(run, scale).Width; }

void DrawSheets(HtmlWriter& html, const SheetRun& run, const SheetScale& scale) {
    const Drawing drawing = LayOut(run, scale);
    const HtmlWriter::Scope picture = Picture(html, drawing.Width, drawing.Height);
    if (run.Sheets > 1) DrawStack(html, drawing.Front);
    if (run.Sheets > 1 && run.Back) DrawStack(html, drawing.Back);
    DrawSide(html, run.Front, drawing.Front, scale, false);
    if (run.Back) DrawSide(html, *run.Back, drawing.Back, scale, true);
}

void DrawScaleBar(HtmlWriter& html, const SheetScale& scale) {
    constexpr double height = 9;
    const double length = 100 * scale.PixelsPerMillimetre;
    const HtmlWriter::Scope picture = Picture(html, length + 2, height);
    DrawPath(html, "bar",
             Path({{1, 0}, {1, height}}) + " " + Path({{length + 1, 0}, {length + 1, height}}) + " " +
                 Path({{1, height / 2}, {length + 1, height / 2}}));
}

void DrawEdgeSample(HtmlWriter& html) {
    constexpr double side = 12;
    const HtmlWriter::Scope picture = Picture(html, side, side);
    DrawPath(html, "edge", Path({{2, 0}, {2, side}}));
}

}  // namespace TicketHost
