#include "devicespecific/platform/PropertyBags.h"

namespace DeviceSpecificModule::Platform {

// Here rather than in the header, so that the types have one home that all their users share.
IPrinterPropertyBag::~IPrinterPropertyBag() = default;
IPrintPipelinePropertyBag::~IPrintPipelinePropertyBag() = default;

}  // namespace DeviceSpecificModule::Platform
