#include "Platform/KeptAnswers.h"

#include <atomic>
#include <mutex>

namespace DeviceSpecificModule::Platform {
namespace {

constinit std::mutex guard;
constinit std::uint64_t living = 0, times = 0;
constinit std::atomic<std::uint64_t> current = 0;

}  // namespace

KeptAnswers::KeptAnswers() {
    const std::lock_guard lock(guard);
    if (living++ == 0) current = ++times;
}

KeptAnswers::~KeptAnswers() {
    const std::lock_guard lock(guard);
    if (--living == 0) current = 0;
}

std::uint64_t KeptAnswers::CurrentTime() { return current; }

}  // namespace DeviceSpecificModule::Platform
