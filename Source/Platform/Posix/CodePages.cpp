#include "Platform/CodePages.h"

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <new>

namespace Platform {
namespace {

constexpr const char* wideName = std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";

std::string& ThreadCodePageName() {
    thread_local std::string name;
    return name;
}

// The "C" locale says ASCII, but means that nobody chose: there the texts are UTF-8.
std::string NameOfCodeset(const char* codeset) {
    const std::string_view name = codeset;
    return name.empty() || name == "ANSI_X3.4-1968" ? "UTF-8" : std::string(name);
}

std::string SystemCodePageName() {
    locale_t environment = newlocale(LC_CTYPE_MASK, "", nullptr);
    if (environment == nullptr) return "UTF-8";
    std::string name = NameOfCodeset(nl_langinfo_l(CODESET, environment));
    freelocale(environment);
    return name;
}

std::string NameOf(CodePage page) {
    if (page == CodePage::Utf8) return "UTF-8";
    if (page == CodePage::System) return SystemCodePageName();
    const std::string& chosen = ThreadCodePageName();
    return chosen.empty() ? NameOfCodeset(nl_langinfo(CODESET)) : chosen;
}

class Converter {
public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {
        if (!IsOpen() && errno != EINVAL) throw std::bad_alloc();  // the code page may well be known
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (IsOpen()) iconv_close(handle_);
    }
    bool IsOpen() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

    // Converts `input` into `output`. At each place that can't be converted, `replace` is given the rest of
    // the input, writes what shall stand there, and says how many bytes of input that is for.
    template <typename Replace>
    void Run(std::string_view input, Replace replace, std::string& output) {
        char* at = const_cast<char*>(input.data());
        std::size_t left = input.size();
        while (left > 0) {
            if (Step(&at, &left, output) || errno == E2BIG) continue;
            const std::size_t skip = std::min(left, replace(std::string_view(at, left)));
            at += skip;
            left -= skip;
        }
        Step(nullptr, nullptr, output);  // what the code page needs at a text's end
    }

    // Writes one character where the code page has it, in the shift state that it is in.
    bool Put(char16_t unit, std::string& output) {
        char bytes[sizeof unit];
        std::memcpy(bytes, &unit, sizeof unit);
        char* at = bytes;
        std::size_t left = sizeof bytes;
        return Step(&at, &left, output);
    }

private:
    // False, with errno set, when it stopped before the end of the input.
    bool Step(char** input, std::size_t* left, std::string& output) {
        char room[4096];
        char* end = room;
        std::size_t free = sizeof room;
        const bool complete = iconv(handle_, input, left, &end, &free) != static_cast<std::size_t>(-1);
        const int error = errno;
        output.append(room, end);
        errno = error;
        return complete;
    }

    iconv_t handle_;
};

bool IsAscii(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

bool IsAscii(std::u16string_view units) {
    return std::ranges::all_of(units, [](char16_t unit) { return unit < 0x80; });
}

std::size_t BadUnitsLength(std::string_view rest) {
    if (rest.size() < 4) return 2;
    char16_t pair[2];
    std::memcpy(pair, rest.data(), sizeof pair);
    const bool isPair = (pair[0] & 0xFC00) == 0xD800 && (pair[1] & 0xFC00) == 0xDC00;
    return isPair ? 4 : 2;
}

}  // namespace

void SetThreadCodePage(std::string_view name) { ThreadCodePageName() = name; }

bool ConvertToWide(CodePage page, std::string_view bytes, WideText& text) {
    const std::string name = NameOf(page);
    std::u16string units;
    if (name == "UTF-8" && IsAscii(bytes)) {
        units.assign(bytes.begin(), bytes.end());
    } else {
        Converter converter(wideName, name.c_str());
        if (!converter.IsOpen()) return false;
        std::string output;
        const auto replace = [&output](std::string_view) {
            constexpr char16_t unknown = u'\xFFFD';
            output.append(reinterpret_cast<const char*>(&unknown), sizeof unknown);
            return std::size_t{1};
        };
        converter.Run(bytes, replace, output);
        units.resize(output.size() / sizeof(char16_t));
        std::memcpy(units.data(), output.data(), units.size() * sizeof(char16_t));
    }
    text = WideText(units);
    return true;
}

bool ConvertFromWide(CodePage page, std::u16string_view units, std::string& bytes) {
    const std::string name = NameOf(page);
    std::string output;
    if (name == "UTF-8" && IsAscii(units)) {
        output.assign(units.begin(), units.end());
    } else {
        Converter converter(name.c_str(), wideName);
        if (!converter.IsOpen()) return false;
        const std::string_view input(reinterpret_cast<const char*>(units.data()),
                                     units.size() * sizeof(char16_t));
        const auto replace = [&](std::string_view rest) {
            if (!converter.Put(u'\xFFFD', output)) converter.Put(u'?', output);
            return BadUnitsLength(rest);
        };
        converter.Run(input, replace, output);
    }
    bytes = std::move(output);
    return true;
}

}  // namespace Platform
