#pragma once

#include <ostream>

#include "Host/compare/CompareJobs.h"
#include "Host/ground/Json.h"
#include "Host/ground/Painter.h"

namespace TicketHost {

// Writes what differs for a person: of each call that does, the errors, the lines that went and came, the
// properties, and the tickets by feature.
class DifferenceText {
public:
    DifferenceText(std::ostream& out, bool colour) : out_(out), painter_(colour) {}

    void Write(const CallDifference& difference);
    void End(std::size_t count);

private:
    void WriteLabel(std::string_view label);
    void WriteLines(std::string_view label, const std::vector<LineEdit>& lines);
    void WriteErrors(const CallDifference& difference);
    void WriteProperties(const std::vector<PropertyDifference>& properties);
    void WriteTicket(const std::vector<TicketChange>& changes);

    std::ostream& out_;
    Painter painter_;
    bool empty_ = true;
};

// The same as one JSON document:
//
//   { "calls": [ { "call": 1,
//                  "before": { "level": 2, "ticket": name } | null, "after": the same,
//                  "errors": { "before": text | null, "after": the same } | null,
//                  "pjl": [ "- line that went", "+ line that came" ], "data": the same,
//                  "properties": [ { "name": text, "before": shown value | null, "after": the same } ],
//                  "tickets": [ { "kind": "changed" | "added" | "removed" | "rewritten", "subject": text,
//                                 "before": text, "after": text } ] } ] }
//
// with the calls that differ alone.
class DifferenceJson {
public:
    explicit DifferenceJson(std::ostream& out) : out_(out), json_(out) {}

    void Write(const CallDifference& difference);
    void End(std::size_t count);

private:
    std::ostream& out_;
    JsonWriter json_;
    bool empty_ = true;
};

}  // namespace TicketHost
