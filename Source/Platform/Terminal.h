#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <system_error>

#include "devicespecific/platform/Export.h"

namespace DeviceSpecificModule::Platform {

// Reads what no screen may show from the standard input into `room` and gives the number of bytes; a full
// room says that there may be more. From a terminal comes one line, with its end, after `prompt` on the
// standard error; the terminal doesn't show it, and shows what is typed again on every way out, an
// interrupting signal included, and while it is stopped. From anything else comes all there is. Nothing is
// kept in a buffer elsewhere.
//
// When the input can't be read, or the terminal can't be kept from showing it, `error` says why and what has
// been read by then counts for nothing. For programs of one thread: it handles the process's signals while it
// waits.
DEVICESPECIFIC_API std::size_t ReadHiddenInput(std::string_view prompt, std::span<char> room,
                                               std::error_code& error);

}  // namespace DeviceSpecificModule::Platform
