#pragma once

#include "devicespecific/platform/Export.h"
#include "devicespecific/platform/WideText.h"

namespace DeviceSpecificModule::Platform {

// The document name of the first job of the named queue that is not finished, whole, whatever its length. A
// job without a document name gives the empty text. False, with `name` as it was, when the queue is empty or
// unknown or no print service answers. One counts as none that can't be reached within two seconds, is silent
// for two, has not given its whole answer five after the call, or sends more than 256 KiB. The service is
// asked once and without proof of who asks, so nobody is ever prompted for a password.
//
// With CUPS the service is what CUPS_SERVER or client.conf name; a thread that has used CUPS before keeps to
// what was found then. Two things before the exchange take as long as CUPS lets them: looking up a host's
// name, where the system's resolver decides, and, where encryption from the first byte is wanted, agreeing on
// it, which ends after ten seconds of silence. The CUPS library is loaded by the first call for a queue that
// has a name, and stays; without it no print service answers.
//
// Throws ResultError or std::bad_alloc without memory.
DEVICESPECIFIC_API bool GetFirstDocumentName(const WideText& queue, WideText& name);

// From here on GetFirstDocumentName gives the calling thread this name, whatever the queue, and asks nobody;
// null ends that. The name isn't copied and must live until then. For hosts that try what a job would be
// under another name, on no queue at all.
DEVICESPECIFIC_API void SetDocumentNameOfThread(const WideText* name);

}  // namespace DeviceSpecificModule::Platform
