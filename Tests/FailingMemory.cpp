#include "FailingMemory.h"

#include <dlfcn.h>
#include <execinfo.h>
#include <libxml/xmlmemory.h>
#include <stdlib.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <new>
#include <string_view>

namespace DeviceSpecificModule {
namespace {

constexpr long none = -1;
constexpr int allocatorCount = 2;
constexpr int mostFrames = 32;

// How many allocations may still succeed, by allocator.
constinit thread_local long left[allocatorCount] = {none, none};
constinit thread_local bool failed = false;
constinit thread_local int frameCount = 0;
constinit thread_local void* frames[mostFrames] = {};
constinit thread_local long live = 0;

bool Fails(Allocator allocator) {
    long& count = left[static_cast<int>(allocator)];
    if (count == none) return false;
    if (count-- > 0) return false;
    count = none;
    frameCount = backtrace(frames, mostFrames);
    failed = true;
    errno = ENOMEM;
    return true;
}

std::string LibraryOf(void* address) {
    Dl_info found;
    if (dladdr(address, &found) == 0) return "";
    const std::string_view path = found.dli_fname;
    return std::string(path.substr(path.rfind('/') + 1));
}

// Who called the system's and the language's libraries.
std::string FindCaller() {
    const std::string program = LibraryOf(reinterpret_cast<void*>(&LibraryOf));
    for (int frame = 0; frame < frameCount; ++frame) {
        const std::string library = LibraryOf(frames[frame]);
        const bool isPassedOver =
            std::ranges::any_of(std::array{"libc.so", "libstdc++.so", "libtsan.so"},
                                [&](const char* name) { return library.starts_with(name); });
        if (!isPassedOver && library != program) return library;
    }
    return "";
}

}  // namespace

AllocationFault::AllocationFault(Allocator allocator, long number) {
    backtrace(frames, 1);  // loads what it needs when it is first called
    failed = false;
    left[static_cast<int>(allocator)] = number;
}

AllocationFault::~AllocationFault() { End(); }

bool AllocationFault::End() {
    std::ranges::fill(left, none);
    if (failed && library_.empty()) library_ = FindCaller();
    return failed;
}

FaultsHeld::FaultsHeld() {
    std::ranges::copy(left, left_);
    std::ranges::fill(left, none);
}

FaultsHeld::~FaultsHeld() { std::ranges::copy(left_, left); }

long LiveBlocks() { return live; }

}  // namespace DeviceSpecificModule

using DeviceSpecificModule::Allocator;
using DeviceSpecificModule::Fails;
using DeviceSpecificModule::live;

#if !SANITIZED

#define EXPORTED extern "C" __attribute__((visibility("default")))

extern "C" void* __libc_malloc(size_t);
extern "C" void* __libc_calloc(size_t, size_t);
extern "C" void* __libc_realloc(void*, size_t);
extern "C" void __libc_free(void*);

namespace {
void* Counted(void* memory) {
    if (memory != nullptr) ++live;
    return memory;
}
void* TakeMemory(size_t size) { return Counted(__libc_malloc(size)); }
void GiveBack(void* memory) {
    if (memory != nullptr) --live;
    __libc_free(memory);
}
}  // namespace

EXPORTED void* malloc(size_t size) noexcept {
    return Fails(Allocator::Malloc) ? nullptr : Counted(__libc_malloc(size));
}
EXPORTED void* calloc(size_t count, size_t size) noexcept {
    return Fails(Allocator::Malloc) ? nullptr : Counted(__libc_calloc(count, size));
}
EXPORTED void* realloc(void* memory, size_t size) noexcept {
    if (memory != nullptr && size == 0) --live;
    if (size != 0 && Fails(Allocator::Malloc)) return nullptr;
    void* const moved = __libc_realloc(memory, size);
    return memory == nullptr ? Counted(moved) : moved;
}
EXPORTED void free(void* memory) noexcept { GiveBack(memory); }

#else

namespace {

// Not inlined, so that the compiler doesn't take operator new and free for a pair.
[[gnu::noinline]] void* TakeMemory(size_t size) { return malloc(size); }
[[gnu::noinline]] void GiveBack(void* memory) { free(memory); }

void* XmlMalloc(size_t size) { return Fails(Allocator::Malloc) ? nullptr : malloc(size); }
void* XmlRealloc(void* memory, size_t size) {
    return Fails(Allocator::Malloc) ? nullptr : realloc(memory, size);
}
char* XmlStrdup(const char* text) { return Fails(Allocator::Malloc) ? nullptr : strdup(text); }

// Before anybody uses the library.
[[maybe_unused]] const int hooked = xmlMemSetup(free, XmlMalloc, XmlRealloc, XmlStrdup);

}  // namespace

#endif

namespace {
void* NewMemory(size_t size) { return Fails(Allocator::New) ? nullptr : TakeMemory(size == 0 ? 1 : size); }
}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return NewMemory(size); }
void* operator new(std::size_t size) {
    void* const memory = NewMemory(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}
void operator delete(void* memory) noexcept { GiveBack(memory); }
void operator delete(void* memory, std::size_t) noexcept { GiveBack(memory); }
