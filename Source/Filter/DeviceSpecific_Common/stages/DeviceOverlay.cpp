#include "stages/FeatureLists.h"
#include "stages/Stages.h"
#include "tables/OverlayKeywords.h"

namespace DeviceSpecificModule {
namespace {

constexpr std::u16string_view onFrontSide = u"DeviceOverlayPrintOnFrontSide";
constexpr std::u16string_view onBackSide = u"DeviceOverlayPrintOnBackSide";

constexpr FeatureRow rows[] = {
    {u"DeviceOverlayPages", DeviceOverlayPagesCommandTable, u"OverlayPrint"},
    {u"DeviceOverlayPrintOnFrontSide", DeviceOverlayPrintOnFrontSideCommandTable, u"OverlayPrint"},
    {u"DeviceOverlayFrontSideID", DeviceOverlayFrontSideIDCommandTable, onFrontSide,
     u"DeviceOverlayFrontSideID"},
    {u"DeviceOverlayFrontSideColor", DeviceOverlayFrontSideColorCommandTable, onFrontSide},
    {u"DeviceOverlayFrontSideDensity", DeviceOverlayFrontSideDensityCommandTable, onFrontSide,
     u"DeviceOverlayFrontSideDensity"},
    {u"DeviceOverlayFrontSideOverwrite", DeviceOverlayFrontSideOverwriteCommandTable, onFrontSide},
    {u"DeviceOverlayPrintOnBackSide", DeviceOverlayPrintOnBackSideCommandTable, u"OverlayPrint"},
    {u"DeviceOverlayBackSideID", DeviceOverlayBackSideIDCommandTable, onBackSide, u"DeviceOverlayBackSideID"},
    {u"DeviceOverlayBackSideColor", DeviceOverlayBackSideColorCommandTable, onBackSide},
    {u"DeviceOverlayBackSideDensity", DeviceOverlayBackSideDensityCommandTable, onBackSide,
     u"DeviceOverlayBackSideDensity"},
    {u"DeviceOverlayBackSideOverwrite", DeviceOverlayBackSideOverwriteCommandTable, onBackSide},
};

}  // namespace

constexpr FeatureList DeviceOverlayList = rows;

// An overlay that is off for one side ends the list, the other side's rows included.
void WriteDeviceOverlay(PTConverter& converter, const PipelineBag&, const TicketDocument&) {
    RunFeatureList(converter, DeviceOverlayList, GateRule::EndList);
}

}  // namespace DeviceSpecificModule
