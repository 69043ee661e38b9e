#include "Host/report/Sheets.h"

#include <utility>

namespace TicketHost {
namespace {

bool AreOnOnePaper(const PageFacts& front, const PageFacts& back) {
    return !back.Failed && back.IsTwoSided() && front.Size == back.Size && front.Width == back.Width &&
           front.Height == back.Height && front.Medium == back.Medium && front.Bin == back.Bin;
}

bool LooksAlike(const SheetRun& run, const SheetPage& front, const std::optional<SheetPage>& back) {
    if (run.Back.has_value() != back.has_value()) return false;
    return run.Front.Facts == front.Facts && (!back || run.Back->Facts == back->Facts);
}

}  // namespace

void SheetRow::Add(SheetPage page) {
    if (front_ && AreOnOnePaper(front_->Facts, page.Facts)) {
        Put(*std::exchange(front_, std::nullopt), std::move(page));
        return;
    }
    End();
    if (page.Facts.IsTwoSided() && !page.Facts.Failed && !apart_)
        front_ = std::move(page);
    else
        Put(std::move(page), std::nullopt);
}

void SheetRow::End() {
    if (front_) Put(*std::exchange(front_, std::nullopt), std::nullopt);
}

void SheetRow::Put(SheetPage front, std::optional<SheetPage> back) {
    const std::size_t last = back ? back->Number : front.Number;
    if (pagesLeftOut_ == 0 && !runs_.empty() && LooksAlike(runs_.back(), front, back)) {
        ++runs_.back().Sheets;
        runs_.back().LastPage = last;
    } else if (pagesLeftOut_ > 0 || runs_.size() == MostRuns) {
        pagesLeftOut_ += back ? 2 : 1;
    } else {
        runs_.push_back({std::move(front), std::move(back), 1, last});
    }
}

}  // namespace TicketHost
