#pragma once

#include <string>
#include <vector>

#include "Host/MemoryBags.h"

namespace TicketHost {

// Set properties from arguments of the form NAME=VALUE, the later before the earlier. Values are texts in the
// code page of the environment, but for "UserSecurityToken" of the pipeline, a user id, and
// "encryptionPassphrase_Flag" of a printer bag, a 32-bit integer. Throw InputError, which names the option
// and the argument.

void SetPipelineProperties(const std::vector<std::string>& arguments, PipelineProperties& properties);

void SetPrinterProperties(const std::string& option, const std::vector<std::string>& arguments,
                          PrinterProperties& properties);

}  // namespace TicketHost
