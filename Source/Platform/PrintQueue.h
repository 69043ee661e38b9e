#pragma once

#include "Platform/Export.h"
#include "Platform/WideText.h"

namespace Platform {

// The document name of the first job of the named queue that is not finished, whole, whatever its length. A
// job without a document name gives the empty text. False, with `name` as it was, when the queue is empty or
// unknown or no print service answers; one that is silent for two seconds counts as none. The service is
// asked once and without proof of who asks, so nobody is ever prompted for a password.
//
// With CUPS the service is what CUPS_SERVER or client.conf name; a thread that has used CUPS before keeps to
// what was found then. The CUPS library is loaded by the first call for a queue that has a name, and stays;
// without it no print service answers. Throws ResultError or std::bad_alloc without memory.
PLATFORM_API bool GetFirstDocumentName(const WideText& queue, WideText& name);

}  // namespace Platform
