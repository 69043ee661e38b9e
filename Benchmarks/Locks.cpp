#include "Locks.h"

#include <dlfcn.h>
#include <errno.h>
#include <pthread.h>

#include <atomic>
#include <chrono>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace {

thread_local Benchmarks::LockCounts counts;
std::atomic<bool> anyWait = false;

using Lock = int(pthread_mutex_t*);

Lock* LockOfLibrary() {
    static Lock* const lock = reinterpret_cast<Lock*>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    return lock;
}

}  // namespace

// This program's and so all its libraries' way to lock a mutex: a try first, which fails only on a taken one.
// It counts only because it shows outside this program.
extern "C" __attribute__((visibility("default"))) int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
    ++counts.Taken;
    const int result = pthread_mutex_trylock(mutex);
    if (result != EBUSY) return result;
    ++counts.Waits;
    anyWait = true;
    return LockOfLibrary()(mutex);
}

namespace Benchmarks {

LockCounts CountLocks() { return counts; }

void ExpectToSeeLockWaits() {
    anyWait = false;
    std::mutex mutex;
    std::unique_lock held(mutex);
    std::jthread waiting([&] { const std::lock_guard guard(mutex); });
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!anyWait && std::chrono::steady_clock::now() < end) std::this_thread::yield();
    held.unlock();
    if (!anyWait) throw std::runtime_error("waiting for a lock is not counted");
}

}  // namespace Benchmarks
