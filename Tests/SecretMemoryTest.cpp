#include <gtest/gtest.h>
#include <pthread.h>
#include <stdlib.h>
#include <sys/mman.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "Cases.h"
#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/MemoryBags.h"
#include "secrets/HexText.h"
#include "secrets/Passphrase.h"
#include "secrets/SecretPreparation.h"

// Looks for a secret in all the memory of this process, the dead stack and freed blocks included, after a
// call that used it. What the settings and counted texts hold of it is the test's own here, and wiped by it.

namespace DeviceSpecificModule {
namespace {

// Never stored: a letter is computed from its place, and of two secrets no four letters in a row are the
// same. Letters are printable, so that each is one byte and one unit, and each stands in a secret but once.
struct Secret {
    std::size_t Number;  // which one

    static constexpr std::size_t Length = 40;
    unsigned char operator[](std::size_t place) const {
        return static_cast<unsigned char>(33 + place * (31 + Number) % 89);
    }
};

// A text whose units the test wipes, those of its counted buffer included.
struct WipedWide {
    explicit WipedWide(std::size_t length) : Units(length) {}
    ~WipedWide() {
        const std::u16string_view counted = Text.View();
        explicit_bzero(const_cast<char16_t*>(counted.data()), counted.size() * sizeof(char16_t));
    }
    const WideText& Done() { return Text = WideText(std::u16string_view(Units.data(), Units.size())); }

    std::vector<char16_t, WipingAllocator<char16_t>> Units;
    WideText Text;
};

// Sees the bytes of the memory in order and knows the longest piece of a secret among them, whether its
// letters take 1, 2 or 4 bytes.
class PieceFinder {
public:
    explicit PieceFinder(Secret secret) {
        for (std::size_t place = 0; place < Secret::Length; ++place) places_[secret[place]] = place + 1;
    }
    void See(std::size_t address, unsigned char byte) {
        const std::size_t place = places_[byte];
        if (place == 0) return;
        for (std::size_t width = 0; width < 3; ++width) {
            const Piece& before = pieces_[width][place - 1];
            Piece& piece = pieces_[width][place];
            piece = {address, before.End + (std::size_t{1} << width) == address ? before.Length + 1 : 1};
            Longest = std::max(Longest, piece.Length);
        }
    }
    int Longest = 0;

private:
    struct Piece {
        std::size_t End = 0;
        int Length = 0;
    };
    std::array<std::size_t, 256> places_{};                        // of each letter, from 1
    std::array<std::array<Piece, Secret::Length + 1>, 3> pieces_;  // by width and by their last letter
};

int LongestPieceInMemory(Secret secret) {
    constexpr std::size_t largestMapping = 256 << 20;  // larger ones are the sanitizers' own
    static std::array<char, 65536> room;
    PieceFinder finder(secret);
    std::ifstream maps("/proc/self/maps"), memory("/proc/self/mem", std::ios::binary);
    for (std::string line; std::getline(maps, line);) {
        std::istringstream fields(line);
        std::size_t at = 0, end = 0;
        std::string access;
        fields >> std::hex >> at >> std::ws;
        fields.ignore(1, '-') >> end >> access;
        if (!access.starts_with("rw") || end - at > largestMapping) continue;
        for (; at < end; at += room.size()) {
            memory.clear();
            memory.seekg(static_cast<std::streamoff>(at))
                .read(room.data(), static_cast<std::streamsize>(std::min(room.size(), end - at)));
            const auto count = static_cast<std::size_t>(memory.gcount());
            for (std::size_t byte = 0; byte < count; ++byte)
                finder.See(at + byte, static_cast<unsigned char>(room[byte]));
        }
    }
    return finder.Longest;
}

// Runs a function on a thread whose stack stays behind as it is.
void RunOnOwnStack(const std::function<void()>& function) {
    constexpr std::size_t size = 1 << 20;
    void* const stack = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(stack, MAP_FAILED);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstack(&attributes, stack, size);
    pthread_t thread;
    const auto run = [](void* argument) -> void* {
        (*static_cast<const std::function<void()>*>(argument))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&function)), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

PTConverter MakeConverter(Platform::PrinterProperties queue) {
    PTConverter converter;
    converter.Pipeline = std::make_shared<Platform::MemoryPipelineBag>();
    converter.Pipeline->AddProperty(u"EncryptionID", WideText(u"[1,2]"));
    converter.Queue = std::make_shared<Platform::MemoryPrinterBag>(std::move(queue));
    return converter;
}

const WideText& Plain(Secret secret, WipedWide& text) {
    const std::size_t length = std::min(text.Units.size(), Secret::Length);
    for (std::size_t place = 0; place < length; ++place) text.Units[place] = secret[place];
    return text.Done();
}

template <std::size_t Length>
void ProtectPlain(Secret secret) {
    WipedWide text(Length);
    ProtectJobSecret(MakeConverter({}), Plain(secret, text));
}

void ProtectBesideOtherLetters(Secret secret) {
    WipedWide text(Secret::Length + 1);
    text.Units.back() = u'\u00E9';
    ProtectJobSecret(MakeConverter({}), Plain(secret, text));
}

void ProtectHexText(Secret secret) {
    WipedWide text(2 * Secret::Length);
    for (std::size_t place = 0; place < Secret::Length; ++place) {
        text.Units[2 * place] = u"0123456789ABCDEF"[secret[place] / 16];
        text.Units[2 * place + 1] = u"0123456789abcdef"[secret[place] % 16];
    }
    PTConverter converter = MakeConverter({});
    converter.SecretIsHexText = 1;
    ProtectJobSecret(converter, text.Done());
}

void ConvertToOtherPage(Secret secret) {
    WipedWide text(Secret::Length);
    Platform::SetThreadCodePage("ISO-8859-15");
    const auto take = [](std::string_view) {};
    ConvertSecretFromWide(Platform::CodePage::Thread, Plain(secret, text).View(), take);
}

void UsePassphrase(Secret secret) {
    Wiped<std::array<char, LongestPassphrase>> passphrase;
    for (std::size_t place = 0; place < LongestPassphrase; ++place)
        passphrase.Value[place] = static_cast<char>(secret[place]);
    const std::string stored = WrapPassphrase({passphrase.Value.data(), LongestPassphrase});
    Platform::PrinterProperties queue = {{u"encryptionPassphrase_Flag", 1}};
    queue[u"encryptionPassphrase"] = WideText(std::u16string(stored.begin(), stored.end()));
    ProtectJobSecret(MakeConverter(queue), WideText(u"x"));
}

// Two that don't wipe, which shows that the search finds.
void LeaveOnTheStack(Secret secret) {
    volatile char16_t letters[Secret::Length];
    for (std::size_t place = 0; place < Secret::Length; ++place) letters[place] = secret[place];
    EXPECT_EQ(letters[0], secret[0]);
}

void LeaveInFreedMemory(Secret secret) {
    std::string letters;
    for (std::size_t place = 0; place < Secret::Length; ++place) letters += static_cast<char>(secret[place]);
}

TEST(SecretMemory, HoldsNothingOfASecretAfterTheCall) {
#if SANITIZED
    GTEST_SKIP() << "sanitizers keep copies of what the program holds, in terabytes of memory";
#endif
    setenv("LC_ALL", "C", 1);          // a system of UTF-8
    const ThreadCodePage locales("");  // for the tests that follow; what runs here sets another
    constexpr int longestByChance = 5;
    struct Case {
        const char* Name;
        void (*Use)(Secret);
        bool IsFound;
    };
    constexpr Case cases[] = {
        {"left on the stack", LeaveOnTheStack, true},
        {"left in freed memory", LeaveInFreedMemory, true},
        {"short", ProtectPlain<10>, false},
        {"long", ProtectPlain<Secret::Length>, false},
        {"beside other letters", ProtectBesideOtherLetters, false},
        {"hexadecimal digits", ProtectHexText, false},
        {"another code page", ConvertToOtherPage, false},
        {"passphrase", UsePassphrase, false},
    };
    std::size_t number = 0;
    for (const Case& each : cases) {
        // The loader binds some functions of the system at their first call and saves registers then, of
        // which the first secret may leave a piece behind.
        RunOnOwnStack([&] { each.Use(Secret{++number}); });
        const Secret secret{++number};
        RunOnOwnStack([&] { each.Use(secret); });
        const int longest = LongestPieceInMemory(secret);
        EXPECT_EQ(longest > longestByChance, each.IsFound) << each.Name << ": " << longest;
    }
}

}  // namespace
}  // namespace DeviceSpecificModule
