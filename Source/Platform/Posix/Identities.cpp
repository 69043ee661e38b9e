#include "Platform/Identities.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include "Platform/CodePages.h"

namespace Platform {
namespace {

WideText TextOfName(const char* name) {
    WideText text{u""};
    ConvertToWide(CodePage::System, name, text);
    return text;
}

}  // namespace

WideText GetUserName(TokenHandle token) {
    std::vector<char> room(1024);
    passwd entry{};
    passwd* found = nullptr;
    while (getpwuid_r(token.UserId, &entry, room.data(), room.size(), &found) == ERANGE)
        room.resize(2 * room.size());
    return found == nullptr ? WideText(u"") : TextOfName(found->pw_name);
}

WideText GetComputerName() {
    char name[257] = {};
    return gethostname(name, sizeof name - 1) == 0 ? TextOfName(name) : WideText(u"");
}

}  // namespace Platform
