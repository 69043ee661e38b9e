#include "CInterface/Boundary.h"
#include "devicespecific/PjlText.h"

using DeviceSpecificModule::CleanUnitForPjl;

// Control characters beyond ASCII are this byte and one that is their code. All other characters of several
// bytes stay as they are.
constexpr char leadOfControls = '\xC2';

extern "C" std::size_t DsmCleanForPjl(char* text, std::size_t length) {
    std::size_t written = 0;
    char16_t before = 0;
    for (std::size_t at = 0; at < length; ++at) {
        const bool hasLead = text[at] == leadOfControls && at + 1 < length;
        const auto unit = static_cast<char16_t>(static_cast<unsigned char>(text[at + (hasLead ? 1 : 0)]));
        const char16_t clean = CleanUnitForPjl(unit, before);
        const bool isControl = hasLead && unit >= 0x80 && clean != unit;
        const bool isAscii = !hasLead && unit < 0x80;
        text[written++] = isControl || isAscii ? static_cast<char>(clean) : text[at];
        if (isControl) ++at;
        before = isAscii ? unit : u'\0';
    }
    return written;
}
