#pragma once

#include <functional>
#include <map>
#include <string>

#include "Platform/PropertyBags.h"

namespace TicketHost {

using PrinterProperties =
    std::map<std::u16string, std::variant<Platform::WideText, std::int32_t>, std::less<>>;
using PipelineProperties = std::map<std::u16string, Platform::PropertyValue, std::less<>>;

// Property bags that live in memory.

class MemoryPrinterBag final : public Platform::IPrinterPropertyBag {
public:
    explicit MemoryPrinterBag(PrinterProperties properties = {}) : properties_(std::move(properties)) {}

    bool GetString(std::u16string_view name, Platform::WideText& value) const override;
    bool GetInt32(std::u16string_view name, std::int32_t& value) const override;

private:
    template <typename Type>
    bool Get(std::u16string_view name, Type& value) const;

    PrinterProperties properties_;
};

class MemoryPipelineBag final : public Platform::IPrintPipelinePropertyBag {
public:
    explicit MemoryPipelineBag(PipelineProperties properties = {}) : properties_(std::move(properties)) {}

    bool GetProperty(std::u16string_view name, Platform::PropertyValue& value) const override;
    bool AddProperty(std::u16string_view name, const Platform::PropertyValue& value) override;
    bool DeleteProperty(std::u16string_view name) override;

    // All that the bag holds, in the order of the names. Valid until the next change.
    const PipelineProperties& Properties() const { return properties_; }

private:
    PipelineProperties properties_;
};

}  // namespace TicketHost
