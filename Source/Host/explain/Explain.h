#pragma once

#include <optional>
#include <string>

#include "Host/explain/Experiment.h"

namespace TicketHost {

// What is asked for, where not all is.
struct Question {
    std::optional<std::string> Line;  // of the lines those that hold this text, as they are shown
    std::optional<std::string> Item;  // of the items those with this name, with or without its prefix
    std::optional<std::size_t> Call;  // of the calls this one, from 1
};

// Explains a job of which `explanation` holds all calls without their lines, and all items without what they
// did. How:
//
// Each item is taken away by itself. Of those that make a line another, the innermost is named: not the
// feature but its option where that does it. Where only what holds items makes it another, or nothing does by
// itself, all items in there, or of the job, are taken away at once. A line that then stays is the module's
// own. If it goes, several items cause it, each of which suffices: delta debugging (Minimize.h) finds a set
// of them of which none can be left out.
//
// An item without effect may be hidden by another. So for each item that gives way to another line when it is
// taken away, all that have no effect are taken away with it: where the other line then goes too, the same
// search finds what it came from. Namesakes are looked at as well: a setting with those of its name in other
// series, a feature with those of its name in its ticket.
//
// A series of settings in a ticket that serves no call at job level is taken away as a whole first, and its
// members only where that shows something.
void Explain(const Conversions& conversions, const Question& question, const Progress& progress,
             Explanation& explanation);

// The same of a job. Throws InputError when a question asks for what isn't there.
Explanation Explain(const Job& job, const Question& question, const Progress& progress = {});

}  // namespace TicketHost
