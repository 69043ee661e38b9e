#pragma once

#include <string>

#include "Host/Job.h"
#include "Platform/TicketDocument.h"

namespace TicketHost {

// Reads a job by its file's name:
//
//   .xml          one ticket: a single call at job level, submitted by the calling user
//   .json         a manifest (Manifest.h), whose tickets' paths count from its folder
//   .xps, .oxps   a package
//
// All tickets are read, each file once, and checked. Throws InputError when one of them can't be used.
Job ReadJob(const std::string& file);

// A document of its own for one call. Throws InputError, which a ticket of ReadJob's doesn't cause.
Platform::TicketDocument LoadTicket(const Ticket& ticket);

}  // namespace TicketHost
