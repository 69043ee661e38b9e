#include "conversion/JsonState.h"
#include "conversion/PipelineProperties.h"
#include "conversion/TextOperations.h"
#include "stages/FeatureEngine.h"
#include "stages/Stages.h"
#include "tables/JobKeywords.h"

namespace DeviceSpecificModule {

void WriteUserAndResolution(PTConverter& converter, const PipelineBag& bag, const TicketDocument& ticket) {
    const WideText user = GetSubmittingUserName(bag);
    WideText command(LoginUserCommandTable[0].Command);
    FillFirstPlaceholder(command, user.View());
    FillFirstPlaceholder(command, user.View());
    AppendWideText(converter.PjlText, command);

    // The user's own choice of resolution, where there is one, stands above the ticket's, also when it sends
    // nothing.
    const WideText choice = LookupCustomProperty(converter.CustomProperties, u"ROpt");
    if (choice.IsEmpty() || choice == u"None")
        ApplyTicketCommand(converter, ticket, u"PageResolution", PageResolutionCommandTable,
                           CommandTarget::Pjl);
    else
        ApplySettingCommand(converter, u"ROpt", ROptCommandTable, {}, CommandTarget::Pjl);
}

}  // namespace DeviceSpecificModule
