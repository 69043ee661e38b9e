#pragma once

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// A stage of the job pipeline. It reads the user's settings and the ticket and appends to the converter's
// texts; a stage with nothing to say appends nothing, and none touches what another has written. The bag and
// the ticket are the converter's own, lent for the call.
using Stage = void(PTConverter& converter, const PipelineBag& bag, const TicketDocument& ticket);

}  // namespace DeviceSpecificModule
