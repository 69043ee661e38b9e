#pragma once

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// The job name that a document name gives: at most 259 units, never half of a surrogate pair, up to the first
// line feed or zero unit. Everything else stays, double quotes included.
WideText JobNameFromDocumentName(const WideText& documentName);

// Fills `name` with the job name of the first job in the queue that the pipeline property "PrinterName"
// names. Without that property, without such a job or without a print service `name` stays as it was.
void GetQueueJobName(const PipelineBag& bag, WideText& name);

}  // namespace DeviceSpecificModule
