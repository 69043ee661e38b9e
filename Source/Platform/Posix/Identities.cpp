#include "Platform/Identities.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include "Platform/CodePages.h"
#include "Platform/ResultError.h"

namespace Platform {
namespace {

WideText TextOfName(const char* name) {
    WideText text{u""};
    ConvertToWide(CodePage::System, name, text);
    return text;
}

}  // namespace

TokenHandle GetTokenOfUser(std::uint32_t userId) { return TokenHandle{userId}; }

std::uint32_t GetIdOfUser(TokenHandle token) { return static_cast<std::uint32_t>(token); }

WideText GetNameOfUser(TokenHandle token) {
    return WithOneMemoryError([token] {
        std::vector<char> room(1024);
        passwd entry{};
        passwd* found = nullptr;
        while (getpwuid_r(GetIdOfUser(token), &entry, room.data(), room.size(), &found) == ERANGE)
            room.resize(2 * room.size());
        return found == nullptr ? WideText(u"") : TextOfName(found->pw_name);
    });
}

WideText GetNameOfComputer() {
    char name[257] = {};
    return gethostname(name, sizeof name - 1) == 0 ? TextOfName(name) : WideText(u"");
}

}  // namespace Platform
