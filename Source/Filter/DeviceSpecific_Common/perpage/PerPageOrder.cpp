#include "perpage/PerPageOrder.h"

#include <algorithm>
#include <utility>

#include "perpage/EntryText.h"

namespace DeviceSpecificModule {
namespace {

using Entries = std::vector<PerPageOrderEntry>;

constexpr std::size_t largestInsertion = 32;  // entries; up to here the result is fixed for cycles, too

void SortByInsertion(Entries& entries) {
    for (std::size_t next = 1; next < entries.size(); ++next)
        for (std::size_t place = next; place > 0 && PageListPrecedes(entries[place], entries[place - 1]);
             --place)
            std::swap(entries[place], entries[place - 1]);
}

// Merges the runs [begin, middle) and [middle, end). Each step takes one entry, whatever the order says.
void MergeRuns(const Entries& entries, std::size_t begin, std::size_t middle, std::size_t end,
               Entries& merged) {
    std::size_t left = begin;
    std::size_t right = middle;
    while (left < middle && right < end) {
        const bool takeRight = PageListPrecedes(entries[right], entries[left]);
        merged.push_back(entries[takeRight ? right++ : left++]);
    }
    while (left < middle) merged.push_back(entries[left++]);
    while (right < end) merged.push_back(entries[right++]);
}

void SortByMerging(Entries& entries) {
    const std::size_t size = entries.size();
    Entries merged;
    Platform::WithOneMemoryError([&] { merged.reserve(size); });
    for (std::size_t run = 1; run < size; run *= 2) {
        merged.clear();
        for (std::size_t begin = 0; begin < size; begin += 2 * run)
            MergeRuns(entries, begin, std::min(begin + run, size), std::min(begin + 2 * run, size), merged);
        entries.swap(merged);
    }
}

}  // namespace

bool PageListPrecedes(const PerPageOrderEntry& a, const PerPageOrderEntry& b) {
    const PageList& left = a.Pages;
    const PageList& right = b.Pages;
    if (left.Count == 0 || right.Count == 0) return false;
    if (left.Count == 1) return left.First < right.Highest;
    if (right.Count == 1) return right.First >= left.Highest;
    return left.First < right.First;
}

std::vector<PerPageOrderEntry> BuildPerPageOrder(Json::Value& details) {
    const Json::ArrayIndex size = details.size();
    Entries entries;
    Platform::WithOneMemoryError([&] { entries.reserve(size); });
    for (Json::ArrayIndex position = 0; position < size; ++position)
        entries.push_back({position, ReadPageList(TextOf(details[position]["PageNumber"]).View())});
    if (size <= largestInsertion) {
        SortByInsertion(entries);
    } else {
        SortByMerging(entries);
    }
    return entries;
}

}  // namespace DeviceSpecificModule
