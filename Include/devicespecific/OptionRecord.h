#pragma once

#include <cstdint>

#include "devicespecific/platform/WideText.h"

/// @file
/// A row of the device's option tables, and the tables as conversions take them.

namespace DeviceSpecificModule {

using Platform::WideText;  ///< texts of rows

/// One row of a device option table: all that one keyword means to a ticket and to the device. Memory of all
/// zero bytes is a valid row, the one that ends a table: Id 0, every text null. Texts without content hold
/// the empty text or the text "0", as each table has it.
struct OptionRecord {
    std::uint32_t Id = 0;     ///< small number of the row; 0 in all exported tables
    WideText Keyword;         ///< the row's key; null ends the table
    WideText PairedKeyword;   ///< media sizes: the size that goes with this one under the layout "Bl4in1"
    WideText TicketFragment;  ///< XML of a whole psf:Feature that selects the option; custom sizes: two %s
    WideText JobCommand;      ///< Printer Job Language text of the job pass; custom sizes: two %s
    WideText FourInOneJobCommand;  ///< media sizes: sent instead of JobCommand under "Bl4in1"
    WideText NamespacePrefix;      ///< media sizes: the option's prefix in a ticket, "psk" or "ns0000"
    WideText PostScriptCommand;    ///< PostScript text, for the host alone
    WideText DataCommand;          ///< PCL XL attribute line: type, value in quotes, attribute name, CR LF
    WideText ExtraText;            ///< for the host alone
    WideText DeviceName;           ///< the device's word for the option in per-page commands
};

/// The host's option tables. Each slot points to an array of rows ended by a null Keyword, or is null.
/// Conversions read these rows, never the built-in ones, so a host may change what the getters gave it, but
/// not during a call.
///
/// The host owns the record and the arrays. Conversions use them during the call alone; but a job ticket's
/// call leaves the record's address in the pipeline bag, as the property "DPBMap", for those filters behind
/// this one that know it. So both must stay alive and where they are for as long as anybody may read that
/// bag: until the job is done, or until the host takes "DPBMap" out. A snapshot needs no tables between
/// calls.
struct OptionTables {
    const OptionRecord* PageMediaSizes = nullptr;    ///< without it documents keep their size
    const OptionRecord* PageMediaTypes = nullptr;    ///< without it no page gets a line for its medium
    const OptionRecord* PageInputBins = nullptr;     ///< nor for its bin
    const void* Unused = nullptr;                    ///< read by nothing
    const OptionRecord* SimplexPageModes = nullptr;  ///< nor that it is printed on one side
    const OptionRecord* DuplexPageModes = nullptr;   ///< nor on two
};

}  // namespace DeviceSpecificModule
