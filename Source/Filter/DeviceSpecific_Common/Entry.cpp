#include "JobPipeline.h"
#include "conversion/DeviceSpecificModule.h"
#include "conversion/PTConverter.h"
#include "pages/ConvertDocument.h"
#include "pages/ConvertPage.h"
#include "ticket/TicketNamespaces.h"

namespace DeviceSpecificModule {
namespace {

void Convert(PTConverter& converter, std::int32_t level) {
    if (level == JobLevel)
        ConvertJob(converter);
    else if (level == DocumentLevel)
        ConvertDocument(converter, converter.Ticket);
    else
        ConvertPage(converter, converter.Ticket, PageCallFlags);
}

}  // namespace

PTConverter* CreatePTConverterClassPointer() { return new PTConverter; }

void DestroyPTConverterClassPointer(PTConverter* snapshot) { delete snapshot; }

std::int32_t ProcessDrvPT(PipelineBag pipelineBag, TicketDocument ticket, std::int32_t level,
                          const OptionTables* optionTables, PTConverter* snapshot) {
    PTConverter converter;
    if (snapshot != nullptr) converter = *snapshot;
    ticket->setProperty(u"SelectionNamespaces", SelectionNamespaces);
    converter.Pipeline = std::move(pipelineBag);
    converter.Ticket = std::move(ticket);
    converter.Tables = optionTables;
    converter.PjlText = WideText(u"");
    Convert(converter, level);
    if (snapshot != nullptr) *snapshot = converter;
    return 1;
}

}  // namespace DeviceSpecificModule
