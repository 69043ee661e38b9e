#include "conversion/PipelineProperties.h"
#include "conversion/TextOperations.h"
#include "stages/FeatureEngine.h"
#include "stages/Stages.h"
#include "stages/TicketCopies.h"
#include "tables/OutputKeywords.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {

void WriteCollation(PTConverter& converter, const PipelineBag& bag, const TicketDocument& ticket) {
    const WideText option = GetFeatureOptionName(ticket, u"DocumentCollate");
    if (option.IsEmpty() || FindKeyword(DocumentCollateCommandTable, option.View()) == nullptr) return;

    WideText copies = GetParameterInitValue(ticket, u"JobCopiesAllDocuments", true);
    if (copies.IsNull()) copies = WideText(u"");
    if (option == u"psk:Collated") {
        // Collated copies go out one whole job after another, so the device prints each page once.
        SetPipelineText(bag, u"CopyCount", copies);
        copies = WideText(u"1");
    }
    WideText line(u"uint16 \"%s\" PageCopies\r\n");
    FillFirstPlaceholder(line, copies.View());
    AppendWideText(converter.DataText, line);
    ForceOneCopy(ticket);
}

}  // namespace DeviceSpecificModule
