#include "CInterface/Boundary.h"

#include <algorithm>
#include <limits>
#include <new>

#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/Identities.h"
#include "devicespecific/platform/ResultError.h"

namespace DeviceSpecificModule::CInterface {
namespace {

bool BeginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

template <typename Integer>
bool Fits(std::int64_t number) {
    return number >= std::numeric_limits<Integer>::min() && number <= std::numeric_limits<Integer>::max();
}

PropertyValue IntegerOf(const DsmValue& value) {
    if (!Fits<std::int32_t>(value.Number)) return {};
    return static_cast<std::int32_t>(value.Number);
}

PropertyValue UserOf(const DsmValue& value) {
    if (!Fits<std::uint32_t>(value.Number)) return {};
    return Platform::GetTokenOfUser(static_cast<std::uint32_t>(value.Number));
}

// Gives a value of its type; texts go into `Room`.
struct Describe {
    std::string& Room;

    DsmValue operator()(std::monostate) const { return {DSM_NULL, 0, nullptr, 0}; }
    DsmValue operator()(const WideText& text) const {
        if (text.IsNull()) return {DSM_NULL, 0, nullptr, 0};
        Room = Utf8Of(text.View());
        return {DSM_TEXT, 0, Room.c_str(), Room.size()};
    }
    DsmValue operator()(std::int32_t number) const { return {DSM_INTEGER, number, nullptr, 0}; }
    DsmValue operator()(Platform::TokenHandle token) const {
        return {DSM_USER, Platform::GetIdOfUser(token), nullptr, 0};
    }
    DsmValue operator()(Platform::BareReference reference) const {
        return {reference.Address == nullptr ? DSM_NULL : DSM_TABLES, 0, nullptr, 0};
    }
    DsmValue operator()(const std::shared_ptr<Platform::IPrinterPropertyBag>& bag) const {
        return {bag ? DSM_BAG : DSM_NULL, 0, nullptr, 0};
    }
};

}  // namespace

Refusal::Refusal(DsmStatus status, std::string_view text, std::uint32_t code) noexcept {
    Error.Status = status;
    Error.Code = code;
    std::size_t length = std::min(text.size(), sizeof Error.Text - 1);
    if (length < text.size())
        while (length > 0 && !BeginsCharacter(text[length])) --length;
    text.copy(Error.Text, length);
}

DsmStatus ReportCurrentError(DsmError* error) noexcept {
    const auto report = [error](const Refusal& refusal) {
        if (error != nullptr) *error = refusal.Error;
        return refusal.Error.Status;
    };
    try {
        throw;
    } catch (const Refusal& refusal) {
        return report(refusal);
    } catch (const Platform::ResultError& result) {
        const bool isMemory = result.Code() == Platform::ResultOutOfMemory;
        return report({isMemory ? DSM_NO_MEMORY : DSM_CONVERSION_FAILED, result.what(), result.Code()});
    } catch (const std::bad_alloc&) {
        return report({DSM_NO_MEMORY, "out of memory", Platform::ResultOutOfMemory});
    } catch (const std::exception& other) {
        return report({DSM_CONVERSION_FAILED, other.what()});
    } catch (...) {
        return report({DSM_CONVERSION_FAILED, "an exception of no known type"});
    }
}

void Require(const void* pointer, const char* name) {
    if (pointer == nullptr) throw Refusal(DSM_BAD_ARGUMENT, std::string(name) + " is null");
}

WideText TextOf(const char* bytes, std::size_t length) {
    if (length > 0) Require(bytes, "a text");
    const std::string_view given = length > 0 ? std::string_view(bytes, length) : std::string_view();
    WideText text;
    ConvertToWide(Platform::CodePage::Utf8, given, text);
    const std::string again = Utf8Of(text.View());
    if (again == given) return text;
    const auto at = std::mismatch(given.begin(), given.end(), again.begin(), again.end()).first;
    throw Refusal(DSM_BAD_ARGUMENT, "a text is not UTF-8 at byte " + std::to_string(at - given.begin()));
}

WideText NameOf(const char* name) {
    Require(name, "a name");
    return TextOf(name, std::string_view(name).size());
}

std::string Utf8Of(std::u16string_view units) {
    std::string bytes;
    ConvertFromWide(Platform::CodePage::Utf8, units, bytes);
    return bytes;
}

PropertyValue PropertyOf(const DsmValue& value) {
    if (value.Type == DSM_NULL) return WideText();
    if (value.Type == DSM_TEXT) return TextOf(value.Text, value.Length);
    if (value.Type == DSM_INTEGER) return IntegerOf(value);
    if (value.Type == DSM_USER) return UserOf(value);
    return {};
}

DsmValue ValueOf(const PropertyValue& property, std::string& room) {
    return std::visit(Describe{room}, property);
}

}  // namespace DeviceSpecificModule::CInterface
