#include "Host/check/ValueChecks.h"

#include <algorithm>
#include <charconv>

#include "Host/ground/Nearest.h"
#include "Host/ground/Texts.h"
#include "devicespecific/PjlText.h"

namespace TicketHost {
namespace {

constexpr std::size_t mostKnown = 8;       // words that a hint lists
constexpr std::size_t longestQuoted = 60;  // characters

// All of it is an integer of 32 bits, as the module reads numbers.
std::optional<std::int64_t> IntegerOf(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<ValueFault> FaultOfNumber(const Values& allowed, std::string_view value) {
    const std::optional<std::int64_t> number = IntegerOf(value);
    if (!number) return ValueFault{"is no whole number", "write digits alone"};
    if (*number >= allowed.Lowest && *number <= allowed.Highest) return std::nullopt;
    return ValueFault{"is out of range",
                      std::to_string(allowed.Lowest) + " to " + std::to_string(allowed.Highest)};
}

bool IsMediaSize(std::string_view value, const WordList& words) {
    return std::ranges::any_of(
        words, [&](const std::string& word) { return WithoutPrefix(word) == WithoutPrefix(value); });
}

// What a person writes for off, where all but "Off" counts as on.
bool SoundsLikeOff(std::string_view value, const WordList& words) {
    constexpr std::string_view off[] = {"No", "None", "False", "0", "Disabled"};
    std::vector<std::string_view> names(std::begin(off), std::end(off));
    for (const std::string& word : words)
        if (word != "On") names.emplace_back(word);
    const std::string_view nearest = FindNearest(value, names);
    return !nearest.empty() && nearest.size() == value.size();
}

std::optional<ValueFault> FaultOfWord(const Values& allowed, std::string_view value) {
    const WordList& words = allowed.Words();
    if (std::ranges::find(words, value) != words.end()) return std::nullopt;
    switch (allowed.Kind) {
        case Form::MediaSize:
            if (IsMediaSize(value, words)) return std::nullopt;
            break;
        case Form::Switch:
            if (!SoundsLikeOff(value, words)) return std::nullopt;
            return ValueFault{"counts as \"On\"", "write \"Off\""};
        case Form::OnlyOn:
            return ValueFault{"counts as \"Off\"", HintOf(value, words)};
        default:
            break;
    }
    return ValueFault{"is unknown to the device", HintOf(value, words)};
}

std::optional<ValueFault> FaultOfPages(std::string_view item) {
    const std::size_t hyphen = item.find('-');
    const std::optional<std::int64_t> first = IntegerOf(Trimmed(item.substr(0, hyphen)));
    if (!first || *first < 1) return ValueFault{"names " + Quoted(item) + ", which is no page", ""};
    if (hyphen == item.npos) return std::nullopt;
    const std::string_view end = item.substr(hyphen + 1);
    const std::optional<std::int64_t> last = IntegerOf(end);
    if (!last || end.starts_with('0') || end.starts_with('+'))
        return ValueFault{"names " + Quoted(item) + ", which is no range of pages",
                          "write two pages, as 3-5"};
    if (*last < *first) return ValueFault{"names " + Quoted(item) + ", which ends before it begins", ""};
    return std::nullopt;
}

std::optional<ValueFault> FaultOfPageList(std::string_view value) {
    if (value.empty()) return ValueFault{"names no page", "write pages, as 1,3-5"};
    while (!value.empty()) {
        const std::size_t comma = std::min(value.find(','), value.size());
        if (auto fault = FaultOfPages(value.substr(0, comma))) return fault;
        value.remove_prefix(std::min(comma + 1, value.size()));
    }
    return std::nullopt;
}

}  // namespace

std::optional<ValueFault> FaultOf(const Values& allowed, std::string_view value) {
    switch (allowed.Kind) {
        case Form::Any:
            return std::nullopt;
        case Form::Number:
            return FaultOfNumber(allowed, value);
        case Form::PageList:
            return FaultOfPageList(value);
        default:
            return FaultOfWord(allowed, value);
    }
}

std::string HintOf(std::string_view word, std::span<const std::string_view> words) {
    std::vector<std::string_view> bare;
    bare.reserve(words.size());
    for (const std::string_view each : words) bare.push_back(WithoutPrefix(each));
    const std::string_view nearest = FindNearest(WithoutPrefix(word), bare);
    if (!nearest.empty()) {
        const auto place = std::ranges::find(bare, nearest) - bare.begin();
        return "nearest: " + std::string(words[static_cast<std::size_t>(place)]);
    }
    if (words.size() > mostKnown) return "";
    std::string known;
    for (const std::string_view each : words) known.append(known.empty() ? "known: " : ", ").append(each);
    return known;
}

std::string HintOf(std::string_view word, const WordList& words) {
    return HintOf(word, std::vector<std::string_view>(words.begin(), words.end()));
}

std::string_view WithoutPrefix(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == name.npos ? name : name.substr(colon + 1);
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view space = " \t\r\n\v\f";
    text.remove_prefix(std::min(text.find_first_not_of(space), text.size()));
    return text.substr(0, text.find_last_not_of(space) + 1);
}

std::string Quoted(std::string_view text) { return '"' + Shortened(std::string(text), longestQuoted) + '"'; }

bool HasControls(std::string_view text) {
    return std::ranges::any_of(UnitsOf(text), [](char16_t unit) {
        return DeviceSpecificModule::CleanUnitForPjl(unit, 0) == u' ' && unit != u' ';
    });
}

std::string HarmInHeader(std::string_view name) {
    const std::u16string units = UnitsOf(name);
    if (DeviceSpecificModule::IsCleanForPjl(units)) return "";
    const auto isHarmful = [](char16_t unit) {
        return DeviceSpecificModule::CleanUnitForPjl(unit, 0) != unit;
    };
    const bool endsText = std::ranges::any_of(units, isHarmful);
    return std::string("goes into the header as it is, where ") +
           (endsText ? "it ends a line or a quoted text" : "its %s is filled with another name");
}

}  // namespace TicketHost
