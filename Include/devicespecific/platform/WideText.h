#pragma once

#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "devicespecific/platform/Export.h"

/// @file
/// Texts as the platform has them.

namespace DeviceSpecificModule::Platform {

/// A counted UTF-16 text that may be null. A value: copies are independent of each other, though they share
/// one buffer, so that copying costs a count. Texts compare unit by unit, and a null text equals an empty
/// one.
///
/// An object of all zero bytes is a null text, so an array of records with texts may be made by clearing
/// memory. A text may hold any units, zero units included; nothing is terminated.
///
/// Different WideText objects may be used on different threads even when they share a buffer; one object may
/// not.
class DEVICESPECIFIC_API WideText {
public:
    constexpr WideText() noexcept = default;  ///< null
    /// A text of these units; not null, even when there are none. Throws ResultError (ResultOutOfMemory).
    explicit WideText(std::u16string_view units);
    /// These texts, one behind the other, in a buffer of just their length. Not null. Throws as above.
    static WideText Join(std::initializer_list<std::u16string_view> pieces);
    /// Copying costs a count, moving nothing. What is left in a text that was moved from is not said.
    /// @{
    WideText(const WideText& other) noexcept;
    WideText(WideText&& other) noexcept;
    WideText& operator=(const WideText& other) noexcept;
    WideText& operator=(WideText&& other) noexcept;
    /// @}
    ~WideText();

    /// What it is; a null text is empty as well.
    /// @{
    bool IsNull() const noexcept { return buffer_ == nullptr; }
    bool IsEmpty() const noexcept { return length_ == 0; }
    /// @}
    std::size_t Length() const noexcept { return length_; }  ///< in UTF-16 units
    /// The units, valid while this object is neither changed nor destroyed.
    std::u16string_view View() const noexcept;

    /// Adds units behind the text; they may be a view of this very text. A null text that gains units is no
    /// longer null. A text that ends where its buffer's used part ends grows in place, with doubling room, so
    /// a text put together from n pieces costs its length once, also while copies of earlier states are held
    /// elsewhere. Gives false, and leaves the text as it was but no longer whole, when there is no memory.
    bool Append(std::u16string_view units) noexcept;

    /// False once something could not be appended, for copies as well; so whoever uses a text that many have
    /// appended to can tell whether it is all there.
    bool IsWhole() const noexcept { return !lacksUnits_; }

    /// Unit by unit; null and empty are equal.
    /// @{
    friend bool operator==(const WideText& left, const WideText& right) noexcept {
        return left.View() == right.View();
    }
    friend bool operator==(const WideText& left, std::u16string_view right) noexcept {
        return left.View() == right;
    }
    /// @}

private:
    struct Buffer;
    static Buffer* NewBuffer(std::size_t capacity) noexcept;
    bool GrowInPlace(std::u16string_view units) noexcept;
    bool GrowInNewBuffer(std::u16string_view units) noexcept;

    Buffer* buffer_ = nullptr;
    std::size_t length_ = 0;
    bool lacksUnits_ = false;
};

}  // namespace DeviceSpecificModule::Platform
