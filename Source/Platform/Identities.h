#pragma once

#include <cstdint>

#include "Platform/Export.h"
#include "Platform/PropertyBags.h"
#include "Platform/WideText.h"

namespace Platform {

// The token of the user whom the platform knows by this number, and the way back. No such user need exist.
PLATFORM_API TokenHandle GetTokenOfUser(std::uint32_t userId);
PLATFORM_API std::uint32_t GetIdOfUser(TokenHandle token);

// The token of a user by name alone, whom the system needn't know: that is this user's name. For as long as
// the process lives one name has one token, from any thread, and it is no token of a number. Throws
// ResultError without memory.
PLATFORM_API TokenHandle GetTokenOfUserName(const WideText& name);

// Whether a token was made of a name; it then has no number.
PLATFORM_API bool IsOfUserName(TokenHandle token);

// The name of the user whose token it is; empty when the system doesn't know one.
PLATFORM_API WideText GetNameOfUser(TokenHandle token);

// The name of this computer; empty when it can't be had.
PLATFORM_API WideText GetNameOfComputer();

}  // namespace Platform
