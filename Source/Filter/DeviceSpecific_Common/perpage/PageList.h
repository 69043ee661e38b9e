#pragma once

#include <cstdint>
#include <string_view>

namespace DeviceSpecificModule {

// What the order of entries needs to know of the pages that an entry names. The pages themselves are not
// kept, so a range costs the same whatever its length.
struct PageList {
    std::uint32_t Count = 0;    // 0, 1, or 2 for any larger number; a page named twice counts twice
    std::uint32_t First = 0;    // the lowest page; 0 without pages
    std::uint32_t Highest = 0;  // 0 without pages
};

// Reads a page text such as "1,3-5,9": pages, and ranges with a hyphen, between commas. Any text gives a
// result. A comma at the end adds no item, two in a row do.
//
// A page, and the first one of a range, is read by ReadDecimal, so one without digits is page 0: "-3" is the
// range 0 to 3. The last page of a range, which is all behind the item's first hyphen, is hexadecimal behind
// "0x" or "0X", octal behind another "0", else decimal; what exceeds 32 bits counts as 4294967295. A range
// adds no page when its last page is not wholly such a number, as in "1-3-5", or is lower than its first one.
PageList ReadPageList(std::u16string_view pages);

}  // namespace DeviceSpecificModule
