#pragma once

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// Sets the ticket's number of job copies to "1", found by its literal name "psk:JobCopiesAllDocuments"; a
// ticket that doesn't say how many stays as it is.
void ForceOneCopy(const TicketDocument& ticket);

}  // namespace DeviceSpecificModule
