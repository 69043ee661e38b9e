#include "stages/JobLogAndTime.h"

#include <string>

#include "Platform/Clock.h"
#include "Platform/Identities.h"
#include "conversion/PipelineProperties.h"
#include "conversion/TextOperations.h"
#include "stages/Stages.h"

namespace DeviceSpecificModule {
namespace {

constexpr std::u16string_view weekdays[] = {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"};
constexpr std::u16string_view months[] = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                          u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};

constexpr std::u16string_view block =
    u"@PJL PRINTLOG ITEM = 1,PRINTER\r\n"
    u"@PJL PRINTLOG ITEM = 2,%s\r\n"
    u"@PJL PRINTLOG ITEM = 3,%s\r\n"
    u"@PJL PRINTLOG ITEM = 4,%s\r\n"
    u"@PJL SET JOBTIME = \"%s\"\r\n"
    u"@PJL SET MEDIATYPECHECK = ON\r\n"
    u"@PJL SET STRINGCODESET = UTF8\r\n";

std::u16string TwoDigits(int number) {
    std::u16string digits = DecimalText(number);
    if (digits.size() < 2) digits.insert(digits.begin(), u'0');
    return digits;
}

}  // namespace

WideText FormatPrintLogDate(std::int64_t seconds) {
    Platform::LocalTime time;
    if (!Platform::ToLocalTime(seconds, time)) return WideText(u"");
    std::u16string text(weekdays[time.Weekday]);
    text.append(u",").append(TwoDigits(time.Day)).append(u" ").append(months[time.Month - 1]);
    text.append(u" ").append(DecimalText(time.Year)).append(u" ").append(TwoDigits(time.Hour));
    text.append(u":").append(TwoDigits(time.Minute)).append(u":").append(TwoDigits(time.Second));
    return WideText(text);
}

WideText FormatJobTime(std::int64_t seconds) {
    Platform::LocalTime time;
    if (!Platform::ToLocalTime(seconds, time)) return WideText(u"");
    std::u16string text = DecimalText(time.Year);
    for (int part : {time.Month, time.Day, time.Hour, time.Minute, time.Second}) text += TwoDigits(part);
    return WideText(text);
}

void WriteJobLogAndTime(PTConverter& converter, const PipelineBag& bag, const TicketDocument&) {
    const std::int64_t seconds = Platform::GetSystemSeconds();
    WideText text(block);
    FillFirstPlaceholder(text, FormatPrintLogDate(seconds).View());
    FillFirstPlaceholder(text, GetSubmittingUserName(bag).View());
    FillFirstPlaceholder(text, Platform::GetComputerName().View());
    FillFirstPlaceholder(text, FormatJobTime(seconds).View());
    AppendWideText(converter.PjlText, text);
}

}  // namespace DeviceSpecificModule
