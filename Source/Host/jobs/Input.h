#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "Host/jobs/Package.h"

namespace TicketHost {

enum class InputKind { Ticket, Manifest, Package };

// What a verb is given to read, told by its content.
struct Input {
    std::string Name;  // its path as it was given, or "standard input"
    InputKind Kind = InputKind::Ticket;
    std::string Bytes;                      // of a ticket or a manifest
    std::shared_ptr<const Package> Source;  // of a package
};

// Reads a file, or for "-" the standard input: a package is a ZIP archive; a manifest begins with "{" and a
// ticket with "<", in any encoding, with or without a byte order mark and white space ahead. Throws
// InputError for what can't be read and for what is none of these.
Input ReadInput(const std::string& file);

// The package in a file, named by its path; null for a file that begins otherwise. Throws InputError for one
// that can't be read and for a broken archive.
std::shared_ptr<const Package> OpenPackage(const std::filesystem::path& file);

}  // namespace TicketHost
