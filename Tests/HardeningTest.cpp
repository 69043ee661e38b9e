#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Support.h"

// What the compiler and the linker must have done against attackers to everything that users run, read back
// from the built objects by readelf, which stands beside every linker.

namespace DeviceSpecificModule {
namespace {

struct Guard {
    const char* Name;
    const char* Options;  // of readelf
    const char* Pattern;  // of a line that must be there
};

constexpr const char* objects[] = {PLATFORM_FILE, MODULE_FILE, C_INTERFACE_FILE, TICKETHOST};

constexpr Guard guards[] = {
    {"loads anywhere", "-h", "Type: +DYN "},
    {"all bound at load time", "-d", "\\(FLAGS\\) +BIND_NOW"},
    {"what is bound can't be written to", "-l", "^ +GNU_RELRO "},
    {"the stack holds no code", "-l", "^ +GNU_STACK .* RW +0x"},
    {"overrun stack frames end the process", "--dyn-syms", " UND __stack_chk_fail@"},
    {"works with a shadow stack", "-n", "x86 feature: .*SHSTK"},
};

TEST(Hardening, StandsInEveryObject) {
    for (const std::string object : objects) {
        for (const auto& [name, options, pattern] : guards) {
            const std::string said = OutputOf("readelf -W " + std::string(options) + " '" + object + "'");
            EXPECT_TRUE(HasMatch(said, pattern)) << object << ": " << name;
        }
        // Memory is never both written to and run, and code is never rewritten while it loads.
        const std::string segments = OutputOf("readelf -Wl '" + object + "'");
        EXPECT_FALSE(HasMatch(segments, " RWE? *E +0x")) << object;
        EXPECT_EQ(OutputOf("readelf -Wd '" + object + "'").find("TEXTREL"), std::string::npos) << object;
    }
}

// Libraries come from the system and from beside the object, wherever that was put, and from nowhere else.
TEST(Hardening, LibrariesAreSoughtBesideTheObjectOnly) {
    const char* const path = R"(\((?:RPATH|RUNPATH)\)\s+Library \w+: \[(.*)\])";
    for (const std::string object : objects) {
        const std::string dynamic = OutputOf("readelf -Wd '" + object + "'");
        for (const std::string& found : Matches(dynamic, path))
            EXPECT_TRUE(found == "$ORIGIN" || found == "$ORIGIN/../lib") << object << ": " << found;
    }
}

// Jumps through pointers may go only to where the compiler said that they may. The note that says so for a
// whole object needs the C library's start files to be built like that, which not every system's are; so look
// at what is exported.
TEST(Hardening, ExportedFunctionsAreMarkedAsTargets) {
    for (const std::string object : {PLATFORM_FILE, MODULE_FILE, C_INTERFACE_FILE}) {
        const std::string code = OutputOf("objdump -d --no-show-raw-insn '" + object + "'");
        const std::string symbols = OutputOf("readelf -W --dyn-syms '" + object + "'");
        const std::vector<PatternMatch> exported =
            AllMatches(symbols, R"(: 0*([1-9a-f][0-9a-f]*) .* FUNC +GLOBAL +DEFAULT +\d+ (\w+))");
        for (const PatternMatch& found : exported)
            EXPECT_NE(code.find(" " + found.at(1) + ":\tendbr64"), code.npos)
                << object << ": " << found.at(2);
        EXPECT_GE(exported.size(), 13u) << object;
    }
}

// The C library's checks of sizes that the compiler knows need an optimised build and don't go with
// sanitizers.
TEST(Hardening, CallsOfTheLibraryAreChecked) {
#if !defined(__OPTIMIZE__) || SANITIZED
    GTEST_SKIP() << "only in optimised builds without a sanitizer";
#elif !defined(_FORTIFY_SOURCE)
    FAIL() << "no _FORTIFY_SOURCE";
#else
    EXPECT_EQ(_FORTIFY_SOURCE, 2);
    // The only library of ours that makes calls whose sizes the compiler can't follow to the end.
    const std::string symbols = OutputOf("readelf -W --dyn-syms '" PLATFORM_FILE "'");
    EXPECT_TRUE(HasMatch(symbols, R"( UND __\w+_chk@)"));
#endif
}

}  // namespace
}  // namespace DeviceSpecificModule
