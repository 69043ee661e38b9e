#include "tables/RecordBuilding.h"

namespace DeviceSpecificModule {

OptionRecord FilledRecord(std::u16string_view keyword, std::u16string_view filler) {
    const WideText text(filler);
    return {.Id = 0,
            .Keyword = WideText(keyword),
            .PairedKeyword = text,
            .TicketFragment = text,
            .JobCommand = text,
            .FourInOneJobCommand = text,
            .NamespacePrefix = text,
            .PostScriptCommand = text,
            .DataCommand = text,
            .ExtraText = text,
            .DeviceName = text};
}

}  // namespace DeviceSpecificModule
