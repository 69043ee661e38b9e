#pragma once

#include <cstdint>

#include "devicespecific/ExportedTables.h"
#include "devicespecific/OptionRecord.h"
#include "devicespecific/platform/Export.h"
#include "devicespecific/platform/PropertyBags.h"
#include "devicespecific/platform/TicketDocument.h"

// The functions that the module exports: all that a host needs to include, beside the platform layer's
// headers.

namespace DeviceSpecificModule {

class PTConverter;

inline constexpr std::int32_t DocumentLevel = 1;
inline constexpr std::int32_t JobLevel = 2;
inline constexpr std::int32_t PageLevel = 0;  // any value but the two above

extern "C" {

// A new snapshot, which carries a job's state from one ProcessDrvPT call to the next: what the job ticket's
// custom properties said, the printer bags, the data lines so far, the page count. The caller owns it and
// gives it back to DestroyPTConverterClassPointer. Throws std::bad_alloc.
DEVICESPECIFIC_API PTConverter* CreatePTConverterClassPointer();

// Destroys a snapshot; null does nothing.
DEVICESPECIFIC_API void DestroyPTConverterClassPointer(PTConverter* snapshot);

// Converts one ticket and gives 1. `pipelineBag` and `ticket` must not be null; the ticket is edited in
// place. `optionTables` and `snapshot` may be null. Without a snapshot the call starts from nothing.
//
//   JobLevel       the pipeline properties "PJL" and "DATA" are replaced, others published
//   DocumentLevel  the ticket's media size is rewritten to the size to print on
//   else           the page's data lines are added, and "DATA" is replaced by all lines so far (not without
//                  optionTables)
//
// Errors leave as exceptions: Platform::ResultError, Json::Exception, those of the standard library and what
// bags and document throw. Lack of memory is ResultError (ResultOutOfMemory), except within the JSON library:
// there it is std::bad_alloc or, for a text, Json::RuntimeError, whose words are about a "string value
// buffer" and say nothing of the settings.
//
// The snapshot is then exactly as it was before the call. Edits of the ticket and properties made by then
// stay. "PJL" and "DATA" are written, one behind the other, when the texts are complete, so an error ahead of
// that leaves both as they were. Behind it the ticket is still edited: a job call takes the parameter
// "ns0000:PageDevmodeSnapshot" out, a page call that and "psk:PageOutputQuality". An error there leaves the
// new texts in place, and one of the bag while they are written may leave "PJL" new and "DATA" old, or the
// one that was being written absent. A host that sees an error must use neither.
//
// Calls that share a snapshot, a ticket or a pipeline bag must not run at the same time; others may.
DEVICESPECIFIC_API std::int32_t ProcessDrvPT(Platform::PipelineBag pipelineBag,
                                             Platform::TicketDocument ticket, std::int32_t level,
                                             const OptionTables* optionTables, PTConverter* snapshot);

}  // extern "C"
}  // namespace DeviceSpecificModule
