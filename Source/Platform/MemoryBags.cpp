#include "devicespecific/platform/MemoryBags.h"

namespace DeviceSpecificModule::Platform {

template <typename Type>
bool MemoryPrinterBag::Get(std::u16string_view name, Type& value) const {
    const auto found = properties_.find(name);
    const Type* held = found == properties_.end() ? nullptr : std::get_if<Type>(&found->second);
    if (held == nullptr) return false;
    value = *held;
    return true;
}

bool MemoryPrinterBag::GetString(std::u16string_view name, WideText& value) const { return Get(name, value); }

bool MemoryPrinterBag::GetInt32(std::u16string_view name, std::int32_t& value) const {
    return Get(name, value);
}

bool MemoryPipelineBag::GetProperty(std::u16string_view name, PropertyValue& value) const {
    const auto found = properties_.find(name);
    if (found == properties_.end()) return false;
    value = found->second;
    return true;
}

bool MemoryPipelineBag::AddProperty(std::u16string_view name, const PropertyValue& value) {
    return properties_.try_emplace(std::u16string(name), value).second;
}

bool MemoryPipelineBag::DeleteProperty(std::u16string_view name) {
    const auto found = properties_.find(name);
    if (found == properties_.end()) return false;
    properties_.erase(found);
    return true;
}

}  // namespace DeviceSpecificModule::Platform
