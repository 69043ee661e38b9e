#include "conversion/TextOperations.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <type_traits>

#include "devicespecific/platform/CodePages.h"

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
    if (target.IsNull() && source.empty()) target = WideText(u"");
    return target.Append(source);
}

void RequireWhole(const WideText& text) {
    if (!text.IsWhole()) ThrowResult(Platform::ResultOutOfMemory);
}

void AddPieces(WideText& target, std::initializer_list<std::u16string_view> pieces) {
    for (const std::u16string_view piece : pieces)
        if (!target.Append(piece)) ThrowResult(Platform::ResultOutOfMemory);
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
    if (place != whole.npos) text = WideText::Join({whole.substr(0, place), value, whole.substr(place + 2)});
}

DecimalText::DecimalText(std::int64_t number) noexcept {
    char digits[std::extent_v<decltype(units_)>];
    const auto result = std::to_chars(digits, std::end(digits), number);
    length_ = static_cast<std::size_t>(std::copy(digits, result.ptr, units_) - units_);
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
