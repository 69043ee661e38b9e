#include "conversion/PipelineProperties.h"

#include "Platform/Identities.h"

namespace DeviceSpecificModule {
namespace {

template <typename Type>
Type ReadProperty(const PipelineBag& bag, std::u16string_view name) {
    Platform::PropertyValue value;
    bag->GetProperty(name, value);
    const Type* held = std::get_if<Type>(&value);
    return held == nullptr ? Type() : *held;
}

}  // namespace

WideText GetPipelineText(const PipelineBag& bag, std::u16string_view name) {
    return ReadProperty<WideText>(bag, name);
}

void SetPipelineText(const PipelineBag& bag, std::u16string_view name, const WideText& text) {
    bag->DeleteProperty(name);
    bag->AddProperty(name, text);
}

std::shared_ptr<Platform::IPrinterPropertyBag> GetPrinterBag(const PipelineBag& bag,
                                                             std::u16string_view name) {
    return ReadProperty<std::shared_ptr<Platform::IPrinterPropertyBag>>(bag, name);
}

WideText GetSubmittingUserName(const PipelineBag& bag) {
    Platform::PropertyValue value;
    bag->GetProperty(u"UserSecurityToken", value);
    const auto* token = std::get_if<Platform::TokenHandle>(&value);
    return token == nullptr ? WideText(u"") : Platform::GetNameOfUser(*token);
}

}  // namespace DeviceSpecificModule
