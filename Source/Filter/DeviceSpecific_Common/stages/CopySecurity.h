#pragma once

#include <string_view>

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// The formats of the copy security commands, in the order in which they are sent. What fills their
// placeholders:
struct CopySecurityFormats {
    std::u16string_view String;    // the number of the string; left as it is for an unknown string
    std::u16string_view Number;    // FIXED or NUMBER, the first distribution number
    std::u16string_view Fields;    // the eight fields, as FIXED,DATE,OFF,OFF,OFF,OFF,OFF,OFF
    std::u16string_view DateTime;  // the date's form, the time's form, or OFF for either
    std::u16string_view Style;     // size, effect, placement, colour, density, contrast, angle
    std::u16string_view Password;  // the protected password
};

// Appends the copy security commands to the converter's PjlText, if its settings have copy security on:
// string and number where they are on, fields, date and time, and style always, the password for the option
// "PasswordCopy". A value that has no word fills nothing, so that the next value of that format takes its
// place. Throws what ProtectJobSecret throws, with the commands ahead of the password appended.
void AppendCopySecurity(PTConverter& converter, const CopySecurityFormats& formats);

}  // namespace DeviceSpecificModule
