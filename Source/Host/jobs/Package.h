#pragma once

#include <memory>
#include <string>

#include "Host/jobs/Job.h"
#include "Host/jobs/PackageParts.h"
#include "Host/jobs/ZipArchive.h"

namespace TicketHost {

// An XPS or OpenXPS package as a job hands it on to who reads its tickets or writes it anew.
struct Package {
    explicit Package(std::unique_ptr<ZipArchive> archive) : Archive(std::move(archive)), Parts(*Archive) {}

    const std::unique_ptr<ZipArchive> Archive;
    const PackageParts Parts;
};

// The calls of a print job: one at job level; for each document, in its order, one at document level and
// behind it one at page level for each of its pages. Each has the ticket that its part has a relationship to:
// the sequence of documents, the document, the page. Calls that a part has no ticket for get an empty one.
//
// Parts are found by relationships and references alone, in both namespaces. Throws InputError, "PACKAGE:
// PART: cause", for a package that is broken, for a ticket that doesn't load, and for more than 100,000 calls
// or 256 MiB to read.
std::vector<Call> ReadPackageCalls(const Package& package);

// Whether the package is OpenXPS, by the relationship to its sequence of documents.
bool IsOpenXps(const Package& package);

// A part as a ticket. Throws InputError when there is none of that name or it doesn't load.
std::shared_ptr<const Ticket> ReadPackageTicket(const Package& package, std::string_view part);

}  // namespace TicketHost
