#include "Host/ground/LineDiff.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace TicketHost {
namespace {

using Lines = std::span<const std::string>;

constexpr std::size_t mostPairs = 4'000'000;

void CutSharedEnds(Lines& before, Lines& after) {
    const auto front = std::ranges::mismatch(before, after).in1 - before.begin();
    before = before.subspan(static_cast<std::size_t>(front));
    after = after.subspan(static_cast<std::size_t>(front));
    while (!before.empty() && !after.empty() && before.back() == after.back()) {
        before = before.first(before.size() - 1);
        after = after.first(after.size() - 1);
    }
}

// How many lines can stay of what stands from one place of each list on.
class SharedCounts {
public:
    SharedCounts(Lines before, Lines after)
        : width_(after.size() + 1), counts_((before.size() + 1) * width_) {
        for (std::size_t left = before.size(); left-- > 0;)
            for (std::size_t right = after.size(); right-- > 0;)
                counts_[left * width_ + right] = before[left] == after[right]
                                                     ? At(left + 1, right + 1) + 1
                                                     : std::max(At(left + 1, right), At(left, right + 1));
    }

    std::uint32_t At(std::size_t left, std::size_t right) const { return counts_[left * width_ + right]; }

private:
    std::size_t width_;
    std::vector<std::uint32_t> counts_;
};

std::vector<LineEdit> Replace(Lines before, Lines after) {
    std::vector<LineEdit> changes;
    for (const std::string& line : before) changes.push_back({'-', line});
    for (const std::string& line : after) changes.push_back({'+', line});
    return changes;
}

}  // namespace

std::vector<LineEdit> DiffLines(const std::vector<std::string>& before,
                                const std::vector<std::string>& after) {
    Lines goes = before, comes = after;
    CutSharedEnds(goes, comes);
    if (goes.empty() || comes.empty() || goes.size() > mostPairs / comes.size()) return Replace(goes, comes);
    const SharedCounts counts(goes, comes);
    std::vector<LineEdit> changes;
    std::size_t left = 0, right = 0;
    while (left < goes.size() && right < comes.size()) {
        if (goes[left] == comes[right])
            ++left, ++right;
        else if (counts.At(left + 1, right) >= counts.At(left, right + 1))
            changes.push_back({'-', goes[left++]});
        else
            changes.push_back({'+', comes[right++]});
    }
    for (const LineEdit& rest : Replace(goes.subspan(left), comes.subspan(right))) changes.push_back(rest);
    return changes;
}

}  // namespace TicketHost
