#pragma once

#include <string>
#include <vector>

#include "Host/tickets/PrintTicket.h"
#include "devicespecific/platform/WideText.h"

namespace TicketHost {

enum class ChangeKind { Changed, Added, Removed, Rewritten };

// One difference between two tickets, for a person. Texts are UTF-8 fit for one line, however long.
struct TicketChange {
    ChangeKind Kind = ChangeKind::Changed;
    // What differs: a feature or parameter by its name ("PageMediaSize", the second of that name with " #2"),
    // what stands in one behind it ("PageMediaSize MediaSizeWidth"), "setting Hold", or for what the schema
    // doesn't know its path ("/PrintTicket/x:Note"). Names have their prefix where it takes that to tell two
    // apart.
    std::string Subject;
    std::string Before;  // what it said; empty for what is new
    std::string After;   // what it says; empty for what is gone

    bool operator==(const TicketChange&) const = default;
};

// What differs between two documents by what they say, whatever their form: the order of items with different
// names, comments, white space between elements, quotes and prefixes don't count. Of items with one name the
// first meets the first, since readers take that. The user's settings are compared member by member. An
// option that gives way to one of another name, and what is new or gone, is one change with all that stands
// in it. Everything else that an element says differently has its own; nothing differs silently.
std::vector<TicketChange> CompareTickets(const Platform::XmlElement& before,
                                         const Platform::XmlElement& after);

// The same of two texts. A document that can't be read is a change of its own.
std::vector<TicketChange> CompareTickets(const Platform::WideText& before, const Platform::WideText& after);

// "PageMediaSize: ISOA4 -> Custom 148.512 x 105 mm", "PageOutputQuality (Normal) is gone". Of what is new or
// gone 60 characters are shown, of two texts that differ 120 each, around their first difference.
std::string LineOf(const TicketChange& change);

}  // namespace TicketHost
