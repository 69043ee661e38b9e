#include "Host/check/Vocabulary.h"
#include "Host/check/WordLists.h"
#include "perpage/PerPageWords.h"
#include "tables/CarbonCopyAndPerPageKeywords.h"
#include "tables/CopySecurityKeywords.h"
#include "tables/FinishingKeywords.h"
#include "tables/JobKeywords.h"
#include "tables/OverlayKeywords.h"
#include "tables/QualityKeywords.h"
#include "tables/StampKeywords.h"

namespace TicketHost {
namespace {

using namespace DeviceSpecificModule;

// What isn't "Off" switches on; some settings mean the job's host by "Host", which is off for the device.
constexpr std::u16string_view on[] = {u"On"};
constexpr std::u16string_view none[] = {u"None"};
constexpr std::u16string_view host[] = {u"Host"};
constexpr std::u16string_view onAndOff[] = {u"On", u"Off"};
constexpr std::u16string_view tabPaper[] = {UsedTabPaper, NoTabPaper};
constexpr std::u16string_view sameAsJob[] = {SameAsBody};

constexpr bool filled = true;

const WordList& OutputSizeWords() {
    static const WordList words = [] {
        WordList all = MediaSizeWords();
        all.emplace_back("UsePaperSize");
        return all;
    }();
    return words;
}

constexpr Values number = {.Kind = Form::Number};
constexpr Values dimension = {Form::Number, nullptr, 100, 9'999'999};
constexpr Values onOrOff = {Form::OnlyOn, WordsOf<onAndOff>};
constexpr Values gate = {Form::Switch, WordsOf<onAndOff, host>};

template <const auto&... tables>
constexpr Values OneOf = {Form::Words, WordsOf<tables...>};

constexpr SettingRow settingRows[] = {
    // resolution, hold
    {"ROpt", OneOf<ROptCommandTable, none>},
    {"Hold", OneOf<HoldCommandTable>},
    {"HoldKey", {}, filled},
    // layout and finishing
    {"Layout", OneOf<LayoutCommandTable>},
    {"Booklet", onOrOff},
    {"OutPSize", {Form::MediaSize, OutputSizeWords}},
    {"OutPSizeW", dimension, filled},
    {"OutPSizeH", dimension, filled},
    {"DateTime", OneOf<DateTimeCommandTable, host>},
    {"DateTimePages", OneOf<DateTimePagesCommandTable>},
    {"DateTimeColor", OneOf<DateTimeColorCommandTable>},
    {"DateTimePosition", OneOf<DateTimePositionCommandTable>},
    {"DateTimeDateFormat", OneOf<DateTimeDateFormatCommandTable>},
    {"DateTimeTime", OneOf<DateTimeTimeCommandTable, on, host>},
    {"DateTimeTimeFormat", OneOf<DateTimeTimeFormatCommandTable>},
    {"ImageShift", OneOf<ImageShiftCommandTable, host>},
    {"ImageShiftInfo", {}, filled},
    {"ChapterMode", OneOf<ChapterModeCommandTable, host>},
    {"Chapter", {}, filled},
    {"EdgeMatch", OneOf<EdgeMatchCommandTable>},
    {"GlossyMode", OneOf<GlossyModeCommandTable>},
    {"TonerSave", OneOf<TonerSaveCommandTable>},
    {"EcoSetting", OneOf<EcoSettingCommandTable>},
    {"ImprovePrintOut", OneOf<ImprovePrintOutCommandTable>},
    {"EdgeEnhancement", OneOf<EdgeEnhancementCommandTable>},
    {"Exposure", OneOf<ExposureCommandTable>},
    {"TColor", OneOf<TColorCommandTable, host>},
    {"TColorType", OneOf<TColorTypeCommandTable>},
    // device overlay
    {"OverlayPrint", gate},
    {"DeviceOverlayPages", OneOf<DeviceOverlayPagesCommandTable>},
    {"DeviceOverlayPrintOnFrontSide", OneOf<DeviceOverlayPrintOnFrontSideCommandTable, host>},
    {"DeviceOverlayFrontSideID", {}, filled},
    {"DeviceOverlayFrontSideColor", OneOf<DeviceOverlayFrontSideColorCommandTable>},
    {"DeviceOverlayFrontSideDensity", number, filled},
    {"DeviceOverlayFrontSideOverwrite", OneOf<DeviceOverlayFrontSideOverwriteCommandTable>},
    {"DeviceOverlayPrintOnBackSide", OneOf<DeviceOverlayPrintOnBackSideCommandTable, host>},
    {"DeviceOverlayBackSideID", {}, filled},
    {"DeviceOverlayBackSideColor", OneOf<DeviceOverlayBackSideColorCommandTable>},
    {"DeviceOverlayBackSideDensity", number, filled},
    {"DeviceOverlayBackSideOverwrite", OneOf<DeviceOverlayBackSideOverwriteCommandTable>},
    // page numbers
    {"PageNumber", gate},
    {"PageNumberColor", OneOf<PageNumberColorCommandTable>},
    {"PageNumberPosition", OneOf<PageNumberPositionCommandTable>},
    {"PageNumberCoverMode", {Form::Switch, WordsOf<onAndOff>}},
    {"PageNumberCover", {}},
    {"PageNumberStartingPage", number, filled},
    {"PageNumberStartingPageNumber", number, filled},
    // header and footer
    {"HeaderFooter", OneOf<HeaderFooterCommandTable>},
    {"HeaderFooterFormat", {}, filled},
    {"HeaderFooterPrintHeader", OneOf<HeaderFooterPrintHeaderCommandTable, on>},
    {"HeaderStartNumberType", OneOf<HeaderStartNumberTypeCommandTable>},
    {"HeaderPageNumber", number, filled},
    {"HeaderFooterPrintFooter", OneOf<HeaderFooterPrintFooterCommandTable, on>},
    {"FooterStartNumberType", OneOf<FooterStartNumberTypeCommandTable>},
    {"FooterPageNumber", number, filled},
    {"HeaderFooterPages", OneOf<HeaderFooterPagesCommandTable>},
    {"HeaderFooterColor", OneOf<HeaderFooterColorCommandTable>},
    // copy security
    {"CopySecurity", OneOf<CopySecurityCommandTable, host>},
    {"CopySecurityOption", OneOf<CopySecurityOptionCommandTable>},
    {"PWDCopyKey", {}},
    {"CopyProtect", onOrOff},
    {"CopyProtectPattern", OneOf<CopyProtectPatternCommandTable>},
    {"CopyProtectPatternOverwrite", {}},
    {"CopyProtectBackgroundPattern", {}},
    {"CopyProtectCharacters", {}},
    {"CopyProtectFont", {}},
    {"CopyProtectString", onOrOff},
    {"CopyProtectStringType", OneOf<CopyProtectStrings>},
    {"CopyProtectDateTime", onOrOff},
    {"CopyProtectDateTimeDateFormat", OneOf<CopyProtectDateWords>},
    {"CopyProtectDateTimeTimeCheck", onOrOff},
    {"CopyProtectDateTimeTimeFormat", OneOf<CopyProtectTimeWords>},
    {"CopyProtectSerialNumber", onOrOff},
    {"CopyProtectDistributionNumber", onOrOff},
    {"CopyProtectDistributionNumberStartNumberType", {}},
    {"CopyProtectDistributionNumberStartNumber", number, filled},
    {"CopyProtectJobNumber", onOrOff},
    {"CopyProtectTextSize", OneOf<CopyProtectTextSizeWords>},
    {"CopyProtectEffect", OneOf<CopyProtectEffectWords>},
    {"CopyProtectPlacement", OneOf<CopyProtectPlacementWords>},
    {"CopyProtectColor", OneOf<CopyProtectColorWords>},
    {"CopyProtectDensity", OneOf<CopyProtectDensityWords>},
    {"CopyProtectPatternContrast", OneOf<CopyProtectContrastWords>},
    {"CopyProtectTextAngle", OneOf<CopyProtectAngleWords>},
    // carbon copies
    {"CarbonCopy", onOrOff},
    {"CarbonCopyType", OneOf<CarbonCopyTypeCommandTable>},
    {"CarbonCopyTray1", onOrOff},
    {"CarbonCopyTray2", onOrOff},
    {"CarbonCopyTray3", onOrOff},
    {"CarbonCopyTray4", onOrOff},
    {"CarbonCopyTrayLCT", onOrOff},
    {"CarbonCopyTrayManual", onOrOff},
    // exceptions for single pages
    {"PerPageSetting", {Form::Switch, WordsOf<onAndOff>}},
    {"PerPagePageDetails", {}},
    {"PerPageListDetails", {}},
    // image quality
    {"QualityAdjustMode", OneOf<QualityAdjustModeCommandTable>},
    {"ColorMatching", OneOf<ColorMatchingCommandTable>},
    {"ColorMatching1", OneOf<ColorMatching1CommandTable>},
    {"ColorMatching2", OneOf<ColorMatching2CommandTable>},
    {"ColorMatching3", OneOf<ColorMatching3CommandTable>},
    {"Neugray", OneOf<NeugrayCommandTable>},
    {"Neugray1", OneOf<Neugray1CommandTable>},
    {"Neugray2", OneOf<Neugray2CommandTable>},
    {"Neugray3", OneOf<Neugray3CommandTable>},
    {"Screen", OneOf<ScreenCommandTable>},
    {"Screen1", OneOf<Screen1CommandTable>},
    {"Screen2", OneOf<Screen2CommandTable>},
    {"Screen3", OneOf<Screen3CommandTable>},
    {"Smoothing", OneOf<SmoothingCommandTable>},
    {"Smoothing2", OneOf<Smoothing2CommandTable>},
    {"Smoothing3", OneOf<Smoothing3CommandTable>},
    {"Brightness", number, filled},
    {"Brightness1", number, filled},
    {"Brightness2", number, filled},
    {"Brightness3", number, filled},
    {"Contrast", number, filled},
    {"Contrast1", number, filled},
    {"Contrast2", number, filled},
    {"Contrast3", number, filled},
    {"Chroma", number, filled},
    {"Chroma1", number, filled},
    {"Chroma2", number, filled},
    {"Chroma3", number, filled},
    {"Yellow", number, filled},
    {"Yellow1", number, filled},
    {"Yellow2", number, filled},
    {"Yellow3", number, filled},
    {"Magenta", number, filled},
    {"Magenta1", number, filled},
    {"Magenta2", number, filled},
    {"Magenta3", number, filled},
    {"Cyan", number, filled},
    {"Cyan1", number, filled},
    {"Cyan2", number, filled},
    {"Cyan3", number, filled},
    {"Black", number, filled},
    {"Black1", number, filled},
    {"Black2", number, filled},
    {"Black3", number, filled},
};

constexpr PerPageRow perPageRows[] = {
    {"PageNumber", true, "", {Form::PageList}},
    {"PrintType", true, "the job's own mode counts", OneOf<PerPageDuplexWords, sameAsJob>},
    {"TabPaper", true, "it counts as \"Use\"", OneOf<tabPaper>},
    {"TextOnTab", true, ""},
    {"PaperTray", true, "the values behind it take its place in the command", OneOf<PerPageTrayWords>},
    {"Staple", true, "two points are stapled", OneOf<PerPageStapleWords>},
    {"NumberOfTabs", false, ""},
};

}  // namespace

std::span<const SettingRow> SettingRows() { return settingRows; }

std::span<const PerPageRow> PerPageRows() { return perPageRows; }

}  // namespace TicketHost
