#pragma once

#include <iterator>

#include "stages/FeatureEngine.h"
#include "tables/CopySecurityKeywords.h"
#include "tables/FinishingKeywords.h"
#include "tables/JobKeywords.h"
#include "tables/OverlayKeywords.h"
#include "tables/QualityKeywords.h"
#include "tables/StampKeywords.h"

// The lists of the stages that are lists, in the order in which their commands go out.

namespace DeviceSpecificModule {

inline constexpr FeatureRow LayoutFinishingList[] = {
    {.Feature = u"Layout", .Table = LayoutCommandTable},
    {.Feature = u"PageNumberColor", .Table = PageNumberColorCommandTable, .Gate = u"PageNumber"},
    {.Feature = u"PageNumberPosition", .Table = PageNumberPositionCommandTable, .Gate = u"PageNumber"},
    {.Feature = u"DateTime", .Table = DateTimeCommandTable},
    {.Feature = u"DateTimePages", .Table = DateTimePagesCommandTable, .Gate = u"DateTime"},
    {.Feature = u"DateTimeColor", .Table = DateTimeColorCommandTable, .Gate = u"DateTime"},
    {.Feature = u"DateTimePosition", .Table = DateTimePositionCommandTable, .Gate = u"DateTime"},
    {.Feature = u"DateTimeDateFormat", .Table = DateTimeDateFormatCommandTable, .Gate = u"DateTime"},
    {.Feature = u"DateTimeTime", .Table = DateTimeTimeCommandTable, .Gate = u"DateTime"},
    {.Feature = u"DateTimeTimeFormat", .Table = DateTimeTimeFormatCommandTable, .Gate = u"DateTimeTime"},
    {.Feature = u"ImageShift", .Table = ImageShiftCommandTable},
    {.Feature = u"ImageShiftInfo",
     .Table = ImageShiftInfoCommandTable,
     .Parameters = ImageShiftInfoParameters,
     .Gate = u"ImageShift"},
    {.Feature = u"CopySecurity", .Table = CopySecurityCommandTable},
    {.Feature = u"CopySecurityOption", .Table = CopySecurityOptionCommandTable, .Gate = u"CopySecurity"},
    {.Feature = u"CopyProtectPattern", .Table = CopyProtectPatternCommandTable, .Gate = u"CopySecurity"},
    {.Feature = u"ChapterMode", .Table = ChapterModeCommandTable},
    {.Feature = u"Chapter",
     .Table = ChapterCommandTable,
     .Parameters = ChapterParameters,
     .Gate = u"ChapterMode"},
    {.Feature = u"EdgeMatch", .Table = EdgeMatchCommandTable},
    {.Feature = u"GlossyMode", .Table = GlossyModeCommandTable},
    {.Feature = u"TonerSave", .Table = TonerSaveCommandTable},
    {.Feature = u"EcoSetting", .Table = EcoSettingCommandTable},
    {.Feature = u"ImprovePrintOut", .Table = ImprovePrintOutCommandTable},
    {.Feature = u"EdgeEnhancement", .Table = EdgeEnhancementCommandTable},
    {.Feature = u"Exposure", .Table = ExposureCommandTable},
    {.Feature = u"TColor", .Table = TColorCommandTable},
    {.Feature = u"TColorType", .Table = TColorTypeCommandTable, .Gate = u"TColor"},
    {},
};

inline constexpr FeatureRow DeviceOverlayList[] = {
    {.Feature = u"DeviceOverlayPages", .Table = DeviceOverlayPagesCommandTable, .Gate = u"OverlayPrint"},
    {.Feature = u"DeviceOverlayPrintOnFrontSide",
     .Table = DeviceOverlayPrintOnFrontSideCommandTable,
     .Gate = u"OverlayPrint"},
    {.Feature = u"DeviceOverlayFrontSideID",
     .Table = DeviceOverlayFrontSideIDCommandTable,
     .Parameters = DeviceOverlayFrontSideIDParameters,
     .Gate = u"DeviceOverlayPrintOnFrontSide"},
    {.Feature = u"DeviceOverlayFrontSideColor",
     .Table = DeviceOverlayFrontSideColorCommandTable,
     .Gate = u"DeviceOverlayPrintOnFrontSide"},
    {.Feature = u"DeviceOverlayFrontSideDensity",
     .Table = DeviceOverlayFrontSideDensityCommandTable,
     .Parameters = DeviceOverlayFrontSideDensityParameters,
     .Gate = u"DeviceOverlayPrintOnFrontSide"},
    {.Feature = u"DeviceOverlayFrontSideOverwrite",
     .Table = DeviceOverlayFrontSideOverwriteCommandTable,
     .Gate = u"DeviceOverlayPrintOnFrontSide"},
    {.Feature = u"DeviceOverlayPrintOnBackSide",
     .Table = DeviceOverlayPrintOnBackSideCommandTable,
     .Gate = u"OverlayPrint"},
    {.Feature = u"DeviceOverlayBackSideID",
     .Table = DeviceOverlayBackSideIDCommandTable,
     .Parameters = DeviceOverlayBackSideIDParameters,
     .Gate = u"DeviceOverlayPrintOnBackSide"},
    {.Feature = u"DeviceOverlayBackSideColor",
     .Table = DeviceOverlayBackSideColorCommandTable,
     .Gate = u"DeviceOverlayPrintOnBackSide"},
    {.Feature = u"DeviceOverlayBackSideDensity",
     .Table = DeviceOverlayBackSideDensityCommandTable,
     .Parameters = DeviceOverlayBackSideDensityParameters,
     .Gate = u"DeviceOverlayPrintOnBackSide"},
    {.Feature = u"DeviceOverlayBackSideOverwrite",
     .Table = DeviceOverlayBackSideOverwriteCommandTable,
     .Gate = u"DeviceOverlayPrintOnBackSide"},
    {},
};

// A row of an adjustment has no feature of its own: its parameter says it all.
inline constexpr FeatureRow SimpleQualityList[] = {
    {.Feature = u"QualityAdjustMode", .Table = QualityAdjustModeCommandTable},
    {.Feature = u"ColorMatching", .Table = ColorMatchingCommandTable},
    {.Feature = u"Neugray", .Table = NeugrayCommandTable},
    {.Feature = u"Screen", .Table = ScreenCommandTable},
    {.Feature = u"Smoothing", .Table = SmoothingCommandTable},
    {.Feature = u"", .Table = BrightnessCommandTable, .Parameters = BrightnessParameters},
    {.Feature = u"", .Table = ContrastCommandTable, .Parameters = ContrastParameters},
    {.Feature = u"", .Table = ChromaCommandTable, .Parameters = ChromaParameters},
    {.Feature = u"", .Table = YellowCommandTable, .Parameters = YellowParameters},
    {.Feature = u"", .Table = MagentaCommandTable, .Parameters = MagentaParameters},
    {.Feature = u"", .Table = CyanCommandTable, .Parameters = CyanParameters},
    {.Feature = u"", .Table = BlackCommandTable, .Parameters = BlackParameters},
    {},
};

// There is no first smoothing table: the device smooths two of the three kinds of content.
inline constexpr FeatureRow DetailQualityList[] = {
    {.Feature = u"QualityAdjustMode", .Table = QualityAdjustModeCommandTable},
    {.Feature = u"ColorMatching1", .Table = ColorMatching1CommandTable},
    {.Feature = u"ColorMatching2", .Table = ColorMatching2CommandTable},
    {.Feature = u"ColorMatching3", .Table = ColorMatching3CommandTable},
    {.Feature = u"Neugray1", .Table = Neugray1CommandTable},
    {.Feature = u"Neugray2", .Table = Neugray2CommandTable},
    {.Feature = u"Neugray3", .Table = Neugray3CommandTable},
    {.Feature = u"Screen1", .Table = Screen1CommandTable},
    {.Feature = u"Screen2", .Table = Screen2CommandTable},
    {.Feature = u"Screen3", .Table = Screen3CommandTable},
    {.Feature = u"Smoothing2", .Table = Smoothing2CommandTable},
    {.Feature = u"Smoothing3", .Table = Smoothing3CommandTable},
    {.Feature = u"", .Table = Brightness1CommandTable, .Parameters = Brightness1Parameters},
    {.Feature = u"", .Table = Brightness2CommandTable, .Parameters = Brightness2Parameters},
    {.Feature = u"", .Table = Brightness3CommandTable, .Parameters = Brightness3Parameters},
    {.Feature = u"", .Table = Contrast1CommandTable, .Parameters = Contrast1Parameters},
    {.Feature = u"", .Table = Contrast2CommandTable, .Parameters = Contrast2Parameters},
    {.Feature = u"", .Table = Contrast3CommandTable, .Parameters = Contrast3Parameters},
    {.Feature = u"", .Table = Chroma1CommandTable, .Parameters = Chroma1Parameters},
    {.Feature = u"", .Table = Chroma2CommandTable, .Parameters = Chroma2Parameters},
    {.Feature = u"", .Table = Chroma3CommandTable, .Parameters = Chroma3Parameters},
    {.Feature = u"", .Table = Yellow1CommandTable, .Parameters = Yellow1Parameters},
    {.Feature = u"", .Table = Yellow2CommandTable, .Parameters = Yellow2Parameters},
    {.Feature = u"", .Table = Yellow3CommandTable, .Parameters = Yellow3Parameters},
    {.Feature = u"", .Table = Magenta1CommandTable, .Parameters = Magenta1Parameters},
    {.Feature = u"", .Table = Magenta2CommandTable, .Parameters = Magenta2Parameters},
    {.Feature = u"", .Table = Magenta3CommandTable, .Parameters = Magenta3Parameters},
    {.Feature = u"", .Table = Cyan1CommandTable, .Parameters = Cyan1Parameters},
    {.Feature = u"", .Table = Cyan2CommandTable, .Parameters = Cyan2Parameters},
    {.Feature = u"", .Table = Cyan3CommandTable, .Parameters = Cyan3Parameters},
    {.Feature = u"", .Table = Black1CommandTable, .Parameters = Black1Parameters},
    {.Feature = u"", .Table = Black2CommandTable, .Parameters = Black2Parameters},
    {.Feature = u"", .Table = Black3CommandTable, .Parameters = Black3Parameters},
    {},
};

constexpr bool EndsOnlyAtLastRow(FeatureList list, std::size_t size) {
    for (std::size_t row = 0; row + 1 < size; ++row)
        if (list[row].Feature.data() == nullptr) return false;
    return list[size - 1].Feature.data() == nullptr;
}

static_assert(std::size(LayoutFinishingList) == 26 + 1 && EndsOnlyAtLastRow(LayoutFinishingList, 26 + 1));
static_assert(std::size(DeviceOverlayList) == 11 + 1 && EndsOnlyAtLastRow(DeviceOverlayList, 11 + 1));
static_assert(std::size(SimpleQualityList) == 12 + 1 && EndsOnlyAtLastRow(SimpleQualityList, 12 + 1));
static_assert(std::size(DetailQualityList) == 33 + 1 && EndsOnlyAtLastRow(DetailQualityList, 33 + 1));

}  // namespace DeviceSpecificModule
