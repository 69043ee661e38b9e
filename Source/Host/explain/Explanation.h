#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace TicketHost {

// Why a job came out as it did: each line of it with the items that caused it, and each item with what it
// did. Found by taking items away and converting again, so it says what the module does and not what somebody
// believes of it. Plain data, for whoever writes it out. Texts are UTF-8, each fit for one line of a display
// (Texts.h).

enum class SourceKind {
    Feature,
    Option,
    ScoredProperty,
    Property,
    Parameter,
    Element,           // of a ticket, and unknown to the schema
    Series,            // the pieces of one settings series with their count
    Setting,           // a member of "features" or "paraminits" of a series
    PageEntry,         // an element of the per-page list, which is the text of a setting
    PipelineProperty,  // a property that the job sets before its first call
    DriverProperty,
    QueueProperty,
};

enum class LineKind { Error, Pjl, Data, Property, Ticket };

inline constexpr std::size_t NoIndex = std::numeric_limits<std::size_t>::max();

// What one item does to a line.
struct Effect {
    std::size_t Call = 0;                // the index in Explanation::Calls
    std::size_t Line = NoIndex;          // in that call's Lines; NoIndex: the item keeps a line from coming
    LineKind Kind = LineKind::Pjl;       // of the line
    std::optional<std::string> Instead;  // what stands there without the item; absent: nothing
};

// An item of a job: something that can be taken away. A ticket that serves several calls has one set of
// items.
struct SourceItem {
    SourceKind Kind = SourceKind::Feature;
    std::string Name{};            // as written: "psk:PageMediaSize", "TonerSave", "PrinterName"
    std::string Value{};           // empty for what holds other items and has no value of its own
    std::string Label{};           // for a person, with what it stands in: "psk:PageMediaSize: psk:ISOA4"
    std::string File{};            // the ticket's name, or the job's for a property of a bag
    int Line = 0;                  // in there, from 1; 0 where it isn't known
    std::size_t Parent = NoIndex;  // the item that it stands in, always ahead of it
    std::size_t Call = 0;          // the number of the first call that it can touch, from 1
    std::size_t Ticket = NoIndex;  // in the order of the calls, each once; NoIndex for a property of a bag
    bool Tried = false;  // whether it was taken away and what it does, if only nothing, is asked for
    std::vector<Effect> Effects{};  // of it alone; what one of the items in it does just as well is there
    std::vector<std::size_t> HiddenBy{};  // indices of the items without which it would have an effect
};

// Items without which a line is another or gone: one, or several of which each alone leaves it as it is.
struct Cause {
    std::vector<std::size_t> Items;      // indices, ascending
    std::optional<std::string> Instead;  // what stands there without them; absent: nothing
};

struct ExplainedLine {
    LineKind Kind = LineKind::Pjl;
    std::string Text;           // of a property "NAME = VALUE", of a ticket's edit what went and came
    std::vector<Cause> Causes;  // by their items; empty: the module's own, whatever the job says
    // Of a ticket's edit: the items that it changed. Without them there is nothing to change, so they don't
    // count as causes.
    std::vector<std::size_t> Subjects;
};

struct ExplainedCall {
    std::size_t Number = 0;  // from 1
    std::int32_t Level = 0;
    std::string Ticket;                // its name
    std::size_t TicketIndex = 0;       // SourceItem::Ticket of the items in it
    std::vector<ExplainedLine> Lines;  // by kind, in the order of LineKind, each as they came
};

struct Explanation {
    std::string Job;
    std::size_t CallCount = 0;         // of the whole job
    std::vector<ExplainedCall> Calls;  // those that were made and asked for, in their order
    std::vector<SourceItem> Items;  // all of the job, in the order of its calls, what stands in one behind it
    bool IsNarrowed = false;        // not all lines, or not all items, were asked for
};

// For each item whether it or one that stands in it does something, alone or with others.
std::vector<bool> ItemsWithEffect(const Explanation& explanation);

}  // namespace TicketHost
