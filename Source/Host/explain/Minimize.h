#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace TicketHost {

// A part of some items for which a test still holds and of which no single item can be left out. By delta
// debugging (ddmin): cut into ever smaller chunks, the items are reduced to a chunk for which the test holds,
// or by one without which it does. The test must hold for all of them. For a part of two among n items that
// takes a number of tests that grows with log n, at worst with n squared.
template <typename Test>
std::vector<std::size_t> Minimize(std::vector<std::size_t> items, Test holds) {
    for (std::size_t chunks = 2; items.size() > 1;) {
        chunks = std::min(chunks, items.size());
        bool reduced = false;
        for (std::size_t turn = 0; turn < 2 * chunks && !reduced; ++turn) {
            const auto cut = [&](std::size_t chunk) {
                return items.begin() + static_cast<std::ptrdiff_t>(chunk * items.size() / chunks);
            };
            const std::size_t chunk = turn % chunks;
            std::vector<std::size_t> part(cut(chunk), cut(chunk + 1));
            const bool leavesOut = turn >= chunks;
            if (leavesOut) {
                part.assign(items.begin(), cut(chunk));
                part.insert(part.end(), cut(chunk + 1), items.end());
            }
            if (part.empty() || !holds(part)) continue;
            items = std::move(part);
            chunks = leavesOut ? std::max<std::size_t>(chunks - 1, 2) : 2;
            reduced = true;
        }
        if (reduced) continue;
        if (chunks == items.size()) break;
        chunks *= 2;
    }
    return items;
}

}  // namespace TicketHost
