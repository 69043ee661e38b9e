#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Host/ground/MemoryBags.h"
#include "devicespecific/platform/TicketDocument.h"

namespace TicketHost {

// What a job gives the module beside its tickets.
struct JobSettings {
    PipelineProperties Pipeline;  // as they are before the first call
    PrinterProperties Driver;     // of the driver property bag
    PrinterProperties Queue;      // of the queue property bag
    // The names of the tables in the OptionTables record; absent: no record at all.
    std::optional<std::vector<std::string>> Tables;
    bool Snapshot = true;  // one for all calls, or none
    // What the print queue would call the job's document; absent: the queue of "PrinterName" is asked.
    std::optional<Platform::WideText> DocumentName = {};
    std::optional<std::int64_t> Seconds =
        {};  // the moment of all calls, since 1970; absent: when each is made
};

// A ticket whose text has been found to load. Calls may share it; each loads a document of its own from it.
struct Ticket {
    // Its file, with the part behind it where it comes from a package, "inline ticket", or "FILE: no ticket".
    std::string Name;
    std::variant<std::string, Platform::WideText> Content;  // a file's bytes, or a text
    std::string Part = {};                                  // its name in the package that it comes from
};

struct Call {
    std::int32_t Level = 0;
    std::shared_ptr<const Ticket> Source;
};

struct Package;

struct Job {
    std::string Name;  // the file that it came from, or "standard input"
    JobSettings Settings;
    std::vector<Call> Calls;
    std::shared_ptr<const Package> Source = {};  // the package that it is; null for other jobs
};

// Reads a job from a file, or from the standard input when that is "-". Its content says what it is, whatever
// its name:
//
//   a ticket      begins with "<": a single call at job level, submitted by the calling user
//   a manifest    begins with "{" (Manifest.h); the paths of its tickets count from its folder, or from the
//                 current one when it comes from the standard input
//   a package     a ZIP archive (Package.h): a whole print job, submitted by the calling user
//
// A byte order mark and white space may stand ahead of the first two. A path to a ticket may go on behind a
// package: "job.xps/Metadata/Job_PT.xml". All tickets are read, each file and part once, and checked. Throws
// InputError when one of them can't be used.
Job ReadJob(const std::string& file);

// A ticket that calls may share, found to load. Throws InputError, "PLACE:LINE:COLUMN: cause".
std::shared_ptr<const Ticket> MakeTicket(Ticket ticket, const std::string& place);

// Loads a document of its own for one call. Throws InputError, but not for a ticket that ReadJob gave.
Platform::TicketDocument LoadTicket(const Ticket& ticket);

}  // namespace TicketHost
