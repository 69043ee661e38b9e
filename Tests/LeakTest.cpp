#include <gtest/gtest.h>
#include <malloc.h>

#include "Support.h"

// The leak checker of the sanitizers says where; this says whether, in every run of the tests.

namespace DeviceSpecificModule {
namespace {

TEST(Leaks, AreNoneWhateverALevelDoesToATicket) {
    const std::string sample = FileText(SAMPLES_DIR "/tickets/all-settings.xml");
    const auto convert = [&sample] {
        TestHost host({{u"EncryptionID", Wide("[1,2]")}});
        for (std::int32_t level : {JobLevel, DocumentLevel, PageLevel}) host.Run(level, MakeDocument(sample));
        EXPECT_NE(host.Data(), "(absent)");
    };
    for (int time = 0; time < 20; ++time) convert();  // what is made once
    constexpr std::size_t times = 400;
    const std::size_t before = mallinfo2().uordblks;
    for (std::size_t time = 0; time < times; ++time) convert();
    const std::size_t after = mallinfo2().uordblks;
    // A block that stays behind takes 32 bytes at least; the allocator's own store is smaller than all of
    // them.
    EXPECT_LT(after, before + times * 32) << before;
}

}  // namespace
}  // namespace DeviceSpecificModule
