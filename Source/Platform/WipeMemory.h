#pragma once

#include <cstddef>

#include "Platform/Export.h"

namespace Platform {

// Overwrites memory with zeros, also where nothing reads it any more: no optimiser takes the call away.
PLATFORM_API void WipeMemory(void* memory, std::size_t size) noexcept;

}  // namespace Platform
