#include "perpage/PageList.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "conversion/TextOperations.h"

namespace DeviceSpecificModule {
namespace {

// Takes the prefix off the digits that it announces. A lone "0" is a digit of its own.
unsigned TakeBase(std::u16string_view& number) {
    if (number.starts_with(u"0x") || number.starts_with(u"0X")) {
        number.remove_prefix(2);
        return 16;
    }
    return number.starts_with(u'0') ? 8 : 10;
}

std::optional<std::uint32_t> ReadLastPage(std::u16string_view token) {
    const unsigned base = TakeBase(token);
    if (token.empty()) return std::nullopt;
    std::uint64_t page = 0;
    for (const char16_t unit : token) {
        const unsigned digit = HexDigitValue(unit);
        if (digit >= base) return std::nullopt;
        page = std::min<std::uint64_t>(page * base + digit, std::numeric_limits<std::uint32_t>::max());
    }
    return static_cast<std::uint32_t>(page);
}

std::uint32_t ReadPage(std::u16string_view text) { return static_cast<std::uint32_t>(ReadDecimal(text)); }

void AddRange(PageList& pages, std::uint32_t first, std::uint32_t last) {
    pages.First = pages.Count == 0 ? first : std::min(pages.First, first);
    pages.Highest = std::max(pages.Highest, last);
    pages.Count = pages.Count == 0 && first == last ? 1 : 2;
}

void AddItem(PageList& pages, std::u16string_view item) {
    const std::size_t hyphen = item.find(u'-');
    const std::uint32_t first = ReadPage(item.substr(0, hyphen));
    if (hyphen == item.npos) return AddRange(pages, first, first);
    const std::optional<std::uint32_t> last = ReadLastPage(item.substr(hyphen + 1));
    if (last && first <= *last) AddRange(pages, first, *last);
}

}  // namespace

PageList ReadPageList(std::u16string_view pages) {
    PageList list;
    while (!pages.empty()) {
        const std::size_t comma = std::min(pages.find(u','), pages.size());
        AddItem(list, pages.substr(0, comma));
        pages.remove_prefix(std::min(comma + 1, pages.size()));
    }
    return list;
}

}  // namespace DeviceSpecificModule
