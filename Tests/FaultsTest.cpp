#include <gtest/gtest.h>
#include <stdlib.h>

#include <functional>
#include <new>

#include "Platform/CodePages.h"
#include "Platform/ResultError.h"
#include "Support.h"
#include "secrets/SecretPreparation.h"

// Every allocation of a call failed in turn. The allocators of this whole program are replaced; they fail
// only on a thread that has asked for it. What the XML library takes from malloc doesn't fail here: it does
// not survive that in every place itself.

namespace {

thread_local long untilFailure = -1;  // how many allocations may still succeed; negative: all
thread_local bool failed = false;

bool Fails() {
    if (untilFailure < 0) return false;
    if (untilFailure > 0) {
        --untilFailure;
        return false;
    }
    untilFailure = -1;
    failed = true;
    return true;
}

// Not inlined, so that the compiler doesn't take the pairs below for mismatched ones.
[[gnu::noinline]] void Release(void* memory) { free(memory); }
[[gnu::noinline]] void* Allocate(std::size_t size) {
    return Fails() ? nullptr : malloc(size == 0 ? 1 : size);
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new(std::size_t size) {
    void* memory = Allocate(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}
void operator delete(void* memory) noexcept { Release(memory); }
void operator delete(void* memory, std::size_t) noexcept { Release(memory); }

namespace DeviceSpecificModule {
namespace {

const std::string jobTicket =
    Settings(
        R"({"features":{"Hold":"On","HoldKey":"k","OutPSize":"UsePaperSize","PerPageSetting":"On","Layout":"x",)"
        R"("PerPagePageDetails":"[{\"PageNumber\":\"1-3\",\"TabPaper\":\"DoNotUse\"}]","CopySecurity":"On",)"
        R"("CopySecurityOption":"PasswordCopy","PWDCopyKey":"secret","ImageShift":"On"},"paraminits":{"N":1}})") +
    Feature("psk:DocumentCollate", "psk:Collated") + Parameter("psk:JobCopiesAllDocuments", "3") +
    Feature("psk:PageMediaSize", "psk:ISOA4") + Feature("psk:PageOutputQuality", "psk:Draft") +
    Feature("psk:PageMediaType", "psk:Plain") + Parameter("ns0000:PageDevmodeSnapshot", "x");

struct FaultRun {
    TestHost Host{{{u"EncryptionID", Wide("[1,2]")}, {u"Series", Wide("S")}}};
    PTConverter Before;

    // Whether the call ran with the failure of its allocation number `allocation`.
    bool Run(std::int32_t level, long allocation) {
        Host.Run(JobLevel, MakeTicket(jobTicket));
        Before = Host.Snapshot;
        const TicketDocument ticket = MakeTicket(jobTicket);
        failed = false;
        bool threw = false;
        untilFailure = allocation;
        try {
            Host.Run(level, ticket);
        } catch (const std::bad_alloc&) {
            threw = true;
        } catch (const Platform::ResultError& error) {
            threw = true;
            EXPECT_EQ(error.Code(), Platform::ResultOutOfMemory);
        }
        untilFailure = -1;
        if (threw) ExpectSnapshotUntouched();
        EXPECT_EQ(ticket->xml().View().substr(0, 5), u"<?xml");
        return failed;
    }

    void ExpectSnapshotUntouched() const {
        const PTConverter& now = Host.Snapshot;
        EXPECT_EQ(now.DataText, Before.DataText);
        EXPECT_EQ(now.PjlText, Before.PjlText);
        EXPECT_EQ(now.PageCount, Before.PageCount);
        EXPECT_EQ(now.CustomProperties, Before.CustomProperties);
        EXPECT_EQ(now.CommandMap, Before.CommandMap);
        EXPECT_EQ(now.Ticket, Before.Ticket);
        EXPECT_EQ(now.Pipeline, Before.Pipeline);
    }
};

TEST(Faults, LeaveTheSnapshotUntouchedWhateverAllocationFails) {
    for (std::int32_t level : {JobLevel, DocumentLevel, PageLevel}) {
        long allocation = 0;
        while (FaultRun().Run(level, allocation)) ++allocation;
        EXPECT_GT(allocation, 20) << "level " << level;  // else the failures didn't reach the call
        EXPECT_FALSE(HasFailure()) << "level " << level;
    }
}

// Where a text is made, lack of memory is one error, and results are then as they were.
TEST(Faults, OfTextsAreResultErrors) {
    const std::string letters(100, 'x'), others = letters + "\xC3\xA9";
    const WideText wide = Wide(letters), otherWide = Wide(others);
    std::string bytes;
    WideText text;
    PTConverter converter;
    TestHost host{{{u"EncryptionID", Wide("[1,2]")}}};
    converter.Pipeline = host.Bag;
    using Platform::CodePage;
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"to wide", [&] { ConvertToWide(CodePage::Utf8, letters, text); }},
        {"others to wide", [&] { ConvertToWide(CodePage::Utf8, others, text); }},
        {"from wide", [&] { ConvertFromWide(CodePage::Utf8, wide.View(), bytes); }},
        {"others from wide", [&] { ConvertFromWide(CodePage::Utf8, otherWide.View(), bytes); }},
        {"secret", [&] { text = ProtectJobSecret(converter, otherWide); }},
    };
    for (const auto& [name, make] : cases) {
        for (long allocation = 0; failed || allocation == 0; ++allocation) {
            text = WideText(u"old");
            bytes = "old";
            std::uint32_t code = 0;
            failed = false;
            untilFailure = allocation;
            try {
                make();
            } catch (const Platform::ResultError& error) {
                code = error.Code();
            }
            untilFailure = -1;
            EXPECT_EQ(code, failed ? Platform::ResultOutOfMemory : 0) << name << allocation;
            EXPECT_TRUE(!failed || (text == u"old" && bytes == "old")) << name << allocation;
            EXPECT_TRUE(failed || allocation > 0) << name;  // else nothing was tried
        }
    }
}

}  // namespace
}  // namespace DeviceSpecificModule
