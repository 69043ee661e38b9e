#include "conversion/JsonState.h"
#include "conversion/PipelineProperties.h"
#include "stages/Stages.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

// Custom properties that go to the pipeline under their own names when copy protection is on.
constexpr std::u16string_view copyProtectProperties[] = {
    u"CopyProtectPattern",  u"CopyProtectPatternOverwrite", u"CopyProtectBackgroundPattern",
    u"CopyProtectColor",    u"CopyProtectCharacters",       u"CopyProtectFont",
    u"CopyProtectTextSize",
};

}  // namespace

void WriteQualityProperties(PTConverter& converter, const PipelineBag& bag, const TicketDocument& ticket) {
    SetPipelineText(bag, u"PageOutputQuality", GetFeatureOptionName(ticket, u"PageOutputQuality"));
    const WideText copyProtect = LookupCustomProperty(converter.CustomProperties, u"CopyProtect");
    SetPipelineText(bag, u"CopyProtect", copyProtect);
    if (copyProtect != u"On") return;
    for (std::u16string_view name : copyProtectProperties)
        SetPipelineText(bag, name, LookupCustomProperty(converter.CustomProperties, name));
}

}  // namespace DeviceSpecificModule
