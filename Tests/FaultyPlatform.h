#pragma once

#include <memory>
#include <string>

#include "devicespecific/platform/PropertyBags.h"
#include "devicespecific/platform/TicketDocument.h"

// A platform of which one call fails: that of a given number among all calls of property bags, document,
// nodes, print queue, identities and clock.

namespace DeviceSpecificModule {

enum class PlatformFailure {
    Nothing,        // gives what the platform gives for nothing there: false, null, empty; and does nothing
    FalseDespite,   // does all, outputs written, and says false; as Nothing where the result says nothing
    ResultError,    // throws ResultError, as a document without memory does
    StandardError,  // throws std::runtime_error
};

inline constexpr std::uint32_t InjectedResult = 0x80004004;
inline constexpr char InjectedReason[] = "the platform's own error";

// While one lives, the calling thread's calls of queue, identities and clock count for it, and those of the
// objects that it made.
class PlatformFault {
public:
    // The call of this number fails, from 0 on; a negative number: none.
    PlatformFault(PlatformFailure failure, long number);
    ~PlatformFault();
    PlatformFault(const PlatformFault&) = delete;
    PlatformFault& operator=(const PlatformFault&) = delete;

    Platform::PipelineBag Wrap(Platform::PipelineBag bag);
    // A document that has cheaper ways than the general forms uses them, or not.
    Platform::TicketDocument Wrap(Platform::TicketDocument document, bool usesGeneralForms);

    // The call that failed, as "AddProperty PJL"; empty when it didn't come to it.
    const std::string& Failed() const { return failed_; }

    // Asked at the beginning of each call. Whether it has to fail; throws where it has to throw.
    bool Comes(std::string_view call, std::u16string_view name = u"");
    bool IsDespite() const { return failure_ == PlatformFailure::FalseDespite; }

private:
    PlatformFailure failure_;
    long left_;
    std::string failed_;
};

}  // namespace DeviceSpecificModule
