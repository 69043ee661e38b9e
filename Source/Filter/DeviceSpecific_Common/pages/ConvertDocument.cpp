#include "pages/ConvertDocument.h"

#include "conversion/JsonState.h"
#include "conversion/PipelineProperties.h"
#include "conversion/TextOperations.h"
#include "devicespecific/OptionRecord.h"
#include "pages/PageSize.h"
#include "ticket/TicketEditing.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

bool IsFourInOne(const PTConverter& converter) {
    return LookupCustomProperty(converter.CustomProperties, u"Layout") == u"Bl4in1";
}

struct DocumentSize {
    WideText Key;               // without prefix; may be null
    bool ChosenByUser = false;  // by an output size in the settings, which then hold its dimensions
};

DocumentSize ChooseSize(const PTConverter& converter, const TicketDocument& ticket) {
    WideText size = LookupCustomProperty(converter.CustomProperties, u"OutPSize");
    const bool chosenByUser = size != u"UsePaperSize";
    if (!chosenByUser) size = GetFeatureOptionName(ticket, u"PageMediaSize");
    if (size.IsEmpty()) return {GetPipelineText(converter.Pipeline, u"PAPER_SIZE"), chosenByUser};
    return {WideText(PageSizeKeyOf(size.View())), chosenByUser};
}

struct Dimensions {
    WideText Width;  // both in micrometres; null when there are none
    WideText Height;
    bool AreThere() const { return !Width.IsNull() && !Height.IsNull(); }
};

// What the job level published in tenths of a millimetre.
Dimensions PublishedDimensions(const PTConverter& converter) {
    Dimensions size{GetPipelineText(converter.Pipeline, u"CUSTOM_PAPER_SIZE_WIDTH"),
                    GetPipelineText(converter.Pipeline, u"CUSTOM_PAPER_SIZE_HEIGHT")};
    if (!size.AreThere()) return {};
    if (!size.Width.Append(u"00") || !size.Height.Append(u"00")) ThrowResult(Platform::ResultOutOfMemory);
    return size;
}

Dimensions FindDimensions(const PTConverter& converter, const TicketDocument& ticket, bool chosenByUser) {
    Dimensions size;
    if (chosenByUser) {
        size.Width = LookupCustomProperty(converter.CustomProperties, u"OutPSizeW");
        size.Height = LookupCustomProperty(converter.CustomProperties, u"OutPSizeH");
    } else {
        size.Width = GetParameterInitValue(ticket, u"PageMediaSizeMediaSizeWidth", true);
        size.Height = GetParameterInitValue(ticket, u"PageMediaSizeMediaSizeHeight", true);
    }
    return size.AreThere() ? size : PublishedDimensions(converter);
}

void AddCustomSize(PTConverter& converter, const TicketDocument& ticket, const DocumentSize& size) {
    const OptionRecord* row = FindOptionRecord(converter.Tables->PageMediaSizes, size.Key.View());
    if (row == nullptr) return;
    const Dimensions dimensions = FindDimensions(converter, ticket, size.ChosenByUser);
    if (!dimensions.AreThere()) return;
    WideText fragment = row->TicketFragment;
    FillFirstPlaceholder(fragment, dimensions.Width.View());
    FillFirstPlaceholder(fragment, dimensions.Height.View());
    AppendWideText(converter.PjlText, fragment);
}

// Gives the size that the ticket got: under the four-in-one layout the one that goes with it.
WideText ReplaceSize(PTConverter& converter, const TicketDocument& ticket, WideText key) {
    const OptionRecord* table = converter.Tables->PageMediaSizes;
    if (IsFourInOne(converter)) {
        const OptionRecord* row = FindOptionRecord(table, key.View());
        if (row != nullptr) key = row->PairedKeyword;
    }
    ApplyOptionRecord(converter, ticket, u"psk:PageMediaSize", key.View(), table, {.FourInOneApplies = true});
    return key;
}

// The table gives this size to the published keywords, which don't have it.
void CorrectNamespaceOfRoc16K(WideText& fragments) {
    constexpr std::u16string_view wrong = u"<psf:Feature name=\"psk:PageMediaSize\"><psf:Option name=\"psk:";
    constexpr std::u16string_view right =
        u"<psf:Feature name=\"psk:PageMediaSize\"><psf:Option name=\"ns0000:";
    const std::u16string_view text = fragments.View();
    const std::size_t place = text.find(wrong);
    if (place == text.npos) return;
    fragments = WideText::Join({text.substr(0, place), right, text.substr(place + wrong.size())});
}

}  // namespace

void ConvertDocument(PTConverter& converter, const TicketDocument& ticket) {
    if (converter.Tables == nullptr || converter.Tables->PageMediaSizes == nullptr) return;
    DocumentSize size = ChooseSize(converter, ticket);
    if (IsCustomSize(size.Key.View()))
        AddCustomSize(converter, ticket, size);
    else
        size.Key = ReplaceSize(converter, ticket, size.Key);
    if (!IsFourInOne(converter) && size.Key == u"ROC16K") CorrectNamespaceOfRoc16K(converter.PjlText);
    InsertTicketFragments(ticket, converter.PjlText);
}

}  // namespace DeviceSpecificModule
