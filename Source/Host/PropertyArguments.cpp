#include "Host/PropertyArguments.h"

#include <charconv>
#include <string_view>

#include "Host/Errors.h"
#include "Host/Texts.h"
#include "Platform/CodePages.h"

namespace TicketHost {
namespace {

Platform::WideText TextOf(std::string_view argument) {
    Platform::WideText text;
    return ConvertToWide(Platform::CodePage::System, argument, text) ? text : FromUtf8(argument);
}

struct Assignment {
    std::u16string Name;
    std::string_view Value;
};

Assignment Split(const std::string& option, std::string_view argument) {
    const std::size_t equals = argument.find('=');
    if (equals == argument.npos || equals == 0)
        throw InputError(option + " " + std::string(argument), "must have the form NAME=VALUE");
    return {std::u16string(TextOf(argument.substr(0, equals)).View()), argument.substr(equals + 1)};
}

template <typename Integer>
Integer NumberOf(const std::string& option, const std::string& argument, std::string_view digits) {
    Integer number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size())
        throw InputError(option + " " + argument,
                         std::is_signed_v<Integer> ? "must be a 32-bit integer" : "must be a user id");
    return number;
}

}  // namespace

void SetPipelineProperties(const std::vector<std::string>& arguments, PipelineProperties& properties) {
    const std::string option = "--pipeline";
    for (const std::string& argument : arguments) {
        const auto [name, value] = Split(option, argument);
        if (name == u"UserSecurityToken")
            properties[name] = Platform::TokenHandle{NumberOf<std::uint32_t>(option, argument, value)};
        else
            properties[name] = TextOf(value);
    }
}

void SetPrinterProperties(const std::string& option, const std::vector<std::string>& arguments,
                          PrinterProperties& properties) {
    for (const std::string& argument : arguments) {
        const auto [name, value] = Split(option, argument);
        if (name == u"encryptionPassphrase_Flag")
            properties[name] = NumberOf<std::int32_t>(option, argument, value);
        else
            properties[name] = TextOf(value);
    }
}

}  // namespace TicketHost
