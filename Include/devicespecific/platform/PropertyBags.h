#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <variant>

#include "devicespecific/platform/Export.h"
#include "devicespecific/platform/WideText.h"

/// @file
/// The property bags of a print pipeline, as the module and its hosts know them. A host gives its own by
/// deriving from the two interfaces. What an operation of a bag throws leaves ProcessDrvPT as it is.

namespace DeviceSpecificModule::Platform {

/// The property bag of a printer's driver or of its queue. Names compare exactly.
class DEVICESPECIFIC_API IPrinterPropertyBag {
public:
    virtual ~IPrinterPropertyBag();
    /// Give false, and leave `value` as it was, when the bag has no such property or one of another type.
    /// @{
    virtual bool GetString(std::u16string_view name, WideText& value) const = 0;
    virtual bool GetInt32(std::u16string_view name, std::int32_t& value) const = 0;
    /// @}
};

/// Who submitted the job: as wide as a pointer, and what it says only the platform knows.
/// platform/Identities.h makes and reads it.
enum class TokenHandle : std::uintptr_t {};

/// A value of no type that carries an address. Not owned: whoever stores it keeps what stands there alive.
struct BareReference {
    const void* Address = nullptr;  ///< null where there is nothing
};

/// What a pipeline property holds. WideText may be null.
using PropertyValue = std::variant<std::monostate, WideText, std::int32_t, TokenHandle, BareReference,
                                   std::shared_ptr<IPrinterPropertyBag>>;

/// The property bag that the filters of one print pipeline share. Names compare exactly.
class DEVICESPECIFIC_API IPrintPipelinePropertyBag {
public:
    virtual ~IPrintPipelinePropertyBag();
    /// Gives false, and leaves `value` as it was, when there is no such property.
    virtual bool GetProperty(std::u16string_view name, PropertyValue& value) const = 0;
    /// Gives false when the property is there already; its old value then stays.
    virtual bool AddProperty(std::u16string_view name, const PropertyValue& value) = 0;
    /// Gives false when there is no such property.
    virtual bool DeleteProperty(std::u16string_view name) = 0;
};

/// Counted references, as the module and its hosts pass them.
/// @{
using PipelineBag = std::shared_ptr<IPrintPipelinePropertyBag>;
using DriverBag = std::shared_ptr<IPrinterPropertyBag>;
using QueueBag = std::shared_ptr<IPrinterPropertyBag>;
/// @}

}  // namespace DeviceSpecificModule::Platform
