#include "stages/JobLogAndTime.h"

#include <iterator>
#include <string_view>

#include "Platform/Clock.h"
#include "conversion/PipelineProperties.h"
#include "conversion/TextOperations.h"
#include "devicespecific/platform/Identities.h"
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

// A number below 100.
struct TwoDigits {
    explicit TwoDigits(int number) : units_{Digit(number / 10), Digit(number % 10)} {}
    operator std::u16string_view() const { return {units_, std::size(units_)}; }

private:
    static char16_t Digit(int digit) { return static_cast<char16_t>(u'0' + digit); }
    char16_t units_[2];
};

}  // namespace

WideText FormatPrintLogDate(std::int64_t seconds) {
    Platform::LocalTime time;
    if (!Platform::ToLocalTime(seconds, time)) return WideText(u"");
    return WideText::Join({weekdays[time.Weekday], u",", TwoDigits(time.Day), u" ", months[time.Month - 1],
                           u" ", DecimalText(time.Year), u" ", TwoDigits(time.Hour), u":",
                           TwoDigits(time.Minute), u":", TwoDigits(time.Second)});
}

WideText FormatJobTime(std::int64_t seconds) {
    Platform::LocalTime time;
    if (!Platform::ToLocalTime(seconds, time)) return WideText(u"");
    return WideText::Join({DecimalText(time.Year), TwoDigits(time.Month), TwoDigits(time.Day),
                           TwoDigits(time.Hour), TwoDigits(time.Minute), TwoDigits(time.Second)});
}

void WriteJobLogAndTime(PTConverter& converter, const PipelineBag& bag, const TicketDocument&) {
    const std::int64_t seconds = Platform::GetSystemSeconds();
    WideText text(block);
    FillFirstPlaceholder(text, FormatPrintLogDate(seconds).View());
    FillFirstPlaceholder(text, GetSubmittingUserName(bag).View());
    FillFirstPlaceholder(text, Platform::GetNameOfComputer().View());
    FillFirstPlaceholder(text, FormatJobTime(seconds).View());
    AppendWideText(converter.PjlText, text);
}

}  // namespace DeviceSpecificModule
