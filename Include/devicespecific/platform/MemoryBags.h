#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "devicespecific/platform/Export.h"
#include "devicespecific/platform/PropertyBags.h"

/// @file
/// Property bags that live in memory, for hosts that have none of their own. Not locked: what runs at the
/// same time must not share one, but to read. Operations throw std::bad_alloc without memory, and leave the
/// bag as it was.

namespace DeviceSpecificModule::Platform {

/// What such bags hold, by name.
/// @{
using PrinterProperties = std::map<std::u16string, std::variant<WideText, std::int32_t>, std::less<>>;
using PipelineProperties = std::map<std::u16string, PropertyValue, std::less<>>;
/// @}

/// Holds what it was made with; nothing changes it.
class DEVICESPECIFIC_API MemoryPrinterBag final : public IPrinterPropertyBag {
public:
    /// A bag of these.
    explicit MemoryPrinterBag(PrinterProperties properties = {}) : properties_(std::move(properties)) {}

    bool GetString(std::u16string_view name, WideText& value) const override;
    bool GetInt32(std::u16string_view name, std::int32_t& value) const override;

private:
    template <typename Type>
    bool Get(std::u16string_view name, Type& value) const;

    PrinterProperties properties_;
};

/// Takes and gives back values of every type.
class DEVICESPECIFIC_API MemoryPipelineBag final : public IPrintPipelinePropertyBag {
public:
    /// A bag of these, for a start.
    explicit MemoryPipelineBag(PipelineProperties properties = {}) : properties_(std::move(properties)) {}

    bool GetProperty(std::u16string_view name, PropertyValue& value) const override;
    bool AddProperty(std::u16string_view name, const PropertyValue& value) override;
    bool DeleteProperty(std::u16string_view name) override;

    /// All that the bag holds, in the order of the names. Valid until the next change.
    const PipelineProperties& Properties() const { return properties_; }

private:
    PipelineProperties properties_;
};

}  // namespace DeviceSpecificModule::Platform
