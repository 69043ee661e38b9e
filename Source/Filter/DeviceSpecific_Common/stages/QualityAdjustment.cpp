#include "conversion/JsonState.h"
#include "stages/FeatureLists.h"
#include "stages/Stages.h"
#include "tables/QualityKeywords.h"

namespace DeviceSpecificModule {
namespace {

// A row of an adjustment has no feature of its own: its parameter says it all.
constexpr FeatureRow simpleRows[] = {
    {u"QualityAdjustMode", QualityAdjustModeCommandTable},
    {u"ColorMatching", ColorMatchingCommandTable},
    {u"Neugray", NeugrayCommandTable},
    {u"Screen", ScreenCommandTable},
    {u"Smoothing", SmoothingCommandTable},
    {.Feature = u"", .Table = BrightnessCommandTable, .Parameter = u"Brightness"},
    {.Feature = u"", .Table = ContrastCommandTable, .Parameter = u"Contrast"},
    {.Feature = u"", .Table = ChromaCommandTable, .Parameter = u"Chroma"},
    {.Feature = u"", .Table = YellowCommandTable, .Parameter = u"Yellow"},
    {.Feature = u"", .Table = MagentaCommandTable, .Parameter = u"Magenta"},
    {.Feature = u"", .Table = CyanCommandTable, .Parameter = u"Cyan"},
    {.Feature = u"", .Table = BlackCommandTable, .Parameter = u"Black"},
};

// There is no first smoothing table: the device smooths two of the three kinds of content.
constexpr FeatureRow detailRows[] = {
    {u"QualityAdjustMode", QualityAdjustModeCommandTable},
    {u"ColorMatching1", ColorMatching1CommandTable},
    {u"ColorMatching2", ColorMatching2CommandTable},
    {u"ColorMatching3", ColorMatching3CommandTable},
    {u"Neugray1", Neugray1CommandTable},
    {u"Neugray2", Neugray2CommandTable},
    {u"Neugray3", Neugray3CommandTable},
    {u"Screen1", Screen1CommandTable},
    {u"Screen2", Screen2CommandTable},
    {u"Screen3", Screen3CommandTable},
    {u"Smoothing2", Smoothing2CommandTable},
    {u"Smoothing3", Smoothing3CommandTable},
    {.Feature = u"", .Table = Brightness1CommandTable, .Parameter = u"Brightness1"},
    {.Feature = u"", .Table = Brightness2CommandTable, .Parameter = u"Brightness2"},
    {.Feature = u"", .Table = Brightness3CommandTable, .Parameter = u"Brightness3"},
    {.Feature = u"", .Table = Contrast1CommandTable, .Parameter = u"Contrast1"},
    {.Feature = u"", .Table = Contrast2CommandTable, .Parameter = u"Contrast2"},
    {.Feature = u"", .Table = Contrast3CommandTable, .Parameter = u"Contrast3"},
    {.Feature = u"", .Table = Chroma1CommandTable, .Parameter = u"Chroma1"},
    {.Feature = u"", .Table = Chroma2CommandTable, .Parameter = u"Chroma2"},
    {.Feature = u"", .Table = Chroma3CommandTable, .Parameter = u"Chroma3"},
    {.Feature = u"", .Table = Yellow1CommandTable, .Parameter = u"Yellow1"},
    {.Feature = u"", .Table = Yellow2CommandTable, .Parameter = u"Yellow2"},
    {.Feature = u"", .Table = Yellow3CommandTable, .Parameter = u"Yellow3"},
    {.Feature = u"", .Table = Magenta1CommandTable, .Parameter = u"Magenta1"},
    {.Feature = u"", .Table = Magenta2CommandTable, .Parameter = u"Magenta2"},
    {.Feature = u"", .Table = Magenta3CommandTable, .Parameter = u"Magenta3"},
    {.Feature = u"", .Table = Cyan1CommandTable, .Parameter = u"Cyan1"},
    {.Feature = u"", .Table = Cyan2CommandTable, .Parameter = u"Cyan2"},
    {.Feature = u"", .Table = Cyan3CommandTable, .Parameter = u"Cyan3"},
    {.Feature = u"", .Table = Black1CommandTable, .Parameter = u"Black1"},
    {.Feature = u"", .Table = Black2CommandTable, .Parameter = u"Black2"},
    {.Feature = u"", .Table = Black3CommandTable, .Parameter = u"Black3"},
};

}  // namespace

constexpr FeatureList SimpleQualityList = simpleRows;
constexpr FeatureList DetailQualityList = detailRows;

void WriteQualityAdjustment(PTConverter& converter, const PipelineBag&, const TicketDocument&) {
    const WideText mode = LookupCustomProperty(converter.CustomProperties, u"QualityAdjustMode");
    if (mode == u"Simple") RunFeatureList(converter, SimpleQualityList, GateRule::PassOverRow);
    if (mode == u"Detail") RunFeatureList(converter, DetailQualityList, GateRule::PassOverRow);
}

}  // namespace DeviceSpecificModule
