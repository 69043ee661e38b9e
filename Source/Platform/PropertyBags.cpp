#include "Platform/PropertyBags.h"

namespace Platform {

// Here rather than in the header, so that the types have one home that all their users share.
IPrinterPropertyBag::~IPrinterPropertyBag() = default;
IPrintPipelinePropertyBag::~IPrintPipelinePropertyBag() = default;

}  // namespace Platform
