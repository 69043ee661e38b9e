#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace TicketHost {

enum class FindingKind {
    Warning,  // an oversight: what stands there is lost, or does something else than it says
    Note,     // counts for nothing, as much does in a ticket that is also meant for others
};

// One thing that a person should know of a job before it is converted. Texts are UTF-8.
struct Finding {
    FindingKind Kind = FindingKind::Warning;
    std::string File;   // the ticket's, or the job's
    std::string Place;  // in a manifest, as "calls[3].ticket"; empty where the file is the ticket
    int Line = 0;       // of the file, or of the ticket that stands at the place; 0: not known
    std::string Text;   // what is the matter
    std::string Hint;   // what to do about it; may be empty
};

using Findings = std::vector<Finding>;

std::size_t CountWarnings(const Findings& findings);

// "3 warnings", "1 warning and 2 notes", "nothing to warn of".
std::string CountsOf(const Findings& findings);

// A line each, "FILE:LINE: TEXT; HINT", notes as "FILE:LINE: note: TEXT", and one with their numbers.
void WriteFindingsAsText(std::ostream& out, const Findings& findings);

// One document: { "warnings": [ { "file", "place", "line", "text", "hint" } ], "notes": [ the same ] };
// "place", "line" and "hint" are there where they are known.
void WriteFindingsAsJson(std::ostream& out, const Findings& findings);

// Collects what there is to say of one ticket.
class TicketReport {
public:
    TicketReport(std::string file, std::string place, Findings& findings)
        : file_(std::move(file)), place_(std::move(place)), findings_(findings) {}

    void Warn(int line, std::string text, std::string hint = "") {
        Add({FindingKind::Warning, file_, place_, line, std::move(text), std::move(hint)});
    }
    void Note(int line, std::string text, std::string hint = "") {
        Add({FindingKind::Note, file_, place_, line, std::move(text), std::move(hint)});
    }

private:
    void Add(Finding finding) { findings_.push_back(std::move(finding)); }

    std::string file_, place_;
    Findings& findings_;
};

}  // namespace TicketHost
