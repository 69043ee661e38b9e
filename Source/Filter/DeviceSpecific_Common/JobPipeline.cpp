#include "JobPipeline.h"

#include <utility>

#include "conversion/JsonState.h"
#include "conversion/PipelineProperties.h"
#include "conversion/TextOperations.h"
#include "devicespecific/DeviceSpecificModule.h"
#include "pages/ConvertDocument.h"
#include "pages/ConvertPage.h"
#include "perpage/PerPageSettings.h"
#include "stages/Stages.h"
#include "ticket/CustomProperties.h"
#include "ticket/TicketNamespaces.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

// Does nothing, and keeps the place of the stage that the device family may get here.
void EmptyStage(PTConverter&, const PipelineBag&, const TicketDocument&) {}

// The order is the order of the commands, and later stages see what earlier ones did to the ticket:
// ForceOneSidedTicket must stand behind all that read the job's duplex option from the ticket.
constexpr Stage* stages[] = {
    WriteUserAndResolution, WriteHoldAndJobName,
    WriteLayoutFinishing,   WriteDeviceOverlay,
    WriteCollation,         WriteOutputFeatures,
    WritePageNumbering,     WriteCopySecurity,
    WritePerPageSettings,   EmptyStage,
    WriteHeaderFooter,      WriteCarbonCopy,
    ForceOneSidedTicket,    WriteQualityAdjustment,
    WriteQualityProperties, WriteJobLogAndTime,
};

void ReadPipeline(PTConverter& converter) {
    const WideText series = GetPipelineText(converter.Pipeline, u"Series");
    converter.Driver = GetPrinterBag(converter.Pipeline, u"DriverPropertyBag");
    converter.Queue = GetPrinterBag(converter.Pipeline, u"QueuePropertyBag");
    LoadCommandMap(converter.Driver, converter.CommandMap, series);
}

// Reads the ticket's custom properties and the printer bags, runs the stages in their order, then the page
// conversion once as the job pass, and publishes "PJL" and, behind it, "DATA"; the ticket's last edit comes
// behind both. What is thrown ahead of that leaves the two properties as they were.
void ConvertJob(PTConverter& converter) {
    ReadCustomProperties(converter.Ticket, converter.CustomProperties);
    ReadPipeline(converter);
    AppendWideChars(converter.PjlText, u"\x1B%-12345X@PJL\r\n");
    AppendWideChars(converter.DataText, u"\r\n");
    for (Stage* stage : stages) stage(converter, converter.Pipeline, converter.Ticket);
    ConvertPage(converter, converter.Ticket, JobPassFlags);
    RequireWhole(converter.PjlText);
    RequireWhole(converter.DataText);
    SetPipelineText(converter.Pipeline, u"PJL", converter.PjlText);
    SetPipelineText(converter.Pipeline, u"DATA", converter.DataText);
    RemoveTicketNode(converter.Ticket, PathToParameter(u"ns0000:PageDevmodeSnapshot"));
}

void ConvertLevel(PTConverter& converter, std::int32_t level) {
    if (level == JobLevel)
        ConvertJob(converter);
    else if (level == DocumentLevel)
        ConvertDocument(converter, converter.Ticket);
    else
        ConvertPage(converter, converter.Ticket, PageCallFlags);
}

}  // namespace

void ConvertTicket(PipelineBag pipelineBag, TicketDocument ticket, std::int32_t level,
                   const OptionTables* optionTables, PTConverter* snapshot) {
    PTConverter converter;
    if (snapshot != nullptr) converter = *snapshot;
    ticket->setProperty(u"SelectionNamespaces", SelectionNamespaces);
    converter.Pipeline = std::move(pipelineBag);
    converter.Ticket = std::move(ticket);
    converter.Tables = optionTables;
    converter.PjlText = WideText(u"");
    ConvertLevel(converter, level);
    RequireWhole(converter.DataText);
    if (snapshot != nullptr) *snapshot = converter;
}

}  // namespace DeviceSpecificModule
