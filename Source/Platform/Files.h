#pragma once

#include <cstdio>
#include <filesystem>

#include "devicespecific/platform/Export.h"

namespace DeviceSpecificModule::Platform {

// Opens a file as std::fopen does, whatever characters its name holds; without "b" in the mode line ends may
// change on the way. Null when it can't be opened, and errno then says why. The caller closes the file with
// std::fclose.
DEVICESPECIFIC_API std::FILE* OpenFile(const std::filesystem::path& file, const char* mode);

}  // namespace DeviceSpecificModule::Platform
