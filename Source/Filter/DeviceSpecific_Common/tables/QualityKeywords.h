#pragma once

#include <string_view>

#include "tables/KeywordCommand.h"
#include "tables/TableChecks.h"

// Image quality. The simple mode has one set of settings, without a number in the names; the detailed mode
// has three, numbered 1 to 3. Each set has tables of its own.

namespace DeviceSpecificModule {

inline constexpr KeywordCommand QualityAdjustModeCommandTable[] = {{u"Simple", u""}, {u"Detail", u""}, {}};

template <int Set>
inline constexpr KeywordCommand ColorMatchingRows[] = {
    {u"Auto", u""}, {u"Brilliant", u""}, {u"Photo", u""}, {u"MinColor", u""}, {}};

template <int Set>
inline constexpr KeywordCommand NeugrayRows[] = {{u"Auto", u""}, {u"Off", u""}, {u"On", u""}, {}};

template <int Set>
inline constexpr KeywordCommand ScreenRows[] = {
    {u"Auto", u""}, {u"Gradation", u""}, {u"Resolution", u""}, {u"HighRes", u""}, {}};

template <int Set>
inline constexpr KeywordCommand SmoothingRows[] = {{u"Auto", u""},  {u"Off", u""},   {u"Type1", u""},
                                                   {u"Type2", u""}, {u"Type3", u""}, {}};

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

inline constexpr KeywordCommand BrightnessCommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view BrightnessParameters[] = {u"Brightness", {}};
inline constexpr KeywordCommand Brightness1CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Brightness1Parameters[] = {u"Brightness1", {}};
inline constexpr KeywordCommand Brightness2CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Brightness2Parameters[] = {u"Brightness2", {}};
inline constexpr KeywordCommand Brightness3CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Brightness3Parameters[] = {u"Brightness3", {}};

inline constexpr KeywordCommand ContrastCommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view ContrastParameters[] = {u"Contrast", {}};
inline constexpr KeywordCommand Contrast1CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Contrast1Parameters[] = {u"Contrast1", {}};
inline constexpr KeywordCommand Contrast2CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Contrast2Parameters[] = {u"Contrast2", {}};
inline constexpr KeywordCommand Contrast3CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Contrast3Parameters[] = {u"Contrast3", {}};

inline constexpr KeywordCommand ChromaCommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view ChromaParameters[] = {u"Chroma", {}};
inline constexpr KeywordCommand Chroma1CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Chroma1Parameters[] = {u"Chroma1", {}};
inline constexpr KeywordCommand Chroma2CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Chroma2Parameters[] = {u"Chroma2", {}};
inline constexpr KeywordCommand Chroma3CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Chroma3Parameters[] = {u"Chroma3", {}};

inline constexpr KeywordCommand CyanCommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view CyanParameters[] = {u"Cyan", {}};
inline constexpr KeywordCommand Cyan1CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Cyan1Parameters[] = {u"Cyan1", {}};
inline constexpr KeywordCommand Cyan2CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Cyan2Parameters[] = {u"Cyan2", {}};
inline constexpr KeywordCommand Cyan3CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Cyan3Parameters[] = {u"Cyan3", {}};

inline constexpr KeywordCommand MagentaCommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view MagentaParameters[] = {u"Magenta", {}};
inline constexpr KeywordCommand Magenta1CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Magenta1Parameters[] = {u"Magenta1", {}};
inline constexpr KeywordCommand Magenta2CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Magenta2Parameters[] = {u"Magenta2", {}};
inline constexpr KeywordCommand Magenta3CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Magenta3Parameters[] = {u"Magenta3", {}};

inline constexpr KeywordCommand YellowCommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view YellowParameters[] = {u"Yellow", {}};
inline constexpr KeywordCommand Yellow1CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Yellow1Parameters[] = {u"Yellow1", {}};
inline constexpr KeywordCommand Yellow2CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Yellow2Parameters[] = {u"Yellow2", {}};
inline constexpr KeywordCommand Yellow3CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Yellow3Parameters[] = {u"Yellow3", {}};

inline constexpr KeywordCommand BlackCommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view BlackParameters[] = {u"Black", {}};
inline constexpr KeywordCommand Black1CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Black1Parameters[] = {u"Black1", {}};
inline constexpr KeywordCommand Black2CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Black2Parameters[] = {u"Black2", {}};
inline constexpr KeywordCommand Black3CommandTable[] = {{u"CMD", u""}, {}};
inline constexpr std::u16string_view Black3Parameters[] = {u"Black3", {}};

static_assert(AreOptionTables(2, QualityAdjustModeCommandTable));
static_assert(AreOptionTables(4, ColorMatchingCommandTable, ColorMatching1CommandTable,
                              ColorMatching2CommandTable, ColorMatching3CommandTable));
static_assert(AreOptionTables(3, NeugrayCommandTable, Neugray1CommandTable, Neugray2CommandTable,
                              Neugray3CommandTable));
static_assert(AreOptionTables(4, ScreenCommandTable, Screen1CommandTable, Screen2CommandTable,
                              Screen3CommandTable));
static_assert(AreOptionTables(5, SmoothingCommandTable, Smoothing2CommandTable, Smoothing3CommandTable));
static_assert(AreFormatTables(BrightnessCommandTable, Brightness1CommandTable, Brightness2CommandTable,
                              Brightness3CommandTable));
static_assert(AreSingleNames(BrightnessParameters, Brightness1Parameters, Brightness2Parameters,
                             Brightness3Parameters));
static_assert(AreFormatTables(ContrastCommandTable, Contrast1CommandTable, Contrast2CommandTable,
                              Contrast3CommandTable));
static_assert(AreSingleNames(ContrastParameters, Contrast1Parameters, Contrast2Parameters,
                             Contrast3Parameters));
static_assert(AreFormatTables(ChromaCommandTable, Chroma1CommandTable, Chroma2CommandTable,
                              Chroma3CommandTable));
static_assert(AreSingleNames(ChromaParameters, Chroma1Parameters, Chroma2Parameters, Chroma3Parameters));
static_assert(AreFormatTables(CyanCommandTable, Cyan1CommandTable, Cyan2CommandTable, Cyan3CommandTable));
static_assert(AreSingleNames(CyanParameters, Cyan1Parameters, Cyan2Parameters, Cyan3Parameters));
static_assert(AreFormatTables(MagentaCommandTable, Magenta1CommandTable, Magenta2CommandTable,
                              Magenta3CommandTable));
static_assert(AreSingleNames(MagentaParameters, Magenta1Parameters, Magenta2Parameters, Magenta3Parameters));
static_assert(AreFormatTables(YellowCommandTable, Yellow1CommandTable, Yellow2CommandTable,
                              Yellow3CommandTable));
static_assert(AreSingleNames(YellowParameters, Yellow1Parameters, Yellow2Parameters, Yellow3Parameters));
static_assert(AreFormatTables(BlackCommandTable, Black1CommandTable, Black2CommandTable, Black3CommandTable));
static_assert(AreSingleNames(BlackParameters, Black1Parameters, Black2Parameters, Black3Parameters));

}  // namespace DeviceSpecificModule
