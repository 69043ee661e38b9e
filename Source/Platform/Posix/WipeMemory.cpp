#include "Platform/WipeMemory.h"

#include <string.h>

namespace DeviceSpecificModule::Platform {

void WipeMemory(void* memory, std::size_t size) noexcept { explicit_bzero(memory, size); }

}  // namespace DeviceSpecificModule::Platform
