#pragma once

#include "Platform/Export.h"
#include "Platform/PropertyBags.h"
#include "Platform/WideText.h"

namespace Platform {

// The name of the user whose token it is; empty when the system doesn't know one.
PLATFORM_API WideText GetUserName(TokenHandle token);

// The name of this computer; empty when it can't be had.
PLATFORM_API WideText GetComputerName();

}  // namespace Platform
