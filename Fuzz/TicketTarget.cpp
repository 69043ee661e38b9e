#include "JobRun.h"
#include "Targets.h"
#include "TicketCalls.h"

// Any tickets through all levels, in any order, with one snapshot.

namespace Fuzz {
namespace {

std::string RunCalls(std::string_view input) {
    JobRun job({{u"EncryptionID", Wide("[1,2]")}});
    std::string seen;
    for (const TicketCall& call : ReadTicketCalls(input)) {
        seen += job.Call(call.Level, call.Ticket, input.size());
        seen += Narrow(call.Ticket->xml().View());
    }
    return seen + job.Everything();
}

}  // namespace

void RunTicket(std::string_view input) { RequireSameTwice(input, RunCalls); }

}  // namespace Fuzz
