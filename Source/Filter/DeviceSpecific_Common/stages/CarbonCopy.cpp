#include "stages/CarbonCopy.h"

#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "stages/FeatureEngine.h"
#include "stages/Stages.h"
#include "tables/CarbonCopyAndPerPageKeywords.h"

namespace DeviceSpecificModule {
namespace {

struct Tray {
    std::u16string_view Key;
    std::u16string_view Word;  // the device's
};

// In the order in which the device wants them.
constexpr Tray trays[] = {
    {u"CarbonCopyTray1", u"TRAY1"},   {u"CarbonCopyTray2", u"TRAY2"},
    {u"CarbonCopyTray3", u"TRAY3"},   {u"CarbonCopyTray4", u"TRAY4"},
    {u"CarbonCopyTrayLCT", u"TRAY5"}, {u"CarbonCopyTrayManual", u"MANUALFEED"},
};

WideText TrayList(const SharedJson& settings) {
    WideText list;
    for (const Tray& tray : trays) {
        if (LookupCustomProperty(settings, tray.Key) != u"On") continue;
        AddPieces(list, {list.IsEmpty() ? u"" : u",", tray.Word});
    }
    return list;
}

}  // namespace

void AppendCarbonCopy(const SharedJson& settings, KeywordCommandTable types, std::u16string_view format,
                      WideText& pjl) {
    if (LookupCustomProperty(settings, u"CarbonCopy") != u"On") return;
    const WideText type = LookupCustomProperty(settings, u"CarbonCopyType");
    if (const KeywordCommand* row = FindKeyword(types, type.View())) AppendWideChars(pjl, row->Command);
    WideText command(format);
    FillFirstPlaceholder(command, TrayList(settings).View());
    AppendWideText(pjl, command);
}

void WriteCarbonCopy(PTConverter& converter, const PipelineBag&, const TicketDocument&) {
    AppendCarbonCopy(converter.CustomProperties, CarbonCopyTypeCommandTable,
                     CarbonCopyCommandTable[0].Command, converter.PjlText);
}

}  // namespace DeviceSpecificModule
