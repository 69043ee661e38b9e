#include "devicespecific/platform/ResultError.h"

#include <cstdio>

namespace DeviceSpecificModule::Platform {

ResultError::ResultError(std::uint32_t code) noexcept : code_(code) {
    std::snprintf(text_, sizeof text_, "result code 0x%08X", static_cast<unsigned>(code));
}

ResultError::~ResultError() = default;

void ThrowResult(std::uint32_t code) { throw ResultError(code); }

}  // namespace DeviceSpecificModule::Platform
