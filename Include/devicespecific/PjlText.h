#pragma once

#include <string>
#include <string_view>

#include "devicespecific/platform/ResultError.h"
#include "devicespecific/platform/WideText.h"

/// @file
/// Texts of people on their way into the job header, which takes them as they are. In a header a line ends
/// where the command ends, so a name that holds a line end begins a command of its own; a double quote ends
/// the quoted text that a name stands in; and "%s" in a name is filled with the next name.
///
/// What reaches it so, and where a host makes it harmless with CleanForPjl:
///
/// - The user's name, by the property "UserSecurityToken": a host hands in
///   Platform::GetTokenOfUserName(CleanForPjl(name)) in place of the user's own token.
/// - The document's name, by the property "PrinterName": where the job is queued and named. A host that has
///   no hand in this leaves the property away where IsCleanForPjl denies the name; then nobody asks.
/// - The setting "HoldKey": where the ticket's settings are written. A key that isn't clean is better
///   refused: what a person types at the device must be the same.
/// - This computer's name, by the system: it is the administrator's.
///
/// All other settings that may fill a place in a command have, as built in, no command that sends them. Where
/// a host changes the option tables, the width and the height of a custom size are texts of this kind, too.
/// The data lines hold the job's copies, the width and the height as ticket and settings have them: a host
/// that doesn't trust these makes sure that they are numbers.

namespace DeviceSpecificModule {

/// What CleanForPjl puts in the place of a unit, `before` being the unit ahead of it, 0 at the text's
/// beginning.
constexpr char16_t CleanUnitForPjl(char16_t unit, char16_t before) noexcept {
    const bool isControl = unit < u' ' || (unit >= u'\x7F' && unit <= u'\x9F');
    if (isControl) return u' ';
    if (unit == u'"') return u'\'';
    return unit == u's' && before == u'%' ? u'S' : unit;
}

/// Whether CleanForPjl leaves a text as it is.
constexpr bool IsCleanForPjl(std::u16string_view text) noexcept {
    char16_t before = 0;
    for (const char16_t unit : text) {
        if (CleanUnitForPjl(unit, before) != unit) return false;
        before = unit;
    }
    return true;
}

/// A text as long as this one in which nothing can end a line of the header or a text in quotes, and nothing
/// is taken for a place to fill: control characters become blanks, the double quote an apostrophe, "%s" "%S".
///
/// That holds for bytes in UTF-8, which the header says it is in, and in code pages of one byte. Control
/// characters are those up to U+001F and from U+007F to U+009F, as such code pages send the latter as single
/// bytes. What else ends a line on a display, as U+2028, is no such byte in any of them and stays; so do
/// halves of surrogate pairs, which Platform::ConvertFromWide makes U+FFFD. Never null. Throws
/// Platform::ResultError without memory.
inline Platform::WideText CleanForPjl(std::u16string_view text) {
    return Platform::WithOneMemoryError([text] {
        std::u16string clean(text);
        for (std::size_t at = 0; at < text.size(); ++at)
            clean[at] = CleanUnitForPjl(text[at], at == 0 ? u'\0' : text[at - 1]);
        return Platform::WideText(clean);
    });
}

}  // namespace DeviceSpecificModule
