#include "perpage/PerPageSettings.h"

#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "perpage/PerPageOrder.h"
#include "perpage/PerPageWriters.h"
#include "tables/CarbonCopyAndPerPageKeywords.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

Json::Value ReadDocument(const SharedJson& settings, std::u16string_view key) {
    Json::Value document;
    ParseJsonText(LookupCustomProperty(settings, key), document);
    return document;
}

}  // namespace

PerPageJobOptions ReadPerPageJobOptions(const TicketDocument& ticket) {
    return {
        .Binding = GetFeatureOptionName(ticket, u"DocumentBinding"),
        .Duplex = GetFeatureOptionName(ticket, u"JobDuplexAllDocumentsContiguously"),
        .InputBin = GetFeatureOptionName(ticket, u"PageInputBin"),
        .MediaType = GetFeatureOptionName(ticket, u"PageMediaType"),
        .Staple = GetFeatureOptionName(ticket, u"JobStapleAllDocuments"),
    };
}

void AppendPerPageCommands(Json::Value& details, const Json::Value& list, const PerPageJobOptions& options,
                           const OptionTables* tables, std::u16string_view format, WideText& pjl) {
    InsertedTabs tabs;
    std::int32_t count = 0;
    for (const PerPageOrderEntry& place : BuildPerPageOrder(details)) {
        const Json::Value& entry = details[place.Position];
        const DecimalText number(++count);
        WideText command(format);
        // The order of the fills is the order of the device's values.
        FillFirstPlaceholder(command, number);
        FillPrintType(command, entry);
        FillBinding(command, options.Binding.View());
        FillDuplex(command, entry, options.Duplex.View());
        FillPaperTray(command, entry, options.InputBin.View(), tables);
        FillMediaAndTabs(command, entry, options.MediaType.View(), tables, list);
        FillStaple(command, entry, options.Staple.View());
        FillFirstPlaceholder(command, u"OFF");
        FillFirstPlaceholder(command, u"CONT");
        FillPageRange(command, entry, tabs);
        FillFirstPlaceholder(command, number);
        FillFirstPlaceholder(command, u"OFF");
        AppendWideText(pjl, command);
    }
}

void WritePerPageSettings(PTConverter& converter, const PipelineBag&, const TicketDocument& ticket) {
    const WideText setting = LookupCustomProperty(converter.CustomProperties, u"PerPageSetting");
    if (setting.IsEmpty() || setting == u"Off") return;
    Json::Value details = ReadDocument(converter.CustomProperties, u"PerPagePageDetails");
    const Json::Value list = ReadDocument(converter.CustomProperties, u"PerPageListDetails");
    // A scalar has no entries either, though its empty() is false. One reading of the ticket serves them all,
    // since nothing changes it meanwhile.
    const Json::ArrayIndex entryCount = details.size();
    const PerPageJobOptions options = entryCount == 0 ? PerPageJobOptions() : ReadPerPageJobOptions(ticket);
    AppendPerPageCommands(details, list, options, converter.Tables, PerPageCommandTable[0].Command,
                          converter.PjlText);
}

}  // namespace DeviceSpecificModule
