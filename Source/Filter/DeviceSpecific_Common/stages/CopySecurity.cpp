#include "stages/CopySecurity.h"

#include <span>

#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "secrets/SecretPreparation.h"
#include "stages/Stages.h"
#include "tables/CopySecurityKeywords.h"

namespace DeviceSpecificModule {
namespace {

// A setting's value and the device's word for it.
struct SettingWord {
    std::u16string_view Value;
    std::u16string_view Word;
};

constexpr SettingWord dateWords[] = {
    {u"Date1", u"Date1"}, {u"Date4", u"Date4"}, {u"Date2", u"Date2"},
    {u"Date5", u"Date5"}, {u"Date3", u"Date3"},
};
constexpr SettingWord timeWords[] = {{u"Time1", u"Time1"}, {u"Time2", u"Time2"}};
constexpr SettingWord sizeWords[] = {{u"Small", u"SMALL"}, {u"Normal", u"NORMAL"}, {u"Large", u"LARGE"}};
constexpr SettingWord effectWords[] = {{u"Effect1", u"EFFECT1"}, {u"Effect2", u"EFFECT2"}};
constexpr SettingWord placementWords[] = {{u"Composition1", u"COMPOSITION1"},
                                          {u"Composition2", u"COMPOSITION2"}};
constexpr SettingWord colorWords[] = {{u"Magenta", u"MAGENTA"}, {u"Cyan", u"CYAN"}, {u"Black", u"BLACK"}};
constexpr SettingWord densityWords[] = {{u"-1", u"DENSITYL1"}, {u"0", u"DENSITYN"}, {u"1", u"DENSITYD1"}};
constexpr SettingWord contrastWords[] = {
    {u"-2", u"CONTRASTM2"}, {u"-1", u"CONTRASTM1"}, {u"0", u"CONTRASTN"},
    {u"1", u"CONTRASTP1"},  {u"2", u"CONTRASTP2"},
};
constexpr SettingWord angleWords[] = {{u"P45", u"45"}, {u"None", u"0"}, {u"M45", u"315"}};

struct DateTimeRow {
    std::u16string_view SwitchKey;
    std::u16string_view FormKey;
    std::span<const SettingWord> Words;
    std::u16string_view Field;
};

// In the order of the date and time format's placeholders.
constexpr DateTimeRow dateTimeRows[] = {
    {u"CopyProtectDateTime", u"CopyProtectDateTimeDateFormat", dateWords, u"DATE"},
    {u"CopyProtectDateTimeTimeCheck", u"CopyProtectDateTimeTimeFormat", timeWords, u"TIME"},
};

struct StyleRow {
    std::u16string_view Key;
    std::span<const SettingWord> Words;
};

// In the order of the style format's placeholders.
constexpr StyleRow styleRows[] = {
    {u"CopyProtectTextSize", sizeWords},       {u"CopyProtectEffect", effectWords},
    {u"CopyProtectPlacement", placementWords}, {u"CopyProtectColor", colorWords},
    {u"CopyProtectDensity", densityWords},     {u"CopyProtectPatternContrast", contrastWords},
    {u"CopyProtectTextAngle", angleWords},
};

// The strings that the device knows and those that its administrator sets share their numbers; the first
// field tells them apart.
constexpr std::u16string_view knownString = u"FIXED";
constexpr std::u16string_view ownString = u"ARBITRARY";

struct StringRow {
    std::u16string_view Type;
    std::u16string_view Number;
    std::u16string_view Field;
};

constexpr StringRow stringRows[] = {
    {u"InvalidCopy", u"1", knownString},   {u"Copy", u"2", knownString},
    {u"Invalid", u"3", knownString},       {u"InternalUse", u"4", knownString},
    {u"Unauthorized", u"5", knownString},  {u"Draft", u"6", knownString},
    {u"Confidential", u"7", knownString},  {u"IllegalCopy", u"8", knownString},
    {u"MachineSetting1", u"1", ownString}, {u"MachineSetting2", u"2", ownString},
    {u"MachineSetting3", u"3", ownString}, {u"MachineSetting4", u"4", ownString},
    {u"MachineSetting5", u"5", ownString}, {u"MachineSetting6", u"6", ownString},
    {u"MachineSetting7", u"7", ownString}, {u"MachineSetting8", u"8", ownString},
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

void FillWord(WideText& command, std::span<const SettingWord> words, const WideText& value) {
    for (const SettingWord& row : words)
        if (value == row.Value) return FillFirstPlaceholder(command, row.Word);
}

const StringRow* FindString(const WideText& type) {
    for (const StringRow& row : stringRows)
        if (type == row.Type) return &row;
    return nullptr;
}

void AppendString(const SharedJson& settings, std::u16string_view format, FieldList& fields, WideText& pjl) {
    if (!IsOn(settings, u"CopyProtectString")) return;
    WideText command(format);
    const StringRow* row = FindString(LookupCustomProperty(settings, u"CopyProtectStringType"));
    if (row != nullptr) FillFirstPlaceholder(command, row->Number);
    AppendWideText(pjl, command);
    fields.Add(row == nullptr ? knownString : row->Field);
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
