#include <array>
#include <cstddef>

#include "conversion/TextOperations.h"
#include "tables/MediaTypeRows.h"
#include "tables/OptionTables.h"
#include "tables/RecordBuilding.h"

namespace DeviceSpecificModule {
namespace {

constexpr std::array<std::u16string_view, 7> propertyNames = {
    u"psk:BackCoating", u"psk:FrontCoating", u"psk:Material", u"psk:PrePrinted",
    u"psk:PrePunched",  u"psk:Recycled",     u"psk:Weight",
};
using PropertyValues = std::array<std::u16string_view, propertyNames.size()>;

PropertyValues Properties(const MediaTypeRow& row, bool preprinted) {
    const std::u16string_view none = u"None";
    if (row.Form == MediaForm::UserDefined)
        return {none, none, u"Paper", preprinted ? u"PrePrinted" : u"OFF", u"OFF", none, u"NORMAL"};
    const MediaDescription& medium = row.Description;
    const std::u16string_view prePrinted = preprinted ? u"PrePrinted" : medium.PrePrinted;
    return {none, none, medium.Material, prePrinted, none, none, u"Undefined"};
}

WideText MediumFragment(const MediaTypeRow& row, bool preprinted) {
    const MediaDescription& medium = row.Description;
    const PropertyValues values = Properties(row, preprinted);
    WideText fragment;
    AddPieces(fragment, {u"<psf:Feature name=\"psk:PageMediaType\"><psf:Option name=\"",
                         preprinted ? u"xr" : medium.OptionPrefix, u":", medium.Option,
                         preprinted ? u"Preprinted" : u"", u"\">"});
    for (std::size_t property = 0; property < values.size(); ++property)
        AddPieces(fragment, {u"<psf:ScoredProperty name=\"", propertyNames[property],
                             u"\"><psf:Value xsi:type=\"xsd:string\">", values[property],
                             u"</psf:Value></psf:ScoredProperty>"});
    return WideText::Join({fragment.View(), u"</psf:Option></psf:Feature>"});
}

WideText TypeFragment(const MediaTypeRow& row, bool preprinted) {
    if (row.Form == MediaForm::Nothing) return WideText(u"");
    if (row.Form == MediaForm::Zero) return WideText(u"0");
    return MediumFragment(row, preprinted);
}

// The two forms differ in the blank behind ">>" too.
WideText TypePostScript(const MediaTypeRow& row, bool preprinted) {
    const MediaDescription& medium = row.Description;
    const std::u16string_view truth = preprinted ? u"true" : u"false";
    if (row.Form == MediaForm::UserDefined)
        return WideText::Join(
            {u"<</XRMediaType (", medium.Option, u") /MediaPreprinted ", truth, u">> ", SetDeviceOptions});
    if (row.Form == MediaForm::Described)
        return WideText::Join({u"<</", medium.TypeKey, u" (", medium.Type, u") /XRMediaColor (", medium.Color,
                               u") /XRMediaWeight (", medium.Weight,
                               u") /MediaTabType (None) /MediaPreprinted ", truth,
                               u" /MediaPrepunched false>>", SetDeviceOptions});
    return WideText(u"");
}

WideText TypeData(const MediaTypeRow& row, bool preprinted) {
    if (row.Data.empty() || preprinted) return WideText(u"");
    return WideText::Join({u"ubyte_array \"", row.Data, u"\" MediaType\r\n"});
}

OptionRecord TypeRecord(const MediaTypeRow& row, bool preprinted) {
    OptionRecord record = FilledRecord(preprinted ? row.PreprintedKeyword : row.Keyword, u"0");
    record.TicketFragment = TypeFragment(row, preprinted);
    record.JobCommand = record.ExtraText = WideText(u"");
    record.PostScriptCommand = TypePostScript(row, preprinted);
    record.DataCommand = TypeData(row, preprinted);
    record.DeviceName = WideText(row.DeviceName);
    return record;
}

using Records = std::array<OptionRecord, MediaTypeCount>;

Records BuildMediaTypes() {
    Records records;
    auto record = records.begin();
    for (const MediaTypeRow& row : MediaTypeRows) {
        *record++ = TypeRecord(row, false);
        if (!row.PreprintedKeyword.empty()) *record++ = TypeRecord(row, true);
    }
    return records;
}

}  // namespace

std::span<const OptionRecord> MediaTypeRecords() {
    static const Records records = BuildMediaTypes();
    return records;
}

}  // namespace DeviceSpecificModule
