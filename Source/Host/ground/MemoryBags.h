#pragma once

#include "Host/ground/Platform.h"
#include "devicespecific/platform/MemoryBags.h"

namespace TicketHost {

// A job's bags are the platform's own.
using Platform::MemoryPipelineBag;
using Platform::MemoryPrinterBag;
using Platform::PipelineProperties;
using Platform::PrinterProperties;

}  // namespace TicketHost
