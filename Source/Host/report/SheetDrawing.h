#pragma once

#include <span>

#include "Host/report/HtmlWriter.h"
#include "Host/report/Sheets.h"

namespace TicketHost {

// One scale for all sheets of a job, so that they can be compared.
struct SheetScale {
    double PixelsPerMillimetre = 1;
};

SheetScale ScaleOf(std::span<const SheetRun> runs);

// Draws a sheet as it is read, its front and beside it its back, with the pages' numbers and the edge that
// turns. A size that isn't known is dashed, one longer than the drawing has room for is cut along a zigzag,
// and equal sheets stand behind each other.
void DrawSheets(HtmlWriter& html, const SheetRun& run, const SheetScale& scale);

// How many pixels the drawing is wide.
double WidthOfDrawing(const SheetRun& run, const SheetScale& scale);

// A bar that is a hundred millimetres long.
void DrawScaleBar(HtmlWriter& html, const SheetScale& scale);

// What the mark of an edge that turns looks like.
void DrawEdgeSample(HtmlWriter& html);

}  // namespace TicketHost
