#pragma once

#include "tables/KeywordCommand.h"

// Image quality. The simple mode has one set of settings, without a number in the names; the detailed mode
// has three, numbered 1 to 3. Each set has tables of its own.

namespace DeviceSpecificModule {

inline constexpr KeywordCommand QualityAdjustModeCommandTable[] = {{u"Simple", u""}, {u"Detail", u""}};

template <int Set>
inline constexpr KeywordCommand ColorMatchingRows[] = {
    {u"Auto", u""}, {u"Brilliant", u""}, {u"Photo", u""}, {u"MinColor", u""}};

template <int Set>
inline constexpr KeywordCommand NeugrayRows[] = {{u"Auto", u""}, {u"Off", u""}, {u"On", u""}};

template <int Set>
inline constexpr KeywordCommand ScreenRows[] = {
    {u"Auto", u""}, {u"Gradation", u""}, {u"Resolution", u""}, {u"HighRes", u""}};

template <int Set>
inline constexpr KeywordCommand SmoothingRows[] = {
    {u"Auto", u""}, {u"Off", u""}, {u"Type1", u""}, {u"Type2", u""}, {u"Type3", u""}};

inline constexpr auto& ColorMatchingCommandTable = ColorMatchingRows<0>;
inline constexpr auto& ColorMatching1CommandTable = ColorMatchingRows<1>;
inline constexpr auto& ColorMatching2CommandTable = ColorMatchingRows<2>;
inline constexpr auto& ColorMatching3CommandTable = ColorMatchingRows<3>;

inline constexpr auto& NeugrayCommandTable = NeugrayRows<0>;
inline constexpr auto& Neugray1CommandTable = NeugrayRows<1>;
inline constexpr auto& Neugray2CommandTable = NeugrayRows<2>;
inline constexpr auto& Neugray3CommandTable = NeugrayRows<3>;

inline constexpr auto& ScreenCommandTable = ScreenRows<0>;
inline constexpr auto& Screen1CommandTable = ScreenRows<1>;
inline constexpr auto& Screen2CommandTable = ScreenRows<2>;
inline constexpr auto& Screen3CommandTable = ScreenRows<3>;

// There is no smoothing in set 1.
inline constexpr auto& SmoothingCommandTable = SmoothingRows<0>;
inline constexpr auto& Smoothing2CommandTable = SmoothingRows<2>;
inline constexpr auto& Smoothing3CommandTable = SmoothingRows<3>;

inline constexpr KeywordCommand BrightnessCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Brightness1CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Brightness2CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Brightness3CommandTable[] = {{u"CMD", u""}};

inline constexpr KeywordCommand ContrastCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Contrast1CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Contrast2CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Contrast3CommandTable[] = {{u"CMD", u""}};

inline constexpr KeywordCommand ChromaCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Chroma1CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Chroma2CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Chroma3CommandTable[] = {{u"CMD", u""}};

inline constexpr KeywordCommand CyanCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Cyan1CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Cyan2CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Cyan3CommandTable[] = {{u"CMD", u""}};

inline constexpr KeywordCommand MagentaCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Magenta1CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Magenta2CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Magenta3CommandTable[] = {{u"CMD", u""}};

inline constexpr KeywordCommand YellowCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Yellow1CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Yellow2CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Yellow3CommandTable[] = {{u"CMD", u""}};

inline constexpr KeywordCommand BlackCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Black1CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Black2CommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand Black3CommandTable[] = {{u"CMD", u""}};

}  // namespace DeviceSpecificModule
