#include "Host/Texts.h"

#include <algorithm>

#include "Platform/CodePages.h"

namespace TicketHost {
namespace {

using Platform::CodePage;

bool BeginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

std::string NameOfControl(unsigned char code) {
    if (code == 0x1B) return "<ESC>";
    if (code == '\r') return "<CR>";
    if (code == '\n') return "<LF>";
    constexpr char digits[] = "0123456789ABCDEF";
    return {'<', '0', 'x', digits[code >> 4], digits[code & 15], '>'};
}

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
        } else if (code == 0xC2 && next >= 0x80 &&
                   next < 0xA0) {  // U+0080 to U+009F, which terminals obey too
            visible += NameOfControl(next);
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

}  // namespace TicketHost
