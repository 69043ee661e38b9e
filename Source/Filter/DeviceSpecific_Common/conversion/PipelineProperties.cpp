#include "conversion/PipelineProperties.h"

#include "devicespecific/platform/Identities.h"

namespace DeviceSpecificModule {
namespace {

using Platform::PropertyValue;

PropertyValue Read(const PipelineBag& bag, std::u16string_view name) {
    PropertyValue value;
    bag->GetProperty(name, value);
    return value;
}

// Nothing where the bag says that there is nothing, whatever it wrote.
PropertyValue ReadIfThere(const PipelineBag& bag, std::u16string_view name) {
    PropertyValue value;
    return bag->GetProperty(name, value) ? value : PropertyValue();
}

template <typename Type>
Type ValueAs(const PropertyValue& value) {
    const Type* held = std::get_if<Type>(&value);
    return held == nullptr ? Type() : *held;
}

}  // namespace

WideText GetPipelineText(const PipelineBag& bag, std::u16string_view name) {
    return ValueAs<WideText>(Read(bag, name));
}

void SetPipelineText(const PipelineBag& bag, std::u16string_view name, const WideText& text) {
    bag->DeleteProperty(name);
    bag->AddProperty(name, text);
}

std::shared_ptr<Platform::IPrinterPropertyBag> GetPrinterBag(const PipelineBag& bag,
                                                             std::u16string_view name) {
    return ValueAs<std::shared_ptr<Platform::IPrinterPropertyBag>>(Read(bag, name));
}

WideText GetPrinterName(const PipelineBag& bag) {
    return ValueAs<WideText>(ReadIfThere(bag, u"PrinterName"));
}

WideText GetSubmittingUserName(const PipelineBag& bag) {
    const PropertyValue value = ReadIfThere(bag, u"UserSecurityToken");
    const auto* token = std::get_if<Platform::TokenHandle>(&value);
    return token == nullptr ? WideText(u"") : Platform::GetNameOfUser(*token);
}

}  // namespace DeviceSpecificModule
