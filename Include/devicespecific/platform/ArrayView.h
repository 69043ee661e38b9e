#pragma once

#include <cstddef>
#include <iterator>
#include <type_traits>
#include <utility>

/// @file
/// Arrays of any kind as arguments.

namespace DeviceSpecificModule::Platform {

/// Some objects that stand one behind the other in memory and belong to somebody else: an array, or a
/// vector's or any container's that has data() and size(). It is valid while they stay where they are, so a
/// function that takes one must not keep it. Type is const where they must not be changed.
template <typename Type>
class ArrayView {
    template <typename Container>
    using ItemOf = std::remove_pointer_t<decltype(std::data(std::declval<Container&>()))>;

public:
    constexpr ArrayView() noexcept = default;  ///< of nothing
    /// Of `count` objects from `first` on.
    constexpr ArrayView(Type* first, std::size_t count) noexcept : first_(first), count_(count) {}
    /// Of all that an array or a container holds. No copy is made.
    template <typename Container,
              typename = std::enable_if_t<std::is_convertible_v<ItemOf<Container> (*)[], Type (*)[]>>>
    constexpr ArrayView(Container&& container) noexcept
        : first_(std::data(container)), count_(std::size(container)) {}

    /// As those of containers, so that it may stand in loops and algorithms.
    /// @{
    constexpr Type* data() const noexcept { return first_; }
    constexpr std::size_t size() const noexcept { return count_; }
    constexpr bool empty() const noexcept { return count_ == 0; }
    constexpr Type* begin() const noexcept { return first_; }
    constexpr Type* end() const noexcept { return first_ + count_; }
    constexpr Type& operator[](std::size_t at) const noexcept { return first_[at]; }
    /// @}

private:
    Type* first_ = nullptr;
    std::size_t count_ = 0;
};

}  // namespace DeviceSpecificModule::Platform
