#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "Host/check/Findings.h"
#include "Host/explain/Explanation.h"
#include "Host/jobs/JobRunner.h"
#include "Host/report/CallAccount.h"
#include "Host/report/HtmlWriter.h"
#include "Host/report/Sheets.h"

namespace TicketHost {

// Writes a job's results as one page to look at, for a person who wants to know why a job came out as it did:
// what the job is and what failed, its sheets drawn to scale, the header, each call. The page needs nothing
// else, no network and no script.
//
// All is written at the end, since what a person sees first is known last. What is held until then doesn't
// grow with the calls that are like the one before, and of the others only so many are told (CallAccounts,
// SheetRow); the page says how many it leaves out.
class HtmlReport final : public ResultSink {
public:
    // `explanation` is one of the same job, or null. With it the page says what caused each line and what
    // each item did; it must live as long as the report.
    explicit HtmlReport(std::ostream& out, const Explanation* explanation = nullptr)
        : out_(out), explanation_(explanation) {}

    void Begin(const Job& job, const PipelineProperties& initial) override;
    void Take(const CallResult& result) override;
    void End(const PipelineProperties& final) override;

private:
    struct Failure {
        std::size_t Call;
        std::string Source, Message;
    };

    void TakePage(const CallResult& result, const CallTickets& tickets, const CallReport& outcome);
    void WriteTop(HtmlWriter& html) const;
    void WriteVerdict(HtmlWriter& html) const;
    void WriteFailures(HtmlWriter& html) const;
    void WriteMain(HtmlWriter& html) const;
    void WriteSettings(HtmlWriter& html) const;

    std::ostream& out_;
    const Explanation* explanation_;
    std::string name_;
    JobSettings settings_;
    Findings findings_;
    std::size_t calls_ = 0, made_ = 0, documents_ = 0, pages_ = 0, failed_ = 0;
    std::size_t doubtful_ = 0;       // pages
    std::vector<Failure> failures_;  // the first of them
    PipelineProperties previous_;    // after the call before
    CallAccounts accounts_;
    SheetRow sheets_;
    std::optional<SheetPage> job_;  // what the job itself asks for, until a page is converted
    bool isBooklet_ = false;
};

}  // namespace TicketHost
