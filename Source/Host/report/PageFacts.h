#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Host/ground/MemoryBags.h"
#include "Host/tickets/PrintTicket.h"

namespace TicketHost {

// What a page asks for, and whether one of its data lines says so to the device.
struct PageFact {
    std::string Name;     // without prefix; empty where neither the lines nor the ticket say anything
    bool IsSent = false;  // in a data line

    bool operator==(const PageFact&) const = default;
};

// The edge about which a sheet is turned for its other side, as the front is read.
enum class TurningEdge { None, Left, Top };

// All that one page's conversion says of its sheet.
struct PageFacts {
    bool Failed = false;
    PageFact Size, Medium, Bin;
    std::int64_t Width = 0, Height = 0;    // micrometres, of the paper as its size has it; 0 where not known
    std::string TicketSize;                // without prefix
    std::string Orientation;               // without prefix; empty where nothing says it
    bool IsJobsOrientation = false;        // the page's own ticket says none
    bool IsOneSided = false;               // by a data line
    TurningEdge Edge = TurningEdge::None;  // by a data line

    // Turned by a quarter, so that what is read lies across the paper.
    bool IsAcross() const { return Orientation.ends_with("Landscape"); }
    std::int64_t ReadWidth() const { return IsAcross() ? Height : Width; }
    std::int64_t ReadHeight() const { return IsAcross() ? Width : Height; }
    // A line for two sides, and none for one.
    bool IsTwoSided() const { return Edge != TurningEdge::None && !IsOneSided; }

    // Asks for something that no line tells the device.
    bool IsDoubtful() const { return !Size.IsSent || !Medium.IsSent || !Bin.IsSent; }

    bool operator==(const PageFacts&) const = default;
};

// Reads them off a call's results: its data lines, as SplitCommandLines gives them, the ticket's items after
// the call, and the properties that carry what an earlier call found.
PageFacts ReadPageFacts(const std::vector<std::string>& lines, const std::vector<TicketItem>& ticket,
                        const PipelineProperties& properties);

}  // namespace TicketHost
