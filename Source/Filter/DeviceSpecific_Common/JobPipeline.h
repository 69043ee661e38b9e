#pragma once

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// What ProcessDrvPT does, whatever form a platform gives to what it exports: converts the ticket on a
// converter of its own, which starts from the snapshot and, when nothing was thrown, becomes it. What stays
// behind when something was is said there.
void ConvertTicket(PipelineBag pipelineBag, TicketDocument ticket, std::int32_t level,
                   const OptionTables* optionTables, PTConverter* snapshot);

}  // namespace DeviceSpecificModule
