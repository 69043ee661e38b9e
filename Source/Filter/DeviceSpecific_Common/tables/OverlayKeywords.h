#pragma once

#include "tables/KeywordCommand.h"

// Forms stored in the device that it prints over or under the pages. The two sides of a sheet know the same
// words and have tables of their own.

namespace DeviceSpecificModule {

enum class OverlaySide { Front, Back };

template <OverlaySide>
inline constexpr KeywordCommand OverlayColorRows[] = {
    {u"SameAsStored", u""}, {u"FullColor", u""}, {u"Black", u""},   {u"Red", u""}, {u"Green", u""},
    {u"Blue", u""},         {u"Yellow", u""},    {u"Magenta", u""}, {u"Cyan", u""}};

template <OverlaySide>
inline constexpr KeywordCommand OverlayOverwriteRows[] = {
    {u"OverlayBrightness", u""}, {u"Back", u""}, {u"Front", u""}};

// "FirstPageOnly" is a word of its own; other features say "FirstPage".
inline constexpr KeywordCommand DeviceOverlayPagesCommandTable[] = {{u"AllPages", u""},
                                                                    {u"FirstPageOnly", u""}};

inline constexpr KeywordCommand DeviceOverlayPrintOnFrontSideCommandTable[] = {{u"Off", u""}, {u"On", u""}};
inline constexpr KeywordCommand DeviceOverlayFrontSideIDCommandTable[] = {{u"CMD", u""}};
inline constexpr auto& DeviceOverlayFrontSideColorCommandTable = OverlayColorRows<OverlaySide::Front>;
inline constexpr KeywordCommand DeviceOverlayFrontSideDensityCommandTable[] = {{u"CMD", u""}};
inline constexpr auto& DeviceOverlayFrontSideOverwriteCommandTable = OverlayOverwriteRows<OverlaySide::Front>;

inline constexpr KeywordCommand DeviceOverlayPrintOnBackSideCommandTable[] = {{u"Off", u""}, {u"On", u""}};
inline constexpr KeywordCommand DeviceOverlayBackSideIDCommandTable[] = {{u"CMD", u""}};
inline constexpr auto& DeviceOverlayBackSideColorCommandTable = OverlayColorRows<OverlaySide::Back>;
inline constexpr KeywordCommand DeviceOverlayBackSideDensityCommandTable[] = {{u"CMD", u""}};
inline constexpr auto& DeviceOverlayBackSideOverwriteCommandTable = OverlayOverwriteRows<OverlaySide::Back>;

}  // namespace DeviceSpecificModule
