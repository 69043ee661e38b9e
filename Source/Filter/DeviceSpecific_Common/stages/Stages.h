#pragma once

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// The stages of the job pipeline. Each reads the user's settings and the ticket and appends to the
// converter's texts; a stage with nothing to say appends nothing, and none touches what another has written.
// The bag and the ticket are the converter's own, lent for the call.
using Stage = void(PTConverter& converter, const PipelineBag& bag, const TicketDocument& ticket);

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
