#pragma once

#include <functional>
#include <string>

#include "Host/jobs/Job.h"
#include "Platform/XmlElement.h"

namespace TicketHost {

// A ticket that is being changed.
struct OpenTicket {
    std::string Name;
    Platform::TicketDocument Document;
    Platform::XmlElement Root;  // as it was read
};

// A ticket that a job has, of any kind.
OpenTicket Open(const Ticket& ticket);

// Lets `edit` change the ticket of each call that `isMeant` holds for, and puts its text in the ticket's
// place where it says that it did. What calls share is changed once and still shared by those that are meant.
void EditTickets(Job& job, const std::function<bool(const Call&)>& isMeant,
                 const std::function<bool(const OpenTicket&)>& edit);

}  // namespace TicketHost
