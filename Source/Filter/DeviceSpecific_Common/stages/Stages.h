#pragma once

#include "conversion/Stage.h"

namespace DeviceSpecificModule {

// The stages of the job pipeline, in its order; that of the exceptions for single pages stands in perpage.

Stage WriteUserAndResolution;
Stage WriteHoldAndJobName;
Stage WriteLayoutFinishing;
Stage WriteDeviceOverlay;
Stage WriteCollation;
Stage WriteOutputFeatures;
Stage WritePageNumbering;
Stage WriteCopySecurity;
Stage WriteHeaderFooter;
Stage WriteCarbonCopy;
Stage ForceOneSidedTicket;
Stage WriteQualityAdjustment;
Stage WriteQualityProperties;
Stage WriteJobLogAndTime;

}  // namespace DeviceSpecificModule
