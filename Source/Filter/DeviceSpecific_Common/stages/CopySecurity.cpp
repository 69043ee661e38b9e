#include "stages/CopySecurity.h"

#include <algorithm>
#include <iterator>

#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "secrets/SecretPreparation.h"
#include "stages/FeatureEngine.h"
#include "stages/Stages.h"
#include "tables/CopySecurityKeywords.h"

namespace DeviceSpecificModule {
namespace {

struct DateTimeRow {
    std::u16string_view SwitchKey;
    std::u16string_view FormKey;
    KeywordCommandTable Words;
    std::u16string_view Field;
};

// In the order of the date and time format's placeholders.
constexpr DateTimeRow dateTimeRows[] = {
    {u"CopyProtectDateTime", u"CopyProtectDateTimeDateFormat", CopyProtectDateWords, u"DATE"},
    {u"CopyProtectDateTimeTimeCheck", u"CopyProtectDateTimeTimeFormat", CopyProtectTimeWords, u"TIME"},
};

struct StyleRow {
    std::u16string_view Key;
    KeywordCommandTable Words;
};

// In the order of the style format's placeholders.
constexpr StyleRow styleRows[] = {
    {u"CopyProtectTextSize", CopyProtectTextSizeWords},
    {u"CopyProtectEffect", CopyProtectEffectWords},
    {u"CopyProtectPlacement", CopyProtectPlacementWords},
    {u"CopyProtectColor", CopyProtectColorWords},
    {u"CopyProtectDensity", CopyProtectDensityWords},
    {u"CopyProtectPatternContrast", CopyProtectContrastWords},
    {u"CopyProtectTextAngle", CopyProtectAngleWords},
};

// The fields to print, of which the device wants a fixed number.
class FieldList {
public:
    void Add(std::u16string_view word) { AddPieces(list_, {count_++ == 0 ? u"" : u",", word}); }

    // The list with the free slots marked. Without any word it begins with a comma.
    WideText Completed() const {
        constexpr int slots = 8;
        WideText list = list_;
        for (int slot = count_; slot < slots; ++slot) AddPieces(list, {u",OFF"});
        return list;
    }

private:
    WideText list_;
    int count_ = 0;
};

bool IsOn(const SharedJson& settings, std::u16string_view key) {
    return LookupCustomProperty(settings, key) == u"On";
}

void FillWord(WideText& command, KeywordCommandTable words, const WideText& value) {
    if (const KeywordCommand* row = FindKeyword(words, value.View()))
        FillFirstPlaceholder(command, row->Command);
}

const CopyProtectString* FindString(const WideText& type) {
    const auto row = std::ranges::find(CopyProtectStrings, type.View(), &CopyProtectString::Keyword);
    return row == std::end(CopyProtectStrings) ? nullptr : &*row;
}

void AppendString(const SharedJson& settings, std::u16string_view format, FieldList& fields, WideText& pjl) {
    if (!IsOn(settings, u"CopyProtectString")) return;
    WideText command(format);
    const CopyProtectString* row = FindString(LookupCustomProperty(settings, u"CopyProtectStringType"));
    if (row != nullptr) FillFirstPlaceholder(command, row->Number);
    AppendWideText(pjl, command);
    fields.Add(row == nullptr ? CopyProtectKnownString : row->Field);
}

void FillDateOrTime(const SharedJson& settings, const DateTimeRow& row, WideText& command,
                    FieldList& fields) {
    if (!IsOn(settings, row.SwitchKey)) return FillFirstPlaceholder(command, u"OFF");
    FillWord(command, row.Words, LookupCustomProperty(settings, row.FormKey));
    fields.Add(row.Field);
}

void AppendNumber(const SharedJson& settings, std::u16string_view format, FieldList& fields, WideText& pjl) {
    if (!IsOn(settings, u"CopyProtectDistributionNumber")) return;
    WideText command(format);
    const bool isFixed =
        LookupCustomProperty(settings, u"CopyProtectDistributionNumberStartNumberType") == u"Fixed";
    FillFirstPlaceholder(command, isFixed ? u"FIXED" : u"NUMBER");
    FillFirstPlaceholder(command,
                         LookupCustomProperty(settings, u"CopyProtectDistributionNumberStartNumber").View());
    AppendWideText(pjl, command);
    fields.Add(u"NUMBERING");
}

void AppendFields(const FieldList& fields, std::u16string_view format, WideText& pjl) {
    WideText command(format);
    FillFirstPlaceholder(command, fields.Completed().View());
    AppendWideText(pjl, command);
}

void AppendStyle(const SharedJson& settings, std::u16string_view format, WideText& pjl) {
    WideText command(format);
    for (const StyleRow& row : styleRows)
        FillWord(command, row.Words, LookupCustomProperty(settings, row.Key));
    AppendWideText(pjl, command);
}

void AppendPassword(PTConverter& converter, std::u16string_view format) {
    const SharedJson& settings = converter.CustomProperties;
    if (LookupCustomProperty(settings, u"CopySecurityOption") != u"PasswordCopy") return;
    WideText command(format);
    const WideText digits = ProtectJobSecret(converter, LookupCustomProperty(settings, u"PWDCopyKey"));
    FillFirstPlaceholder(command, digits.View());
    AppendWideText(converter.PjlText, command);
}

constexpr CopySecurityFormats builtInFormats = {
    .String = CopyProtectStringCommandTable[0].Command,
    .Number = CopyProtectNumberCommandTable[0].Command,
    .Fields = CopySecurityFieldsCommandTable[0].Command,
    .DateTime = CopyProtectDateTimeCommandTable[0].Command,
    .Style = CopyProtectStyleCommandTable[0].Command,
    .Password = PasswordCopyCommandTable[0].Command,
};

}  // namespace

void AppendCopySecurity(PTConverter& converter, const CopySecurityFormats& formats) {
    const SharedJson& settings = converter.CustomProperties;
    const WideText security = LookupCustomProperty(settings, u"CopySecurity");
    if (security.IsEmpty() || security == u"Off") return;

    WideText& pjl = converter.PjlText;
    FieldList fields;
    AppendString(settings, formats.String, fields, pjl);
    WideText dateTime(formats.DateTime);
    for (const DateTimeRow& row : dateTimeRows) FillDateOrTime(settings, row, dateTime, fields);
    if (IsOn(settings, u"CopyProtectSerialNumber")) fields.Add(u"SERIALNUMBER");
    AppendNumber(settings, formats.Number, fields, pjl);
    if (IsOn(settings, u"CopyProtectJobNumber")) fields.Add(u"JOBID");
    AppendFields(fields, formats.Fields, pjl);
    AppendWideText(pjl, dateTime);
    AppendStyle(settings, formats.Style, pjl);
    AppendPassword(converter, formats.Password);
}

void WriteCopySecurity(PTConverter& converter, const PipelineBag&, const TicketDocument&) {
    AppendCopySecurity(converter, builtInFormats);
}

}  // namespace DeviceSpecificModule
