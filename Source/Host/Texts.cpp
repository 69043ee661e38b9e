#include "Host/Texts.h"

#include <algorithm>

#include "Platform/CodePages.h"
#include "Platform/Identities.h"

namespace TicketHost {
namespace {

using Platform::CodePage;
using Platform::WideText;

bool BeginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

std::string NameOfControl(unsigned char code) {
    if (code == 0x1B) return "<ESC>";
    if (code == '\r') return "<CR>";
    if (code == '\n') return "<LF>";
    constexpr char digits[] = "0123456789ABCDEF";
    return {'<', '0', 'x', digits[code >> 4], digits[code & 15], '>'};
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
        return "user " + std::to_string(GetIdOfUser(token));
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

std::string Visible(std::string_view bytes) {
    std::string visible;
    visible.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto code = static_cast<unsigned char>(bytes[at]);
        const auto next = static_cast<unsigned char>(at + 1 < bytes.size() ? bytes[at + 1] : 0);
        if (code < 0x20 || code == 0x7F) {
            visible += NameOfControl(code);
        } else if (code == 0xC2 && next >= 0x80 && next < 0xA0) {
            visible += NameOfControl(next);  // U+0080 to U+009F, which terminals obey too
            ++at;
        } else {
            visible += bytes[at];
        }
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
