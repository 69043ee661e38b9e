#include "Host/jobs/EditedTickets.h"

#include <map>
#include <memory>

#include "Host/ground/Errors.h"
#include "Host/tickets/PrintTicket.h"

namespace TicketHost {

OpenTicket Open(const Ticket& ticket) {
    OpenTicket open{ticket.Name, LoadTicket(ticket), {}};
    Platform::ParseError error;
    const auto read = [&error](const auto& content) { return Platform::ReadXml(content, error); };
    if (auto root = std::visit(read, ticket.Content)) open.Root = std::move(*root);
    return open;
}

void EditTickets(Job& job, const std::function<bool(const Call&)>& isMeant,
                 const std::function<bool(const OpenTicket&)>& edit) {
    std::map<std::shared_ptr<const Ticket>, std::shared_ptr<const Ticket>> edited;
    for (Call& call : job.Calls) {
        if (!isMeant(call)) continue;
        const auto [found, isNew] = edited.try_emplace(call.Source, call.Source);
        if (isNew) {
            const OpenTicket open = Open(*call.Source);
            if (!IsPrintTicket(open.Root)) throw InputError(open.Name + " is no Print Ticket");
            if (edit(open)) {
                Ticket ticket = *call.Source;
                ticket.Content = open.Document->xml();
                found->second = std::make_shared<const Ticket>(std::move(ticket));
            }
        }
        call.Source = found->second;
    }
}

}  // namespace TicketHost
