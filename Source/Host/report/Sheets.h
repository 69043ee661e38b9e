#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Host/report/PageFacts.h"

namespace TicketHost {

struct SheetPage {
    std::size_t Number = 0;  // counts the page calls from 1; 0 is the job's own
    std::size_t Call = 0;    // counts all calls from 1
    PageFacts Facts;
};

// Equal sheets in a row, of which the first stands for all.
struct SheetRun {
    SheetPage Front;
    std::optional<SheetPage> Back;
    std::size_t Sheets = 1;
    std::size_t LastPage = 0;
};

// Puts pages onto sheets, in their order: a page goes onto the back of the one before when both are printed
// on two sides and ask for the same paper. How a device does it is its own business.
class SheetRow {
public:
    // More sheets that differ from each other nobody looks through.
    static constexpr std::size_t MostRuns = 1000;

    void Add(SheetPage page);
    // From here on each page stands by itself, as in a booklet, where the device arranges the pages.
    void KeepPagesApart() { apart_ = true; }
    // Behind the last page.
    void End();

    const std::vector<SheetRun>& Runs() const { return runs_; }
    std::size_t PagesLeftOut() const { return pagesLeftOut_; }

private:
    void Put(SheetPage front, std::optional<SheetPage> back);

    std::vector<SheetRun> runs_;
    std::optional<SheetPage> front_;  // waits for its back
    bool apart_ = false;
    std::size_t pagesLeftOut_ = 0;
};

}  // namespace TicketHost
