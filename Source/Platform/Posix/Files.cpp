#include "Platform/Files.h"

namespace DeviceSpecificModule::Platform {

std::FILE* OpenFile(const std::filesystem::path& file, const char* mode) {
    return std::fopen(file.c_str(), mode);
}

}  // namespace DeviceSpecificModule::Platform
