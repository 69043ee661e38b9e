#pragma once

#include <functional>

#include "Host/explain/Explanation.h"
#include "Host/explain/Investigation.h"

namespace TicketHost {

// Fills in Causes and Subjects of the lines that are asked for, from what the investigation's items did each
// by itself. With `withSets`, for which all items of the job must have been tried, a line without a cause
// gets the set that causes it together, if there is one.
void FindCauses(Investigation& found, const std::function<bool(LinePlace)>& isAsked, bool withSets,
                Explanation& explanation);

}  // namespace TicketHost
