#pragma once

#include <string_view>

#include "conversion/PTConverter.h"
#include "devicespecific/OptionRecord.h"

namespace DeviceSpecificModule {

// The first row of a table whose keyword equals the option; null when there is none, or no table.
const OptionRecord* FindOptionRecord(const OptionRecord* table, std::u16string_view option);

// What a conversion does with the option chosen for a feature.
struct OptionUse {
    bool JobPass = false;           // send a command instead of editing the ticket
    bool FourInOneApplies = false;  // in the job pass: under the layout "Bl4in1" send FourInOneJobCommand
};

// Job pass: appends the row's job command to PjlText. Otherwise: takes the feature, given by its full ticket
// name, out of the ticket, whether or not the option has a row, and appends the row's ticket fragment to
// PjlText. A null table does nothing at all.
void ApplyOptionRecord(PTConverter& converter, const TicketDocument& ticket, std::u16string_view feature,
                       std::u16string_view option, const OptionRecord* table, OptionUse use);

// Appends to DataText the data command of every row that equals the option, in table order; a null table has
// none.
void AppendOptionDataCommand(PTConverter& converter, const OptionRecord* table, std::u16string_view option);

// Puts XML behind all children of the ticket's root by way of the ticket's text, which is loaded anew, also
// when there is nothing to put in; then takes the parameter "ns0000:PageDevmodeSnapshot" out. Nothing is
// escaped or mended: a text that isn't well-formed is refused, and the document is then what it was but for
// that parameter. So it is for a root that isn't written "psf:PrintTicket", as one in a default namespace,
// and for one with a comment behind it: what a caller took out of such a ticket is not put back. Nodes taken
// before belong to the old document. A ticket without the root element stays unchanged. Throws ResultError
// without memory, also for fragments that an append failed on.
void InsertTicketFragments(const TicketDocument& ticket, const WideText& fragments);

}  // namespace DeviceSpecificModule
