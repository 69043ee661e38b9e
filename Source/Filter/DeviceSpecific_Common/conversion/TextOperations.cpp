#include "conversion/TextOperations.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "Platform/CodePages.h"

namespace DeviceSpecificModule {

using Platform::CodePage;

void AppendNarrowText(WideText& target, const char* text) noexcept {
    try {
        AppendWideText(target, WideFromNarrow(text));
    } catch (const std::exception&) {
        // By contract a failure shows in the text alone.
    }
}

void AppendWideText(WideText& target, const WideText& source) noexcept { target.Append(source.View()); }

bool AppendWideChars(WideText& target, std::u16string_view source) noexcept {
    if (source.data() == nullptr) return true;
    if (target.IsNull() && source.empty()) target = WideText(u"");
    return target.Append(source);
}

WideText WideFromNarrow(const char* text) {
    WideText wide;
    if (text != nullptr) ConvertToWide(CodePage::Thread, text, wide);
    return wide;
}

std::string NarrowFromWide(std::u16string_view text) {
    std::string narrow;
    if (!ConvertFromWide(CodePage::Utf8, text, narrow)) ThrowResult(Platform::ResultUnknownCodePage);
    return narrow;
}

void FillFirstPlaceholder(WideText& text, std::u16string_view value) {
    const std::u16string_view whole = text.View();
    const std::size_t place = whole.find(u"%s");
    if (place == whole.npos) return;
    WideText filled(whole.substr(0, place));
    if (!filled.Append(value) || !filled.Append(whole.substr(place + 2)))
        ThrowResult(Platform::ResultOutOfMemory);
    text = std::move(filled);
}

std::u16string DecimalText(std::int64_t number) {
    char digits[24];
    const auto result = std::to_chars(digits, digits + sizeof digits, number);
    return std::u16string(digits, result.ptr);
}

bool TakeSign(std::u16string_view& text) {
    const auto isBlank = [](char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); };
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+')) text.remove_prefix(1);
    return negative;
}

std::int32_t ReadDecimal(std::u16string_view text) {
    const bool negative = TakeSign(text);
    std::int64_t number = 0;
    for (; !text.empty() && text.front() >= u'0' && text.front() <= u'9'; text.remove_prefix(1))
        number = std::min<std::int64_t>(number * 10 + (text.front() - u'0'), std::int64_t{1} << 32);
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(negative ? -number : number, Limits::min(), Limits::max()));
}

}  // namespace DeviceSpecificModule
