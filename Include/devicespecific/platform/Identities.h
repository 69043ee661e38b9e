#pragma once

#include <cstdint>

#include "devicespecific/platform/Export.h"
#include "devicespecific/platform/PropertyBags.h"
#include "devicespecific/platform/WideText.h"

/// @file
/// Who submits jobs, and from where. May be called on any thread at the same time.

namespace DeviceSpecificModule::Platform {

/// The token of the user whom the platform knows by this number, and the way back. No such user need exist.
/// @{
DEVICESPECIFIC_API TokenHandle GetTokenOfUser(std::uint32_t userId);
DEVICESPECIFIC_API std::uint32_t GetIdOfUser(TokenHandle token);
/// @}

/// The token of a user by name alone, whom the system needn't know: that is this user's name. For as long as
/// the process lives one name has one token, from any thread, and it is no token of a number. Throws
/// ResultError without memory.
DEVICESPECIFIC_API TokenHandle GetTokenOfUserName(const WideText& name);

/// Whether a token was made of a name; it then has no number.
DEVICESPECIFIC_API bool IsOfUserName(TokenHandle token);

/// The name of the user whose token it is; empty when the system doesn't know one.
DEVICESPECIFIC_API WideText GetNameOfUser(TokenHandle token);

/// The name of this computer; empty when it can't be had.
DEVICESPECIFIC_API WideText GetNameOfComputer();

}  // namespace DeviceSpecificModule::Platform
