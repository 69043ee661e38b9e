#pragma once

#include <cstdint>

#include "Platform/Export.h"
#include "Platform/PropertyBags.h"
#include "Platform/WideText.h"

namespace Platform {

// The token of the user whom the platform knows by this number, and the way back. No such user need exist.
PLATFORM_API TokenHandle GetTokenOfUser(std::uint32_t userId);
PLATFORM_API std::uint32_t GetIdOfUser(TokenHandle token);

// The name of the user whose token it is; empty when the system doesn't know one.
PLATFORM_API WideText GetNameOfUser(TokenHandle token);

// The name of this computer; empty when it can't be had.
PLATFORM_API WideText GetNameOfComputer();

}  // namespace Platform
