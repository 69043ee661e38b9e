#include "Host/output/PackageOutput.h"

#include "Host/jobs/Package.h"
#include "Host/jobs/ZipRewrite.h"

namespace TicketHost {

PackageOutput::PackageOutput(const Job& job) : job_(job) {
    for (const Call& call : job.Calls) {
        const std::string& part = call.Source->Part;
        if (!part.empty() && outcomes_[part].Calls++ == 0) parts_.push_back(part);
    }
}

void PackageOutput::Take(const CallResult& result, const std::filesystem::path& file) {
    const auto found = outcomes_.find(result.Made.Source->Part);
    if (found == outcomes_.end() || result.Error) return;
    Outcome& outcome = found->second;
    if (outcome.File.empty()) {
        outcome.File = file;
        if (outcome.Calls > 1) outcome.Text = result.TicketAfter;
    } else if (result.TicketAfter != outcome.Text) {
        return;
    }
    ++outcome.Made;
}

void PackageOutput::Write(const std::filesystem::path& file, const std::string& name) const {
    std::vector<Replacement> replacements;
    for (const std::string& part : parts_) {
        const Outcome& outcome = outcomes_.at(part);
        if (outcome.Made == outcome.Calls)
            replacements.push_back({job_.Source->Parts.EntriesOf(part), part.substr(1), outcome.File});
    }
    RewriteArchive(*job_.Source->Archive, replacements, file, name);
}

std::vector<std::string> PackageOutput::KeptTickets() const {
    std::vector<std::string> kept;
    for (const std::string& part : parts_)
        if (outcomes_.at(part).Made < outcomes_.at(part).Calls) kept.push_back(part);
    return kept;
}

}  // namespace TicketHost
