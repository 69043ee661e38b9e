#include "stages/FeatureLists.h"
#include "stages/Stages.h"
#include "tables/CopySecurityKeywords.h"
#include "tables/FinishingKeywords.h"
#include "tables/JobKeywords.h"
#include "tables/StampKeywords.h"

namespace DeviceSpecificModule {
namespace {

constexpr FeatureRow rows[] = {
    {u"Layout", LayoutCommandTable},
    {u"PageNumberColor", PageNumberColorCommandTable, u"PageNumber"},
    {u"PageNumberPosition", PageNumberPositionCommandTable, u"PageNumber"},
    {u"DateTime", DateTimeCommandTable},
    {u"DateTimePages", DateTimePagesCommandTable, u"DateTime"},
    {u"DateTimeColor", DateTimeColorCommandTable, u"DateTime"},
    {u"DateTimePosition", DateTimePositionCommandTable, u"DateTime"},
    {u"DateTimeDateFormat", DateTimeDateFormatCommandTable, u"DateTime"},
    {u"DateTimeTime", DateTimeTimeCommandTable, u"DateTime"},
    {u"DateTimeTimeFormat", DateTimeTimeFormatCommandTable, u"DateTimeTime"},
    {u"ImageShift", ImageShiftCommandTable},
    {u"ImageShiftInfo", ImageShiftInfoCommandTable, u"ImageShift", u"ImageShiftInfo"},
    {u"CopySecurity", CopySecurityCommandTable},
    {u"CopySecurityOption", CopySecurityOptionCommandTable, u"CopySecurity"},
    {u"CopyProtectPattern", CopyProtectPatternCommandTable, u"CopySecurity"},
    {u"ChapterMode", ChapterModeCommandTable},
    {u"Chapter", ChapterCommandTable, u"ChapterMode", u"Chapter"},
    {u"EdgeMatch", EdgeMatchCommandTable},
    {u"GlossyMode", GlossyModeCommandTable},
    {u"TonerSave", TonerSaveCommandTable},
    {u"EcoSetting", EcoSettingCommandTable},
    {u"ImprovePrintOut", ImprovePrintOutCommandTable},
    {u"EdgeEnhancement", EdgeEnhancementCommandTable},
    {u"Exposure", ExposureCommandTable},
    {u"TColor", TColorCommandTable},
    {u"TColorType", TColorTypeCommandTable, u"TColor"},
};

}  // namespace

constexpr FeatureList LayoutFinishingList = rows;

void WriteLayoutFinishing(PTConverter& converter, const PipelineBag&, const TicketDocument&) {
    RunFeatureList(converter, LayoutFinishingList, GateRule::PassOverRow);
}

}  // namespace DeviceSpecificModule
