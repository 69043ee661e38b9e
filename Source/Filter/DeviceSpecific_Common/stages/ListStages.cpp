#include "stages/FeatureEngine.h"
#include "stages/FeatureLists.h"
#include "stages/Stages.h"

namespace DeviceSpecificModule {

void WriteLayoutFinishing(PTConverter& converter, const PipelineBag&, const TicketDocument&) {
    RunFeatureList(converter, LayoutFinishingList, GateRule::PassOverRow);
}

// An overlay that is off for one side ends the list, the other side's rows included.
void WriteDeviceOverlay(PTConverter& converter, const PipelineBag&, const TicketDocument&) {
    RunFeatureList(converter, DeviceOverlayList, GateRule::EndList);
}

}  // namespace DeviceSpecificModule
