#include "stages/PageNumbering.h"

#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "stages/Stages.h"
#include "tables/StampKeywords.h"

namespace DeviceSpecificModule {
namespace {

std::u16string_view CoverWord(const SharedJson& settings, const WideText& coverMode) {
    if (coverMode == u"Off") return u"NOTCOVER";
    return LookupCustomProperty(settings, u"PageNumberCover") == u"AllPages" ? u"ALLPAGES" : u"NOTFRONTCOVER";
}

}  // namespace

void AppendPageNumbering(const SharedJson& settings, std::u16string_view format, WideText& pjl) {
    WideText command(format);
    const WideText numbering = LookupCustomProperty(settings, u"PageNumber");
    if (numbering.IsEmpty()) return;
    if (numbering == u"Off") {
        for (std::u16string_view value : {u"NONE", u"1", u"1"}) FillFirstPlaceholder(command, value);
    } else {
        const WideText coverMode = LookupCustomProperty(settings, u"PageNumberCoverMode");
        if (coverMode.IsEmpty()) return;
        FillFirstPlaceholder(command, CoverWord(settings, coverMode));
        for (std::u16string_view key : {u"PageNumberStartingPage", u"PageNumberStartingPageNumber"})
            FillFirstPlaceholder(command, LookupCustomProperty(settings, key).View());
    }
    AppendWideText(pjl, command);
}

void WritePageNumbering(PTConverter& converter, const PipelineBag&, const TicketDocument&) {
    AppendPageNumbering(converter.CustomProperties, PageNumberingCommandTable[0].Command, converter.PjlText);
}

}  // namespace DeviceSpecificModule
