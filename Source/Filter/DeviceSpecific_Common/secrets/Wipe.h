#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

#include "Platform/WipeMemory.h"

namespace DeviceSpecificModule {

// Owners of bytes that must not outlive their use: keys, seeds, passphrases, digests of them. They overwrite
// their bytes with zeros by a call that no optimiser removes, on every way out of a scope, thrown errors
// included.

// A value of fixed size, all zero at first. Not copied or moved, because each copy is one more to wipe; lend
// `Value` out by reference.
template <typename T>
struct Wiped {
    static_assert(std::is_trivially_copyable_v<T>, "memory that T points to would not be wiped");

    T Value{};

    Wiped() = default;
    Wiped(const Wiped&) = delete;
    Wiped& operator=(const Wiped&) = delete;
    ~Wiped() { Platform::WipeMemory(&Value, sizeof Value); }
};

// An allocator that wipes each block of memory as it gives it back. A container that grows gives its old
// block back, so no earlier state stays behind either. It does not suit std::basic_string, which keeps short
// texts inside itself and not in a block.
template <typename T>
struct WipingAllocator {
    using value_type = T;

    WipingAllocator() = default;
    template <typename U>
    WipingAllocator(const WipingAllocator<U>&) noexcept {}

    // NOLINTBEGIN(readability-identifier-naming): the names are the standard library's.
    T* allocate(std::size_t count) { return std::allocator<T>().allocate(count); }

    void deallocate(T* items, std::size_t count) noexcept {
        Platform::WipeMemory(items, count * sizeof(T));
        std::allocator<T>().deallocate(items, count);
    }
    // NOLINTEND(readability-identifier-naming)

    friend bool operator==(const WipingAllocator&, const WipingAllocator&) = default;
};

// Bytes whose number is known at run time only. Bytes that a resize cuts off are wiped when their block goes,
// not before.
using WipedBytes = std::vector<std::uint8_t, WipingAllocator<std::uint8_t>>;

}  // namespace DeviceSpecificModule
