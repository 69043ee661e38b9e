#include "Contract.h"

#include <json/value.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <stdexcept>

#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/ResultError.h"

namespace Fuzz {
namespace {

using Platform::CodePage;

// CDATA sections that stand side by side load as one.
std::u16string WithSectionsJoined(std::u16string_view xml) {
    constexpr std::u16string_view meeting = u"]]><![CDATA[";
    std::u16string joined;
    for (std::size_t at = 0; (at = xml.find(meeting)) != xml.npos; xml.remove_prefix(at + meeting.size()))
        joined += xml.substr(0, at);
    return joined.append(xml);
}

}  // namespace

void Require(bool holds, const char* contract, std::string_view detail) {
    if (holds) return;
    std::fprintf(stderr, "BROKEN CONTRACT: %s\n%.*s\n", contract, static_cast<int>(detail.size()),
                 detail.data());
    std::abort();
}

void Require(bool holds, const char* contract, std::u16string_view detail) {
    if (!holds) Require(false, contract, Narrow(detail));
}

std::vector<std::string_view> SplitParts(std::string_view input) {
    constexpr std::string_view line = "\n%%\n";
    std::vector<std::string_view> parts;
    for (std::size_t end = 0; (end = input.find(line)) != input.npos; input.remove_prefix(end + line.size()))
        parts.push_back(input.substr(0, end));
    parts.push_back(input);
    return parts;
}

std::string_view PartOf(const std::vector<std::string_view>& parts, std::size_t number) {
    return number < parts.size() ? parts[number] : std::string_view();
}

bool RunsTwice(std::string_view input) { return std::hash<std::string_view>()(input) % 4 == 0; }

WideText Wide(std::string_view bytes) {
    WideText text(u"");
    ConvertToWide(CodePage::Utf8, bytes, text);
    return text;
}

std::string Narrow(std::u16string_view units) {
    std::string bytes;
    ConvertFromWide(CodePage::Utf8, units, bytes);
    return bytes;
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char each : text) {
        char code[8];
        std::snprintf(code, sizeof code, "\\u%04X", static_cast<unsigned>(each & 0x7F));
        const bool isPlain = (each & 0xE0) != 0 && each != '"' && each != '\\';
        quoted += isPlain ? std::string(1, each) : std::string(code);
    }
    return quoted + '"';
}

TicketDocument LoadTicket(std::string_view bytes) {
    Platform::ParseError error;
    return Platform::LoadTicketDocument(bytes, error);
}

void RequireReloads(const TicketDocument& ticket) {
    const WideText xml = ticket->xml();
    Platform::ParseError error;
    const TicketDocument again = Platform::LoadTicketDocument(xml, error);
    Require(again != nullptr, "a ticket's text loads again", xml.View());
    Require(WithSectionsJoined(again->xml().View()) == WithSectionsJoined(xml.View()),
            "a ticket's text loads as the same ticket", xml.View());
}

std::string DescribeConversionError() {
    try {
        throw;
    } catch (const Json::Exception& error) {
        return std::string("JSON: ") + error.what();
    } catch (const std::out_of_range& error) {
        return std::string("range: ") + error.what();
    } catch (const std::invalid_argument& error) {
        return std::string("argument: ") + error.what();
    } catch (const std::length_error& error) {
        return std::string("length: ") + error.what();
    } catch (const std::exception& error) {
        Require(false, "a conversion throws only what it may", error.what());
    }
    return {};
}

}  // namespace Fuzz
