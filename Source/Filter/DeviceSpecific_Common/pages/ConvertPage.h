#pragma once

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

struct PageFlags {
    bool MergeFragments = false;  // put PjlText into the ticket at the end
    bool JobPass = false;         // send the job commands of the options, and publish the orientation
    bool PublishData = false;     // store DataText in the pipeline property "DATA"
};

inline constexpr PageFlags JobPassFlags{.JobPass = true};
inline constexpr PageFlags PageCallFlags{.MergeFragments = true, .PublishData = true};

// Appends to DataText the page marker and the data lines of one ticket's media size, media type, input bin
// and duplex mode, and counts the page. Sizes in tickets and settings are micrometres in decimal digits; the
// lines and the published properties hold tenths of a millimetre. Without option tables there is the page
// marker alone, and nothing is published.
//
// Pipeline properties written: "PAPER_SIZE" for a size that was found, "CUSTOM_PAPER_SIZE_WIDTH" and
// "..._HEIGHT" for a custom one, "PageOrientation" in the job pass, "DATA" with PublishData. The feature
// PageOutputQuality is taken out of the ticket in every case.
void ConvertPage(PTConverter& converter, const TicketDocument& ticket, PageFlags flags);

}  // namespace DeviceSpecificModule
