#pragma once

#include <cstdint>
#include <string_view>

#include "tables/TableChecks.h"

// The bins that the device delivers to.

namespace DeviceSpecificModule {

struct OutputBinRow {
    std::uint32_t Id;
    std::u16string_view Keyword;
    std::u16string_view Option;  // in the fragment
    std::u16string_view JobCommand;
};

// The first two numbered bins are the other way round at the device.
inline constexpr OutputBinRow OutputBinRows[] = {
    {0, u"ns0000:Auto", u"xr:Auto", u"@PJL SET OUTBIN=DEFAULT\r\n"},
    {3, u"ns0000:Bin1", u"xr:Bin2", u"@PJL SET OUTBIN=BIN2\r\n"},
    {4, u"ns0000:Bin2", u"xr:Bin1", u"@PJL SET OUTBIN=BIN1\r\n"},
    {5, u"ns0000:Bin3", u"xr:Bin3", u"@PJL SET OUTBIN=BIN3\r\n"},
};

static_assert(HasUniqueKeywords(OutputBinRows));

}  // namespace DeviceSpecificModule
