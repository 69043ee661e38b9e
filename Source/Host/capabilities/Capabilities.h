#pragma once

#include "Host/ground/Platform.h"
#include "Platform/XmlElement.h"

namespace TicketHost {

// The device as the root of a PrintCapabilities document of the published Print Schema, for editors of
// tickets. In it stand, in the order of the vocabulary and of the option tables,
//
// - each feature whose options the vocabulary lists, with these options, and in an option the scored
//   properties that its row's ticket fragment gives it;
// - each parameter whose limits the vocabulary knows. They are what a conversion can take: what the device
//   can feed it doesn't know.
//
// What the device knows and has no command for is there too. The settings are not: they are JSON of any
// length, cut into parameters of any number, which the schema cannot describe. Names that people read are
// not, since the device has none. Throws std::bad_alloc or ResultError without memory.
Platform::XmlElement DescribeDevice();

}  // namespace TicketHost
