#pragma once

#include <cstdint>

#include "devicespecific/ExportedTables.h"
#include "devicespecific/OptionRecord.h"
#include "devicespecific/platform/Export.h"
#include "devicespecific/platform/PropertyBags.h"
#include "devicespecific/platform/TicketDocument.h"

/// @file
/// The functions that the module exports: all that a host needs to include, beside the platform layer's
/// headers.
///
/// # A job
///
/// A host makes a snapshot and a pipeline bag for each print job, puts into the bag what it knows, and calls
/// ProcessDrvPT for the job ticket first, then for the tickets of documents and pages in their order, with
/// the same snapshot and bag. The bag then holds the job header, "PJL", and the device's data lines, "DATA".
/// Nothing keeps a host from another order or from calls without a snapshot; each call does what its level
/// says with what it finds.
///
/// # Properties
///
/// All that conversions read from the bags and write to them. J, D and P stand for the calls that do so: of a
/// job ticket, a document ticket, a page ticket. The bags are the pipeline's, the driver's and the queue's;
/// what is read of the pipeline and not written is the host's to set, and so is all of the other two. Names
/// compare exactly. A value of another type counts as none.
///
/// | Property                            | Bag      | Read | Written | Type    | Where it is missing    |
/// |-------------------------------------|----------|------|---------|---------|------------------------|
/// | `Series`                            | pipeline | J    |         | text    | the empty text         |
/// | `DriverPropertyBag`                 | pipeline | J    |         | bag     | an empty bag           |
/// | `QueuePropertyBag`                  | pipeline | J    |         | bag     | an empty bag           |
/// | `UserSecurityToken`                 | pipeline | J    |         | token   | a user without a name  |
/// | `PrinterName`                       | pipeline | J    |         | text    | a job without a name   |
/// | `EncryptionID`                      | pipeline | J    |         | text    | an error               |
/// | `CommandMap_...`                    | driver   | J    |         | text    | as it was              |
/// | `encryptionPassphrase`              | queue    | J    |         | text    | the empty text         |
/// | `encryptionPassphrase_Flag`         | queue    | J    |         | integer | 0                      |
/// | `PJL`                               | pipeline |      | J       | text    |                        |
/// | `DATA`                              | pipeline |      | J P     | text    |                        |
/// | `PageOrientation`                   | pipeline | J P  | J       | text    | no orientation         |
/// | `PAPER_SIZE`                        | pipeline | D    | J P     | text    | the size is taken out  |
/// | `CUSTOM_PAPER_SIZE_WIDTH`           | pipeline | D    | J P     | text    | the size stays         |
/// | `CUSTOM_PAPER_SIZE_HEIGHT`          | pipeline | D    | J P     | text    | the size stays         |
/// | `JobDuplexAllDocumentsContiguously` | pipeline | J P  | J       | text    | no option              |
/// | `CopyCount`                         | pipeline |      | J       | text    |                        |
/// | `DPBMap`                            | pipeline |      | J       | address |                        |
/// | `PageOutputQuality`                 | pipeline |      | J       | text    |                        |
/// | `CopyProtect`                       | pipeline |      | J       | text    |                        |
/// | `CopyProtectPattern`                | pipeline |      | J       | text    |                        |
/// | `CopyProtectPatternOverwrite`       | pipeline |      | J       | text    |                        |
/// | `CopyProtectBackgroundPattern`      | pipeline |      | J       | text    |                        |
/// | `CopyProtectColor`                  | pipeline |      | J       | text    |                        |
/// | `CopyProtectCharacters`             | pipeline |      | J       | text    |                        |
/// | `CopyProtectFont`                   | pipeline |      | J       | text    |                        |
/// | `CopyProtectTextSize`               | pipeline |      | J       | text    |                        |
///
/// What they are:
///
/// - `Series`: names the driver's property `CommandMap_` with the series behind it ("CommandMap_Sample"),
///   the JSON document of a device series: it is carried in the snapshot, and no command depends on it.
/// - `DriverPropertyBag`, `QueuePropertyBag`: references to the two printer bags. The snapshot carries them;
///   a job ticket's call takes those of the pipeline instead, and it alone reads what they hold.
/// - `UserSecurityToken`: who submitted the job (platform/Identities.h makes tokens). The user's name goes
///   into the header.
/// - `PrinterName`: the queue. Where the settings have "Hold", the document name of the first job there goes
///   into the header. Without a name, a queue or a print service it is empty.
/// - `EncryptionID`: "[1,2]", the two numbers that choose a built-in key for the copy password. It is read
///   where the settings ask for a copy password, and must then be there, also where the queue's passphrase
///   takes its place: else the call throws std::out_of_range or std::invalid_argument.
/// - `encryptionPassphrase_Flag`: 1 where the key of the copy password is to be made of
///   `encryptionPassphrase`, which is a passphrase as `tickethost passphrase` wraps one. Any other number:
///   `EncryptionID` alone counts.
/// - `PJL`: the job header, lines that end in CR LF. `DATA`: the data lines of all calls so far; a page call
///   without option tables leaves it as it is.
/// - `PageOrientation`: the option of the job ticket, with its prefix ("psk:Landscape"), empty where it has
///   none; it counts for tickets that have none themselves.
/// - `PAPER_SIZE`: the keyword of the size last converted, without prefix ("ISOA4"), and of a custom size
///   `CUSTOM_PAPER_SIZE_WIDTH` and `CUSTOM_PAPER_SIZE_HEIGHT` in tenths of a millimetre. They are written
///   where the call has a table of sizes and finds one, and count for documents that say no size themselves;
///   without them such a document's ticket loses its size, or keeps a custom one as it is.
/// - `JobDuplexAllDocumentsContiguously`: the option of the job ticket, which the call then makes one-sided;
///   null where it has none. Pages find there how sheets are turned over. For one in landscape
///   "psk:TwoSidedShortEdge" becomes "psk:TwoSidedLongEdge" and all else, nothing included, the former.
/// - `CopyCount`: the job's copies, where the ticket asks for collated ones ("psk:Collated").
/// - `DPBMap`: the address of the OptionTables record that the call was given, as a BareReference; nothing
///   owns what stands there. So the record and its arrays must live for as long as the bag, or until the host
///   takes the property out.
/// - `PageOutputQuality`: the option of the job ticket; null where it has none.
/// - `CopyProtect`: the setting of this name, empty where there is none; only where it is "On", the seven
///   settings whose names begin with it as well. Otherwise these properties stay as they are.
///
/// # Texts that reach the header as they are
///
/// The module doesn't change the user's name, this computer's name, the document's name (but to end it at a
/// line feed, a zero unit or after 259 units), and the settings that fill a place in a command, such as
/// "HoldKey". Who may choose one of these can end a line with it and begin another, or end the text in quotes
/// that it stands in. A host that takes them from people must make them harmless first: PjlText.h does that,
/// and says where.
///
/// # Threads
///
/// Calls run on their caller's thread, and there is no other. Calls that share a snapshot, a ticket or a
/// pipeline bag must not run at the same time; others may, also with the same option tables and the same
/// printer bags, provided that these can be read by several threads at once, as those in memory can. What
/// belongs to a thread: its code page (platform/CodePages.h), by which the settings' texts are read. A job
/// call may ask the print service for a document's name and wait for it for some seconds. No thread may be
/// cancelled within a call.
///
/// # What stays
///
/// For as long as the first number of the version is the same, a host that was built against one version
/// runs with later ones:
///
/// - The thirteen functions keep their names, arguments and results, properties their names and types.
/// - The classes and records of these headers keep their layout. No interface gains or loses a virtual
///   function: what is new comes as an interface or a function of its own. A value that may hold several
///   types (PropertyValue) gains none.
/// - Inline functions and constants keep their meaning, and error codes theirs.
/// - Of devicespecific.h likewise: names, arguments, numbers and the layout of structs. There may be more
///   functions and more numbers, so a host takes a status that it doesn't know for a failure.
///
/// Not promised: how many rows the option tables have and what they say, which commands a setting sends, how
/// often and in what order bags are asked, and the words of errors. PTConverter is opaque. What stands in no
/// header of this folder is nobody's to use.

/// What the module offers a host.
namespace DeviceSpecificModule {

/// A job's state between calls. Opaque: a host only holds the address.
class PTConverter;

inline constexpr std::int32_t DocumentLevel = 1;  ///< the ticket of a document
inline constexpr std::int32_t JobLevel = 2;       ///< the ticket of the whole job
inline constexpr std::int32_t PageLevel = 0;      ///< the ticket of a page; so is any value but the two above

extern "C" {

/// A new snapshot, which carries a job's state from one ProcessDrvPT call to the next: what the job ticket's
/// custom properties said, the printer bags, the data lines so far, the page count. The caller owns it and
/// gives it back to DestroyPTConverterClassPointer. Throws std::bad_alloc.
DEVICESPECIFIC_API PTConverter* CreatePTConverterClassPointer();

/// Destroys a snapshot; null does nothing. It lets go of the last call's bag and ticket and of the printer
/// bags, to which it holds references.
DEVICESPECIFIC_API void DestroyPTConverterClassPointer(PTConverter* snapshot);

/// Converts one ticket and gives 1. `pipelineBag` and `ticket` must not be null; the ticket is edited in
/// place. `optionTables` and `snapshot` may be null. Without a snapshot the call starts from nothing.
///
/// - JobLevel: the pipeline properties "PJL" and "DATA" are replaced, others published.
/// - DocumentLevel: the ticket's media size is rewritten to the size to print on.
/// - Any other: the page's data lines are added, and "DATA" is replaced by all lines so far (not without
///   optionTables).
///
/// Errors leave as exceptions: Platform::ResultError, Json::Exception, those of the standard library and what
/// bags and document throw. Lack of memory is ResultError (ResultOutOfMemory), except within the JSON
/// library: there it is std::bad_alloc or, for a text, Json::RuntimeError, whose words are about a "string
/// value buffer" and say nothing of the settings.
///
/// The snapshot is then exactly as it was before the call. Edits of the ticket and properties made by then
/// stay. "PJL" and "DATA" are written, one behind the other, when the texts are complete, so an error ahead
/// of that leaves both as they were. Behind it the ticket is still edited: a job call takes the parameter
/// "ns0000:PageDevmodeSnapshot" out, a page call that and "psk:PageOutputQuality". An error there leaves the
/// new texts in place, and one of the bag while they are written may leave "PJL" new and "DATA" old, or the
/// one that was being written absent. A host that sees an error must use neither, and to try again it needs
/// the ticket loaded anew.
///
/// Calls that share a snapshot, a ticket or a pipeline bag must not run at the same time; others may.
DEVICESPECIFIC_API std::int32_t ProcessDrvPT(Platform::PipelineBag pipelineBag,
                                             Platform::TicketDocument ticket, std::int32_t level,
                                             const OptionTables* optionTables, PTConverter* snapshot);

}  // extern "C"
}  // namespace DeviceSpecificModule
