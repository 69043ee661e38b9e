#include "Host/output/CallWords.h"

#include "devicespecific/DeviceSpecificModule.h"
#include "devicespecific/platform/ResultError.h"

namespace TicketHost {

std::string NameOfLevel(std::int32_t level) {
    if (level == DeviceSpecificModule::JobLevel) return "job level";
    if (level == DeviceSpecificModule::DocumentLevel) return "document level";
    return level == DeviceSpecificModule::PageLevel ? "page level"
                                                    : "page level (" + std::to_string(level) + ")";
}

std::string ExplainError(const CallError& error) {
    if (error.Code == Platform::ResultOutOfMemory) return "there was no memory for a text or a document";
    if (error.Code == Platform::ResultNoStringService) return "a number could not be formatted";
    if (error.Code == Platform::ResultUnknownCodePage) return "the code page in force is not known";
    if (error.Type == "JsonError")
        return "the user settings in the ticket hold a value of an unexpected type";
    if (error.Type == "std::invalid_argument") return "a setting that must be a number is none";
    if (error.Type == "std::out_of_range") return "a setting's number or position is out of range";
    if (error.Type == "std::length_error")
        return "the user settings are cut into more pieces than can be named";
    return "";
}

bool IsPageMarker(std::string_view line) {
    constexpr std::string_view beginning = "Page_";
    return line.starts_with(beginning) && line.size() > beginning.size() &&
           line.find_first_not_of("0123456789", beginning.size()) == line.npos;
}

std::string NameCalls(const std::vector<std::size_t>& numbers) {
    std::string text = numbers.size() == 1 ? "call " : "calls ";
    for (std::size_t at = 0; at < numbers.size();) {
        std::size_t end = at + 1;
        while (end < numbers.size() && numbers[end] == numbers[end - 1] + 1) ++end;
        text += (at == 0 ? "" : ", ") + std::to_string(numbers[at]);
        if (end - at > 1) text += (end - at > 2 ? " to " : ", ") + std::to_string(numbers[end - 1]);
        at = end;
    }
    return text;
}

}  // namespace TicketHost
