#pragma once

// The platform layer's names, as the tool's sources have them.

namespace DeviceSpecificModule::Platform {}

namespace TicketHost {

namespace Platform = DeviceSpecificModule::Platform;

}  // namespace TicketHost
