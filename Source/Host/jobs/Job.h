#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Host/ground/MemoryBags.h"
#include "Platform/TicketDocument.h"

namespace TicketHost {

// What a job gives the module beside its tickets.
struct JobSettings {
    PipelineProperties Pipeline;  // as they are before the first call
    PrinterProperties Driver;     // of the driver property bag
    PrinterProperties Queue;      // of the queue property bag
    // The names of the tables in the OptionTables record; absent: no record at all.
    std::optional<std::vector<std::string>> Tables;
    bool Snapshot = true;  // one for all calls, or none
};

// A ticket whose text has been found to load. Calls may share it; each loads a document of its own from it.
struct Ticket {
    std::string Name;                                       // its file, or "inline ticket"
    std::variant<std::string, Platform::WideText> Content;  // a file's bytes, or a text
};

struct Call {
    std::int32_t Level = 0;
    std::shared_ptr<const Ticket> Source;
};

struct Job {
    std::string Name;  // the file that it came from
    JobSettings Settings;
    std::vector<Call> Calls;
};

// Reads a job by its file's name:
//
//   .xml          one ticket: a single call at job level, submitted by the calling user
//   .json         a manifest (Manifest.h), whose tickets' paths count from its folder
//   .xps, .oxps   a package
//
// All tickets are read, each file once, and checked. Throws InputError when one of them can't be used.
Job ReadJob(const std::string& file);

// Loads a document of its own for one call. Throws InputError, but not for a ticket that ReadJob gave.
Platform::TicketDocument LoadTicket(const Ticket& ticket);

}  // namespace TicketHost
