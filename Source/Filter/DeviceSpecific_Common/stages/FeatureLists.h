#pragma once

#include "stages/FeatureEngine.h"

namespace DeviceSpecificModule {

// The lists of the stages that are lists, in the order in which their commands go out. Each stands with its
// stage.
extern const FeatureList LayoutFinishingList;
extern const FeatureList DeviceOverlayList;
extern const FeatureList SimpleQualityList;
extern const FeatureList DetailQualityList;

}  // namespace DeviceSpecificModule
