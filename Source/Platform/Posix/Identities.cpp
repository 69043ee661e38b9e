#include "devicespecific/platform/Identities.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <mutex>
#include <optional>
#include <vector>

#include "AnswerBook.h"
#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/ResultError.h"

namespace DeviceSpecificModule::Platform {
namespace {

WideText TextOfName(const char* name) {
    WideText text{u""};
    ConvertToWide(CodePage::System, name, text);
    return text;
}

// Names that have a token. Nothing is taken out, so that a name's place is its own.
class GivenNames {
public:
    std::size_t PlaceOf(const WideText& name) {
        const std::lock_guard lock(mutex_);
        const auto found = std::find(names_.begin(), names_.end(), name);
        const auto place = static_cast<std::size_t>(found - names_.begin());
        if (found == names_.end()) names_.push_back(name);
        count_ = names_.size();
        return place;
    }

    // Without a lock where there is none of that place, as for every number.
    std::optional<WideText> Find(std::size_t place) {
        if (place >= count_) return std::nullopt;
        const std::lock_guard lock(mutex_);
        return names_[place];
    }

private:
    std::mutex mutex_;
    std::vector<WideText> names_;
    std::atomic<std::size_t> count_ = 0;
};

GivenNames& AllGivenNames() {
    static GivenNames names;
    return names;
}

// Tokens of names count down from the last of all, where no user's number is.
std::optional<WideText> FindGivenName(TokenHandle token) {
    return AllGivenNames().Find(~static_cast<std::uintptr_t>(token));
}

WideText AskForName(TokenHandle token) {
    std::vector<char> room(1024);
    passwd entry{};
    passwd* found = nullptr;
    while (getpwuid_r(GetIdOfUser(token), &entry, room.data(), room.size(), &found) == ERANGE)
        room.resize(2 * room.size());
    return found == nullptr ? WideText(u"") : TextOfName(found->pw_name);
}

}  // namespace

TokenHandle GetTokenOfUserName(const WideText& name) {
    return WithOneMemoryError([&name] { return TokenHandle{~AllGivenNames().PlaceOf(name)}; });
}

bool IsOfUserName(TokenHandle token) { return FindGivenName(token).has_value(); }

TokenHandle GetTokenOfUser(std::uint32_t userId) { return TokenHandle{userId}; }

std::uint32_t GetIdOfUser(TokenHandle token) { return static_cast<std::uint32_t>(token); }

WideText GetNameOfUser(TokenHandle token) {
    static AnswerBook<TokenHandle, WideText> answers;
    if (std::optional<WideText> given = FindGivenName(token)) return *given;
    return WithOneMemoryError([token] { return answers.Get(token, [token] { return AskForName(token); }); });
}

WideText GetNameOfComputer() {
    char name[257] = {};
    return gethostname(name, sizeof name - 1) == 0 ? TextOfName(name) : WideText(u"");
}

}  // namespace DeviceSpecificModule::Platform
