#pragma once

#include <initializer_list>

#include "Host/explain/Explanation.h"
#include "Host/report/HtmlWriter.h"

namespace TicketHost {

// Writes what an explanation adds to a report: the lines with what caused them, and what each item did.

// The explained lines of a call of these kinds, each kind under a heading of its own. A line says in short
// what caused it; in full it does when it is pointed at, when a link in it has the focus, and on paper. Says
// so where the call wasn't explained.
void WriteExplainedLines(HtmlWriter& html, const Explanation& explanation, std::size_t call,
                         std::initializer_list<LineKind> kinds);

// The header: the lines of "PJL" of each call that has some.
void WriteExplainedHeader(HtmlWriter& html, const Explanation& explanation);

// The sections of the items: what each did, and those without effect.
void WriteItemSections(HtmlWriter& html, const Explanation& explanation);

}  // namespace TicketHost
