#pragma once

#include <string_view>

namespace DeviceSpecificModule {

// A media size keyword without its namespace prefix: what stands behind the first ":", or all of it.
constexpr std::u16string_view PageSizeKeyOf(std::u16string_view size) {
    const std::size_t colon = size.find(u':');
    return colon == size.npos ? size : size.substr(colon + 1);
}

// Whether a size has no dimensions of its own, so that they come from the job or the ticket.
constexpr bool IsCustomSize(std::u16string_view pageSizeKey) {
    return pageSizeKey == u"CustomMediaSize" || pageSizeKey == u"UserPaper";
}

}  // namespace DeviceSpecificModule
