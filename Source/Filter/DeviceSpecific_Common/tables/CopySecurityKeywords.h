#pragma once

#include "tables/KeywordCommand.h"
#include "tables/TableChecks.h"

// Copy security: the kinds of protection, and the formats that its stage fills.

namespace DeviceSpecificModule {

inline constexpr KeywordCommand CopySecurityCommandTable[] = {{u"Off", u""}, {u"On", u""}};

inline constexpr KeywordCommand CopySecurityOptionCommandTable[] = {
    {u"CopyProtect", u""}, {u"RepeatableStamp", u""}, {u"CopyGuard", u""}, {u"PasswordCopy", u""}};

inline constexpr KeywordCommand CopyProtectPatternCommandTable[] = {
    {u"Type1", u""}, {u"Type2", u""}, {u"Type3", u""}, {u"Type4", u""},
    {u"Type5", u""}, {u"Type6", u""}, {u"Type7", u""}, {u"Type8", u""}};

inline constexpr KeywordCommand CopySecurityFieldsCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand CopyProtectStringCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand CopyProtectDateTimeCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand CopyProtectNumberCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand CopyProtectStyleCommandTable[] = {{u"CMD", u""}};
inline constexpr KeywordCommand PasswordCopyCommandTable[] = {{u"CMD", u""}};

static_assert(AreOptionTables(2, CopySecurityCommandTable));
static_assert(AreOptionTables(4, CopySecurityOptionCommandTable));
static_assert(AreOptionTables(8, CopyProtectPatternCommandTable));
static_assert(AreFormatTables(CopySecurityFieldsCommandTable, CopyProtectStringCommandTable,
                              CopyProtectDateTimeCommandTable, CopyProtectNumberCommandTable,
                              CopyProtectStyleCommandTable, PasswordCopyCommandTable));

}  // namespace DeviceSpecificModule
