#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "CInterface/Boundary.h"
#include "devicespecific/platform/MemoryBags.h"

namespace DeviceSpecificModule::CInterface {

using Platform::PipelineProperties;

// A bag of the host's own behind its functions. Throws Refusal when one of them fails.
class HostBag {
public:
    explicit HostBag(const DsmBag& functions) : functions_(functions) {}

    // False, and `value` as it was, when the bag says so or has nothing that a property can hold.
    bool Get(std::u16string_view name, PropertyValue& value) const;
    bool Set(std::u16string_view name, const PropertyValue& value) const;
    bool Remove(std::u16string_view name) const;

private:
    bool Put(std::u16string_view name, const DsmValue& value) const;

    DsmBag functions_;
};

// A job's driver or queue bag.
class JobPrinterBag final : public Platform::IPrinterPropertyBag {
public:
    // In memory. Only texts and integers can be set, and nothing once it is the host's own.
    void Set(std::u16string_view name, const PropertyValue* value);
    void Use(const DsmBag& functions) noexcept { host_.emplace(functions); }

    bool GetString(std::u16string_view name, WideText& value) const override;
    bool GetInt32(std::u16string_view name, std::int32_t& value) const override;

private:
    template <typename Type>
    bool Get(std::u16string_view name, Type& value) const;

    PipelineProperties held_;
    std::optional<HostBag> host_;
};

// A job's pipeline bag. What it holds, or what conversions have written to the host's own, can be kept as it
// is at a moment and be put back, which takes no memory.
class JobPipelineBag final : public Platform::IPrintPipelinePropertyBag {
public:
    using State = std::shared_ptr<const PipelineProperties>;

    // With nothing in it but these.
    explicit JobPipelineBag(PipelineProperties bags);

    void Set(std::u16string_view name, const PropertyValue* value);
    void Use(const DsmBag& functions, PipelineProperties bags);

    State Keep() noexcept;
    void PutBack(const State& state) noexcept;

    bool GetProperty(std::u16string_view name, PropertyValue& value) const override;
    bool AddProperty(std::u16string_view name, const PropertyValue& value) override;
    bool DeleteProperty(std::u16string_view name) override;

private:
    PipelineProperties& Changeable();

    std::shared_ptr<const PipelineProperties> held_;
    PipelineProperties* own_ = nullptr;  // the same while nobody else may have kept it
    std::optional<HostBag> host_;
};

}  // namespace DeviceSpecificModule::CInterface
