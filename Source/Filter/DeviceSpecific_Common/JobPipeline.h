#pragma once

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// Converts a job's ticket: reads its custom properties and the printer bags, runs the stages in their order,
// then the page conversion once as the job pass, and publishes "PJL" and, behind it, "DATA". The converter's
// bag, ticket and tables are bound, and its PjlText is empty. When anything is thrown, neither property has
// been written.
void ConvertJob(PTConverter& converter);

}  // namespace DeviceSpecificModule
