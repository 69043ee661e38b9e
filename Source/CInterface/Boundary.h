#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "devicespecific/platform/PropertyBags.h"
#include "devicespecific/platform/WideText.h"

#pragma GCC visibility push(default)
#include "devicespecific/devicespecific.h"
#pragma GCC visibility pop

// What all functions of the C interface share: how errors leave them, and texts and values come and go.

namespace DeviceSpecificModule::CInterface {

using Platform::PropertyValue;
using Platform::WideText;

// An error of the interface itself. Making one needs no memory.
class Refusal final : public std::exception {
public:
    Refusal(DsmStatus status, std::string_view text, std::uint32_t code = 0) noexcept;
    const char* what() const noexcept override { return Error.Text; }

    DsmError Error{};
};

// Writes the error that is being handled to `error`, which may be null, and gives its status.
DsmStatus ReportCurrentError(DsmError* error) noexcept;

// Runs what a function of the interface does. Nothing that it throws gets further than to `error`.
template <typename Function>
DsmStatus Guarded(DsmError* error, Function function) noexcept {
    try {
        function();
    } catch (...) {
        return ReportCurrentError(error);
    }
    if (error != nullptr) *error = {};
    return DSM_OK;
}

// Throws Refusal for a null pointer, which it calls `name`.
void Require(const void* pointer, const char* name);

// The text of UTF-8 bytes. Throws Refusal for a null pointer and for bytes that are not UTF-8.
WideText TextOf(const char* bytes, std::size_t length);
// The same for a name, which ends with a zero byte.
WideText NameOf(const char* name);
std::string Utf8Of(std::u16string_view units);

// A host's value; of no type for one that no bag can hold. Throws as TextOf does.
PropertyValue PropertyOf(const DsmValue& value);

// The way back. The bytes of a text stand in `room`.
DsmValue ValueOf(const PropertyValue& property, std::string& room);

}  // namespace DeviceSpecificModule::CInterface
