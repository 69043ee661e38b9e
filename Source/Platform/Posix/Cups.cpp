#include "Cups.h"

#include <dlfcn.h>

#include <mutex>
#include <optional>

namespace DeviceSpecificModule::Platform {

// By the name that the linker would have noted, so that the loader finds it where it finds any library.
Cups::Cups() : library_(dlopen(CUPS_SONAME, RTLD_NOW | RTLD_LOCAL)), complete_(library_ != nullptr) {}

void* Cups::Find(const char* name) {
    void* const function = complete_ ? dlsym(library_, name) : nullptr;
    complete_ = function != nullptr;
    return function;
}

const Cups* FindCups() {
    static std::mutex mutex;
    static std::optional<Cups> found;
    const std::lock_guard lock(mutex);
    if (!found && !found.emplace().IsComplete()) found.reset();
    return found ? &*found : nullptr;
}

}  // namespace DeviceSpecificModule::Platform
