#include "stages/HoldAndJobName.h"

#include "Platform/PrintQueue.h"
#include "conversion/JsonState.h"
#include "conversion/PipelineProperties.h"
#include "conversion/TextOperations.h"
#include "stages/FeatureEngine.h"
#include "stages/Stages.h"
#include "stages/TicketCopies.h"
#include "tables/JobKeywords.h"

namespace DeviceSpecificModule {
namespace {

// What a kind of hold does beside its command: a job that is kept for later is kept once.
struct HoldRow {
    std::u16string_view Keyword;
    bool FillsKey = false;
    bool ForcesOneCopy = false;
};

constexpr HoldRow holdRows[] = {
    {.Keyword = u"Off"},
    {.Keyword = u"On", .FillsKey = true, .ForcesOneCopy = true},
    {.Keyword = u"XRProof", .ForcesOneCopy = true},
    {.Keyword = u"StoreJob", .ForcesOneCopy = true},
    {.Keyword = u"PrintHold", .ForcesOneCopy = true},
};

void WriteHold(PTConverter& converter, const TicketDocument& ticket, const WideText& hold) {
    const KeywordCommand* command = FindKeyword(HoldCommandTable, hold.View());
    if (command == nullptr) return;
    for (const HoldRow& row : holdRows) {
        if (row.Keyword != hold.View()) continue;
        WideText text(command->Command);
        if (row.FillsKey)
            FillFirstPlaceholder(text, LookupCustomProperty(converter.CustomProperties, u"HoldKey").View());
        if (row.ForcesOneCopy) ForceOneCopy(ticket);
        AppendWideText(converter.PjlText, text);
    }
}

constexpr std::size_t longestJobName = 259;

}  // namespace

WideText JobNameFromDocumentName(const WideText& documentName) {
    std::u16string_view name = documentName.View();
    if (name.size() > longestJobName) {
        const bool cutsPair =
            (name[longestJobName] & 0xFC00) == 0xDC00 && (name[longestJobName - 1] & 0xFC00) == 0xD800;
        name = name.substr(0, longestJobName - (cutsPair ? 1 : 0));
    }
    constexpr std::u16string_view ends(u"\n\0", 2);
    return WideText(name.substr(0, name.find_first_of(ends)));
}

void GetQueueJobName(const PipelineBag& bag, WideText& name) {
    const WideText queue = GetPrinterName(bag);
    WideText documentName;
    if (!queue.IsNull() && Platform::GetFirstDocumentName(queue, documentName))
        name = JobNameFromDocumentName(documentName);
}

void WriteHoldAndJobName(PTConverter& converter, const PipelineBag& bag, const TicketDocument& ticket) {
    const WideText hold = LookupCustomProperty(converter.CustomProperties, u"Hold");
    if (hold.IsEmpty()) return;
    WriteHold(converter, ticket, hold);

    WideText name(u"");
    GetQueueJobName(bag, name);
    WideText command(JobNameCommandTable[0].Command);
    FillFirstPlaceholder(command, name.View());
    FillFirstPlaceholder(command, name.View());
    AppendWideText(converter.PjlText, command);
}

}  // namespace DeviceSpecificModule
