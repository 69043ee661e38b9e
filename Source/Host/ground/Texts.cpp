#include "Host/ground/Texts.h"

#include <algorithm>

#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/Identities.h"

namespace TicketHost {
namespace {

using Platform::CodePage;
using Platform::WideText;

bool BeginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

// Two hexadecimal digits for what a byte can hold, else four.
std::string NameOfCode(char32_t code) {
    if (code == 0x1B) return "<ESC>";
    if (code == '\r') return "<CR>";
    if (code == '\n') return "<LF>";
    std::string name = code < 0x100 ? "<0x" : "<U+";
    for (int shift = code < 0x100 ? 4 : 12; shift >= 0; shift -= 4)
        name += "0123456789ABCDEF"[(code >> shift) & 15];
    return name + '>';
}

bool AreSame(std::monostate, std::monostate) { return true; }
bool AreSame(const WideText& left, const WideText& right) {
    return left.IsNull() == right.IsNull() && left.Length() == right.Length() && BeginsWith(left, right);
}
bool AreSame(std::int32_t left, std::int32_t right) { return left == right; }
bool AreSame(Platform::TokenHandle left, Platform::TokenHandle right) { return left == right; }
bool AreSame(Platform::BareReference left, Platform::BareReference right) {
    return left.Address == right.Address;
}
bool AreSame(const std::shared_ptr<Platform::IPrinterPropertyBag>& left,
             const std::shared_ptr<Platform::IPrinterPropertyBag>& right) {
    return left == right;
}

struct Describe {
    std::string operator()(std::monostate) const { return "null"; }
    std::string operator()(const WideText& text) const {
        return text.IsNull() ? "null" : '"' + Visible(ToUtf8(text)) + '"';
    }
    std::string operator()(std::int32_t number) const { return std::to_string(number); }
    std::string operator()(Platform::TokenHandle token) const {
        return "user " + (IsOfUserName(token) ? '"' + Visible(ToUtf8(GetNameOfUser(token))) + '"'
                                              : std::to_string(GetIdOfUser(token)));
    }
    std::string operator()(Platform::BareReference reference) const {
        return reference.Address == nullptr ? "reference to nothing" : "reference to OptionTables";
    }
    std::string operator()(const std::shared_ptr<Platform::IPrinterPropertyBag>& bag) const {
        return bag ? "printer bag" : "no printer bag";
    }
};

}  // namespace

std::string ToUtf8(std::u16string_view units) {
    std::string bytes;
    ConvertFromWide(CodePage::Utf8, units, bytes);
    return bytes;
}

Platform::WideText FromUtf8(std::string_view bytes) {
    Platform::WideText text;
    ConvertToWide(CodePage::Utf8, bytes, text);
    return text;
}

std::u16string UnitsOf(std::string_view bytes) { return std::u16string(FromUtf8(bytes).View()); }

bool ActsOnDisplay(char32_t character) {
    struct Range {
        char32_t First, Last;
    };
    constexpr Range ranges[] = {{0, 0x1F},        {0x7F, 0x9F},     {0x061C, 0x061C},
                                {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}};
    return std::ranges::any_of(ranges, [character](const Range& range) {
        return range.First <= character && character <= range.Last;
    });
}

Character FirstCharacter(std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    if (first < 0x80) return {first, 1};
    const std::size_t length = first < 0xC0 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF8 ? 4 : 0;
    if (length == 0 || bytes.size() < length) return {first, 0};
    char32_t code = first & (0x7F >> length);
    for (const char next : bytes.substr(1, length - 1)) {
        if (BeginsCharacter(next)) return {first, 0};
        code = code << 6 | (static_cast<unsigned char>(next) & 0x3F);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};  // of so many bytes
    const bool isCharacter = code >= smallest[length] && code < 0x110000 && (code < 0xD800 || code > 0xDFFF);
    return isCharacter ? Character{code, length} : Character{first, 0};
}

std::string Visible(std::string_view bytes) {
    std::string visible;
    visible.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto [code, length] = FirstCharacter(bytes);
        if (length == 0 || ActsOnDisplay(code))
            visible += NameOfCode(code);
        else
            visible += bytes.substr(0, length);
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return visible;
}

std::size_t CountCharacters(std::string_view bytes) {
    return static_cast<std::size_t>(std::count_if(bytes.begin(), bytes.end(), BeginsCharacter));
}

std::string Shortened(const std::string& bytes, std::size_t characters) {
    if (bytes.size() <= characters) return bytes;
    const std::size_t count = CountCharacters(bytes);
    if (count <= characters) return bytes;
    std::size_t end = 0;
    for (std::size_t kept = 0; end < bytes.size(); ++end)
        if (BeginsCharacter(bytes[end]) && kept++ == characters) break;
    return bytes.substr(0, end) + "... (" + std::to_string(count - characters) + " more)";
}

bool AreSame(const Platform::PropertyValue& left, const Platform::PropertyValue& right) {
    if (left.index() != right.index()) return false;
    return std::visit(
        [&right](const auto& value) {
            return AreSame(value, std::get<std::remove_cvref_t<decltype(value)>>(right));
        },
        left);
}

std::string DescribeValue(const Platform::PropertyValue& value) { return std::visit(Describe(), value); }

WideText FindText(const PipelineProperties& properties, std::u16string_view name) {
    const auto found = properties.find(name);
    const WideText* text = found == properties.end() ? nullptr : std::get_if<WideText>(&found->second);
    return text == nullptr ? WideText() : *text;
}

bool BeginsWith(const WideText& text, const WideText& beginning) {
    if (text.Length() < beginning.Length()) return false;
    return text.View().data() == beginning.View().data() || text.View().starts_with(beginning.View());
}

std::vector<std::string> SplitCommandLines(std::u16string_view text) {
    const std::string bytes = ToUtf8(text);
    std::vector<std::string> lines;
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::size_t end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        const char* mark = end == rest.npos ? "<no line end>" : line.ends_with('\r') ? "" : "<LF>";
        if (*mark == '\0') line.remove_suffix(1);
        lines.push_back(Visible(line) + mark);
        rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    }
    return lines;
}

}  // namespace TicketHost
