#pragma once

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// Rewrites the media size of a document's ticket to the size on which the device is to print: the output size
// that the user chose, else the job's, under the layout "Bl4in1" the size that goes with it. An ordinary size
// replaces the ticket's feature, also when no row knows it; a custom size is added beside it with its
// dimensions in micrometres. Without option tables, or without one of media sizes, the ticket stays
// unchanged; otherwise it is loaded anew in every case. PjlText is left holding the ticket fragments.
void ConvertDocument(PTConverter& converter, const TicketDocument& ticket);

}  // namespace DeviceSpecificModule
