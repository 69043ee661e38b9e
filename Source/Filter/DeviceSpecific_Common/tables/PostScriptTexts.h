#pragma once

#include <string_view>

namespace DeviceSpecificModule {

// Hands the dictionary ahead of it to the device's own options, or drops it where the device has none.
inline constexpr std::u16string_view SetDeviceOptions =
    u"/XROptions /ProcSet resourcestatus {pop pop /XROptions /ProcSet findresource /setXRoptions get "
    u"exec}{pop} ifelse\r\n";

}  // namespace DeviceSpecificModule
