#pragma once

#include <cstdint>
#include <exception>
#include <new>

#include "devicespecific/platform/Export.h"

/// @file
/// The error that carries a result code.

namespace DeviceSpecificModule::Platform {

/// Result codes, as unsigned 32-bit values.
/// @{
/// a text or a document could not be allocated
inline constexpr std::uint32_t ResultOutOfMemory = 0x8007000E;
/// formatting a number found no string service
inline constexpr std::uint32_t ResultNoStringService = 0x80004005;
/// no converter for the code page in force
inline constexpr std::uint32_t ResultUnknownCodePage = 0x80070057;
/// @}

/// The error that carries a result code. Its class lives in the platform library alone, so that module and
/// host agree on its type and a host can catch what the module throws.
class DEVICESPECIFIC_API ResultError : public std::exception {
public:
    /// Needs no memory.
    explicit ResultError(std::uint32_t code) noexcept;
    ~ResultError() override;

    /// One of those above, or what a platform gave.
    std::uint32_t Code() const noexcept { return code_; }
    /// The code in words, as "result code 0x8007000E".
    const char* what() const noexcept override { return text_; }

private:
    std::uint32_t code_;
    char text_[24];  // kept here because building it must not need memory
};

/// Throws a ResultError with this code.
[[noreturn]] DEVICESPECIFIC_API void ThrowResult(std::uint32_t code);

/// Gives what the function gives. Lack of memory is one error, ResultOutOfMemory, whoever notices it.
template <typename Function>
auto WithOneMemoryError(Function function) {
    try {
        return function();
    } catch (const std::bad_alloc&) {
        ThrowResult(ResultOutOfMemory);
    }
}

}  // namespace DeviceSpecificModule::Platform
