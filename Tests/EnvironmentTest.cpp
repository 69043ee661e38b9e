#include <gtest/gtest.h>
#include <stdlib.h>

#include "Cases.h"
#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/Identities.h"

// What the process's surroundings may lack.

namespace DeviceSpecificModule::Platform {
namespace {

using DeviceSpecificModule::Narrow;

TEST(Environment, NamesALocaleThatIsNotThere) {
    const char* const before = getenv("LC_ALL");
    const std::string kept = before == nullptr ? "" : before;
    setenv("LC_ALL", "xx_XX.no-such-codeset", 1);
    WideText wide;
    std::string narrow;
    EXPECT_TRUE(ConvertToWide(CodePage::System, "\xC3\xA4", wide));
    EXPECT_TRUE(ConvertFromWide(CodePage::System, u"\u00E4", narrow));
    if (before == nullptr)
        unsetenv("LC_ALL");
    else
        setenv("LC_ALL", kept.c_str(), 1);
    EXPECT_EQ(wide, u"\u00E4");
    EXPECT_EQ(narrow, "\xC3\xA4");
}

TEST(Environment, DoesNotKnowTheUser) {
    EXPECT_EQ(Narrow(GetNameOfUser(GetTokenOfUser(4294967294u))), "");
    EXPECT_NE(Narrow(GetNameOfComputer()), "");
}

}  // namespace
}  // namespace DeviceSpecificModule::Platform
