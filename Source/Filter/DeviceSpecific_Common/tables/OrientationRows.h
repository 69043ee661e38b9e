#pragma once

#include <cstdint>
#include <string_view>

#include "tables/TableChecks.h"

// Which way up a page is.

namespace DeviceSpecificModule {

struct OrientationRow {
    std::uint32_t Id;
    std::u16string_view Keyword;
    std::u16string_view Fragment;
};

inline constexpr OrientationRow OrientationRows[] = {
    {0, u"psk:Landscape",
     u"<psf:Feature name=\"psk:PageOrientation\"><psf:Option name=\"psk:Landscape\" /></psf:Feature>"},
    {1, u"psk:Portrait",
     u"<psf:Feature name=\"psk:PageOrientation\"><psf:Option name=\"psk:Portrait\" /></psf:Feature>"},
};

static_assert(HasUniqueKeywords(OrientationRows));

}  // namespace DeviceSpecificModule
