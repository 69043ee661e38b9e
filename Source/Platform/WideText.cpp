#include "devicespecific/platform/WideText.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>

#include "devicespecific/platform/ResultError.h"

namespace DeviceSpecificModule::Platform {

// The units stand behind the header in the same allocation. `used` is how many of them belong to the longest
// text in the buffer: only the text that ends there may grow into the room behind, and only one of several
// copies.
struct WideText::Buffer {
    std::atomic<std::size_t> count{1};
    std::atomic<std::size_t> used{0};
    std::size_t capacity = 0;

    char16_t* Units() noexcept { return reinterpret_cast<char16_t*>(this + 1); }
    static Buffer Empty;  // of every text without units; never counted, never freed

    void Hold() noexcept {
        if (this != &Empty) count.fetch_add(1, std::memory_order_relaxed);
    }
    void Release() noexcept {
        if (this == &Empty || count.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
        this->~Buffer();
        ::operator delete(this);
    }
};

constinit WideText::Buffer WideText::Buffer::Empty;

namespace {
constexpr std::size_t smallestCapacity = 16;
constexpr std::size_t largestCapacity = SIZE_MAX / 8;  // so that doubling and counting bytes can't overflow
}  // namespace

WideText::Buffer* WideText::NewBuffer(std::size_t capacity) noexcept {
    if (capacity > largestCapacity) return nullptr;
    void* memory = ::operator new(sizeof(Buffer) + capacity * sizeof(char16_t), std::nothrow);
    if (memory == nullptr) return nullptr;
    auto* buffer = new (memory) Buffer;
    buffer->capacity = capacity;
    return buffer;
}

WideText::WideText(std::u16string_view units) : WideText(Join({units})) {}

WideText WideText::Join(std::initializer_list<std::u16string_view> pieces) {
    std::size_t length = 0;
    for (const std::u16string_view piece : pieces) length += piece.size();
    WideText joined;
    joined.buffer_ = length == 0 ? &Buffer::Empty : NewBuffer(length);
    if (joined.buffer_ == nullptr) ThrowResult(ResultOutOfMemory);
    for (const std::u16string_view piece : pieces)
        if (!piece.empty()) joined.GrowInPlace(piece);
    return joined;
}

WideText::WideText(const WideText& other) noexcept
    : buffer_(other.buffer_), length_(other.length_), lacksUnits_(other.lacksUnits_) {
    if (buffer_ != nullptr) buffer_->Hold();
}

WideText::WideText(WideText&& other) noexcept
    : buffer_(std::exchange(other.buffer_, nullptr)),
      length_(std::exchange(other.length_, 0)),
      lacksUnits_(std::exchange(other.lacksUnits_, false)) {}

WideText& WideText::operator=(const WideText& other) noexcept {
    WideText copy(other);
    return *this = std::move(copy);
}

WideText& WideText::operator=(WideText&& other) noexcept {
    std::swap(buffer_, other.buffer_);
    std::swap(length_, other.length_);
    std::swap(lacksUnits_, other.lacksUnits_);
    return *this;
}

WideText::~WideText() {
    if (buffer_ != nullptr) buffer_->Release();
}

std::u16string_view WideText::View() const noexcept {
    return length_ == 0 ? std::u16string_view() : std::u16string_view(buffer_->Units(), length_);
}

bool WideText::GrowInPlace(std::u16string_view units) noexcept {
    if (buffer_ == nullptr || units.size() > buffer_->capacity - length_) return false;
    // A longer text that shared the buffer may be gone by now; its units are then free to be written over.
    if (buffer_->count.load(std::memory_order_acquire) == 1)
        buffer_->used.store(length_, std::memory_order_relaxed);
    std::size_t end = length_;
    if (!buffer_->used.compare_exchange_strong(end, length_ + units.size(), std::memory_order_acq_rel))
        return false;
    std::memcpy(buffer_->Units() + length_, units.data(), units.size() * sizeof(char16_t));
    length_ += units.size();
    return true;
}

bool WideText::Append(std::u16string_view units) noexcept {
    const bool appended = units.empty() || GrowInPlace(units) || GrowInNewBuffer(units);
    if (!appended) lacksUnits_ = true;
    return appended;
}

bool WideText::GrowInNewBuffer(std::u16string_view units) noexcept {
    if (units.size() > largestCapacity - length_) return false;
    const std::size_t length = length_ + units.size();
    Buffer* buffer = NewBuffer(std::max({length, 2 * length_, smallestCapacity}));
    if (buffer == nullptr) return false;
    if (length_ != 0) std::memcpy(buffer->Units(), buffer_->Units(), length_ * sizeof(char16_t));
    std::memcpy(buffer->Units() + length_, units.data(), units.size() * sizeof(char16_t));
    buffer->used.store(length, std::memory_order_relaxed);
    if (buffer_ != nullptr) buffer_->Release();
    buffer_ = buffer;
    length_ = length;
    return true;
}

}  // namespace DeviceSpecificModule::Platform
