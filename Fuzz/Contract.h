#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "conversion/PTConverter.h"
#include "devicespecific/platform/TicketDocument.h"

namespace Fuzz {

namespace Platform = DeviceSpecificModule::Platform;

using Platform::TicketDocument;
using Platform::WideText;

// Ends the process with a message when a contract doesn't hold.
void Require(bool holds, const char* contract, std::string_view detail = {});
void Require(bool holds, const char* contract, std::u16string_view detail);

// The parts of an input: what stands between lines that are "%%" and nothing else. At least one.
std::vector<std::string_view> SplitParts(std::string_view input);
// The part of that number, empty where there are fewer.
std::string_view PartOf(const std::vector<std::string_view>& parts, std::size_t number);

// Whether this input is one of those, a quarter, that are run twice.
bool RunsTwice(std::string_view input);

// UTF-8 to a text and back; what is none becomes U+FFFD.
WideText Wide(std::string_view bytes);
std::string Narrow(std::u16string_view units);

// A text as a JSON text, in quotes.
std::string Quoted(std::string_view text);

// Null for what is refused.
TicketDocument LoadTicket(std::string_view bytes);

// What xml() gives loads, as a document that gives the same.
void RequireReloads(const TicketDocument& ticket);

// To be called where an exception is handled.
std::string DescribeConversionError();

// Runs a function that may throw what a conversion may: the name of what it threw and what that said, else
// "". Anything else breaks the contract, lack of memory included.
template <typename Function>
std::string ErrorOf(Function function) {
    try {
        function();
        return {};
    } catch (...) {
        return DescribeConversionError();
    }
}

}  // namespace Fuzz
