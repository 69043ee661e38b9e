#pragma once

#include <string_view>

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// The text value of a pipeline property; null when it is null, of another type or absent. What the bag wrote
// counts, here and for printer bags, not whether it says that there is such a property.
WideText GetPipelineText(const PipelineBag& bag, std::u16string_view name);

// Replaces a pipeline property by a text, which may be null; the old value, of whatever type, goes first.
void SetPipelineText(const PipelineBag& bag, std::u16string_view name, const WideText& text);

// The printer bag that a pipeline property holds; null when there is none.
std::shared_ptr<Platform::IPrinterPropertyBag> GetPrinterBag(const PipelineBag& bag,
                                                             std::u16string_view name);

// Of these two nothing that the bag wrote counts where it says that there is no such property.

// The text of "PrinterName", the job's queue; null without one.
WideText GetPrinterName(const PipelineBag& bag);

// The name of the user whose token "UserSecurityToken" holds; empty without a token or without a name for it.
WideText GetSubmittingUserName(const PipelineBag& bag);

}  // namespace DeviceSpecificModule
