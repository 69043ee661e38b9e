#include <algorithm>
#include <array>
#include <iterator>

#include "tables/MediaSizeRows.h"
#include "tables/OptionTables.h"
#include "tables/RecordBuilding.h"

namespace DeviceSpecificModule {
namespace {

constexpr std::u16string_view customFragment =
    u"<psf:Feature name=\"psk:PageMediaSize\"><psf:Option name=\"psk:CustomMediaSize\">"
    u"<psf:ScoredProperty name=\"psk:MediaSizeWidth\">"
    u"<psf:ParameterRef name=\"psk:PageMediaSizeMediaSizeWidth\" /></psf:ScoredProperty>"
    u"<psf:ScoredProperty name=\"psk:MediaSizeHeight\">"
    u"<psf:ParameterRef name=\"psk:PageMediaSizeMediaSizeHeight\" /></psf:ScoredProperty>"
    u"</psf:Option></psf:Feature>"
    u"<psf:ParameterInit name=\"psk:PageMediaSizeMediaSizeWidth\">"
    u"<psf:Value xsi:type=\"xsd:integer\">%s</psf:Value></psf:ParameterInit>"
    u"<psf:ParameterInit name=\"psk:PageMediaSizeMediaSizeHeight\">"
    u"<psf:Value xsi:type=\"xsd:integer\">%s</psf:Value></psf:ParameterInit>";

constexpr std::u16string_view integerStart = u"<psf:Value xsi:type=\"xsd:integer\">";
constexpr std::u16string_view integerEnd = u"</psf:Value></psf:ScoredProperty>";

WideText SizeFragment(const MediaSizeRow& row) {
    return WideText::Join({u"<psf:Feature name=\"psk:PageMediaSize\"><psf:Option name=\"", row.Prefix, u":",
                           row.Keyword, u"\"><psf:ScoredProperty name=\"psk:MediaSizeWidth\">", integerStart,
                           row.Width, integerEnd, u"<psf:ScoredProperty name=\"psk:MediaSizeHeight\">",
                           integerStart, row.Height, integerEnd, u"</psf:Option></psf:Feature>"});
}

WideText SizePostScript(const MediaSizeRow& row) {
    if (row.PageSize.empty()) return WideText(u"");
    return WideText::Join(
        {u"<</PageSize [", row.PageSize, u"] /ImagingBBox null>> setpagedevice\r\n",
         u"<</CustomPaper false>> ", SetDeviceOptions,
         row.IsWide ? u"<</WideMode true /FullBleed true>> " : u"<</WideMode false /FullBleed false>> ",
         SetDeviceOptions});
}

WideText SizeData(const MediaSizeRow& row) {
    return row.Data.empty() ? WideText(u"") : WideText::Join({row.Data, u" MediaSize\r\n"});
}

OptionRecord SizeRecord(const MediaSizeRow& row) {
    OptionRecord record = FilledRecord(row.Keyword, u"");
    record.PairedKeyword = WideText(row.PairedKeyword);
    record.TicketFragment = SizeFragment(row);
    record.NamespacePrefix = WideText(row.Prefix);
    record.PostScriptCommand = SizePostScript(row);
    record.DataCommand = SizeData(row);
    record.DeviceName = WideText(u"0");
    return record;
}

WideText CustomPostScript() {
    return WideText::Join(
        {u"%s %s 0 0 1\r\npop pop pop\r\n"
         u"//true statusdict /setcustomsize 2 copy known\r\n"
         u"{get exec} {pop pop pop} ifelse\r\n"
         u"<</PageSize [ 5 -2 roll ] /Policies <</PageSize 7>> >> setpagedevice\r\n"
         u"<</CustomPaper true>> ",
         SetDeviceOptions});
}

OptionRecord CustomSizeRecord(const CustomSizeRow& row) {
    OptionRecord record = FilledRecord(row.Keyword, u"");
    record.PairedKeyword = WideText(row.PairedKeyword);
    record.TicketFragment = WideText(customFragment);
    record.NamespacePrefix = WideText(row.Prefix);
    record.PostScriptCommand = CustomPostScript();
    record.DataCommand = WideText(row.DataCommand);
    record.ExtraText = WideText(row.ExtraText);
    record.DeviceName = WideText(u"0");
    return record;
}

using Records = std::array<OptionRecord, MediaSizeCount>;

Records BuildMediaSizes() {
    Records records;
    const auto custom = std::ranges::transform(MediaSizeRows, records.begin(), SizeRecord).out;
    std::ranges::transform(CustomSizeRows, custom, CustomSizeRecord);
    return records;
}

}  // namespace

std::span<const OptionRecord> MediaSizeRecords() {
    static const Records records = BuildMediaSizes();
    return records;
}

}  // namespace DeviceSpecificModule
