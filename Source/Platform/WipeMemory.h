#pragma once

#include <cstddef>

#include "devicespecific/platform/Export.h"

namespace DeviceSpecificModule::Platform {

// Overwrites memory with zeros, also where nothing reads it any more: no optimiser takes the call away.
DEVICESPECIFIC_API void WipeMemory(void* memory, std::size_t size) noexcept;

}  // namespace DeviceSpecificModule::Platform
