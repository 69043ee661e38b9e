#include "devicespecific/platform/CodePages.h"

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <functional>
#include <mutex>
#include <new>

#include "Platform/WipeMemory.h"
#include "devicespecific/platform/ResultError.h"

namespace DeviceSpecificModule::Platform {
namespace {

constexpr const char* wideName = std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";

// Ends with a zero. No string: that would be destroyed with its thread, and the C library ends the process
// when it has no memory to note that.
constinit thread_local char chosenName[64] = {};

// The "C" locale says ASCII, but means that nobody chose: there the texts are UTF-8.
std::string NameOfCodeset(const char* codeset) {
    const std::string_view name = codeset;
    return name.empty() || name == "ANSI_X3.4-1968" ? "UTF-8" : std::string(name);
}

// One thread at a time: threads that ask at once share the locale's data, which goes with the last of them,
// under a lock of the C library that no race detector sees.
std::string SystemCodePageName() {
    static std::mutex locales;
    const std::lock_guard guard(locales);
    errno = 0;  // a locale that could not be read once is refused from then on without a reason
    locale_t environment = newlocale(LC_CTYPE_MASK, "", nullptr);
    if (environment == nullptr && errno == ENOMEM) ThrowResult(ResultOutOfMemory);
    if (environment == nullptr) return "UTF-8";  // the environment names a locale that isn't there
    std::string name = NameOfCodeset(nl_langinfo_l(CODESET, environment));
    freelocale(environment);
    return name;
}

std::string NameOf(CodePage page) {
    if (page == CodePage::Utf8) return "UTF-8";
    if (page == CodePage::System) return SystemCodePageName();
    return chosenName[0] == '\0' ? NameOfCodeset(nl_langinfo(CODESET)) : chosenName;
}

using Take = std::function<void(std::string_view)>;

// Gives all that it writes to `take`, and keeps nothing of it.
class Converter {
public:
    Converter(const char* to, const char* from, const Take& take)
        : handle_(iconv_open(to, from)), take_(take) {
        if (!IsOpen() && errno != EINVAL) ThrowResult(ResultOutOfMemory);  // the code page may well be known
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (IsOpen()) iconv_close(handle_);
    }
    bool IsOpen() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

    // Converts `input`. At each place that can't be converted, `replace` is given the rest of the input,
    // writes what shall stand there, and says how many bytes of input that is for.
    template <typename Replace>
    void Run(std::string_view input, Replace replace) {
        char* at = const_cast<char*>(input.data());
        std::size_t left = input.size();
        while (left > 0) {
            if (Step(&at, &left) || errno == E2BIG) continue;
            const std::size_t skip = std::min(left, replace(std::string_view(at, left)));
            at += skip;
            left -= skip;
        }
    }

    // Writes what the code page needs at a text's end.
    void Finish() { Step(nullptr, nullptr); }

    // Writes one character where the code page has it, in the shift state that it is in.
    bool Put(char16_t unit) {
        char* at = reinterpret_cast<char*>(&unit);
        std::size_t left = sizeof unit;
        return Step(&at, &left);
    }

private:
    struct Room {
        char Bytes[4096];
        char* End = Bytes;

        ~Room() { WipeMemory(Bytes, static_cast<std::size_t>(End - Bytes)); }
    };

    // False, with errno set, when it stopped before the end of the input.
    bool Step(char** input, std::size_t* left) {
        Room room;
        std::size_t free = sizeof room.Bytes;
        const bool complete = iconv(handle_, input, left, &room.End, &free) != static_cast<std::size_t>(-1);
        const int error = errno;
        take_(std::string_view(room.Bytes, room.End));
        errno = error;
        return complete;
    }

    iconv_t handle_;
    const Take& take_;
};

bool IsAscii(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

bool IsAscii(std::u16string_view units) {
    return std::ranges::all_of(units, [](char16_t unit) { return unit < 0x80; });
}

// The length of the character that the text begins with, in units; 1 for a lone surrogate.
std::size_t FirstLength(std::u16string_view text) {
    const bool isPair = text.size() > 1 && (text[0] & 0xFC00) == 0xD800 && (text[1] & 0xFC00) == 0xDC00;
    return isPair ? 2 : 1;
}

std::string_view BytesOf(std::u16string_view units) {
    return {reinterpret_cast<const char*>(units.data()), units.size() * sizeof(char16_t)};
}

// Takes all units at once, or those of one character at a time.
bool ConvertUnits(const std::string& page, std::u16string_view units, bool byCharacter, const Take& take) {
    Converter converter(page.c_str(), wideName, take);
    if (!converter.IsOpen()) return false;
    while (!units.empty()) {
        const std::u16string_view piece = units.substr(0, byCharacter ? FirstLength(units) : units.npos);
        converter.Run(BytesOf(piece), [&](std::string_view rest) {
            if (!converter.Put(u'\xFFFD')) converter.Put(u'?');
            return sizeof(char16_t) *
                   FirstLength(piece.substr(piece.size() - rest.size() / sizeof(char16_t)));
        });
        units.remove_prefix(piece.size());
    }
    converter.Finish();
    return true;
}

}  // namespace

// No code page has a longer name than there is room for.
void SetThreadCodePage(std::string_view name) {
    const std::size_t length = name.copy(chosenName, sizeof chosenName - 1);
    chosenName[length] = '\0';
}

std::string GetThreadCodePage() { return chosenName; }

bool ConvertToWide(CodePage page, std::string_view bytes, WideText& text) try {
    const std::string name = NameOf(page);
    std::u16string units;
    if (name == "UTF-8" && IsAscii(bytes)) {
        units.assign(bytes.begin(), bytes.end());
    } else {
        std::string output;
        const Take take = [&output](std::string_view piece) { output += piece; };
        Converter converter(wideName, name.c_str(), take);
        if (!converter.IsOpen()) return false;
        converter.Run(bytes, [&output](std::string_view) {
            output += BytesOf(u"\xFFFD");
            return std::size_t{1};
        });
        converter.Finish();
        units.resize(output.size() / sizeof(char16_t));
        std::memcpy(units.data(), output.data(), units.size() * sizeof(char16_t));
    }
    text = WideText(units);
    return true;
} catch (const std::bad_alloc&) {
    ThrowResult(ResultOutOfMemory);
}

bool ConvertFromWide(CodePage page, std::u16string_view units, std::string& bytes) try {
    const std::string name = NameOf(page);
    std::string output;
    if (name == "UTF-8" && IsAscii(units))
        output.assign(units.begin(), units.end());
    else if (!ConvertUnits(name, units, false, [&output](std::string_view piece) { output += piece; }))
        return false;
    bytes = std::move(output);
    return true;
} catch (const std::bad_alloc&) {
    ThrowResult(ResultOutOfMemory);
}

bool ConvertSecretFromWide(CodePage page, std::u16string_view units, const Take& take) try {
    return ConvertUnits(NameOf(page), units, true, take);
} catch (const std::bad_alloc&) {
    ThrowResult(ResultOutOfMemory);
}

}  // namespace DeviceSpecificModule::Platform
