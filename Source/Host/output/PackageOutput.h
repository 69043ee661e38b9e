#pragma once

#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

#include "Host/jobs/JobRunner.h"

namespace TicketHost {

// A package with the tickets that a run made of those in it. A ticket is replaced when all calls that it
// serves were made, none of them threw, and all made the same of it; otherwise it stays as it was, since none
// of their results would be right for all of them. So does every other part: byte for byte. Levels without a
// ticket don't get one.
class PackageOutput {
public:
    // The job's source must be a package and, like its calls, outlive this.
    explicit PackageOutput(const Job& job);

    // Notes what a call made of its ticket, which `file` holds until Write.
    void Take(const CallResult& result, const std::filesystem::path& file);
    // Writes the package to a new file. Throws OutputError; errors call the file `name`.
    void Write(const std::filesystem::path& file, const std::string& name) const;
    // The parts that are tickets of calls and stay as they were, in the order of their calls.
    std::vector<std::string> KeptTickets() const;

private:
    struct Outcome {
        std::size_t Calls = 0, Made = 0;  // that the ticket serves; of them, those that made the same of it
        std::filesystem::path File;       // what the first one made of it
        Platform::WideText Text;          // that, while there are others to compare
    };

    const Job& job_;
    std::vector<std::string> parts_;  // in the order of the calls
    std::unordered_map<std::string, Outcome> outcomes_;
};

}  // namespace TicketHost
