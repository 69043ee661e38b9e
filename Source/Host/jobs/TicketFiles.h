#pragma once

#include <filesystem>
#include <map>
#include <memory>

#include "Host/jobs/Package.h"

namespace TicketHost {

// Reads tickets by their paths, each once. A path may go on behind a package: "job.xps/Metadata/Job_PT.xml";
// the packages stay open. Throws InputError for a ticket that can't be read or doesn't load.
class TicketFiles {
public:
    std::shared_ptr<const Ticket> Read(const std::filesystem::path& file);
    // Whether a path goes on behind a package, which nothing else could be there.
    bool IsInPackage(const std::filesystem::path& file) { return FindPackage(file).Source != nullptr; }

private:
    struct Place {
        std::shared_ptr<const Package> Source;
        std::string Part;
    };
    Place FindPackage(const std::filesystem::path& file);

    std::map<std::filesystem::path, std::shared_ptr<const Ticket>> tickets_;
    std::map<std::filesystem::path, std::shared_ptr<const Package>> packages_;
};

}  // namespace TicketHost
