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

// The device's words for what is filled in.
inline constexpr KeywordCommand CopyProtectDateWords[] = {{u"Date1", u"Date1"},
                                                          {u"Date4", u"Date4"},
                                                          {u"Date2", u"Date2"},
                                                          {u"Date5", u"Date5"},
                                                          {u"Date3", u"Date3"}};
inline constexpr KeywordCommand CopyProtectTimeWords[] = {{u"Time1", u"Time1"}, {u"Time2", u"Time2"}};
inline constexpr KeywordCommand CopyProtectTextSizeWords[] = {
    {u"Small", u"SMALL"}, {u"Normal", u"NORMAL"}, {u"Large", u"LARGE"}};
inline constexpr KeywordCommand CopyProtectEffectWords[] = {{u"Effect1", u"EFFECT1"},
                                                            {u"Effect2", u"EFFECT2"}};
inline constexpr KeywordCommand CopyProtectPlacementWords[] = {{u"Composition1", u"COMPOSITION1"},
                                                               {u"Composition2", u"COMPOSITION2"}};
inline constexpr KeywordCommand CopyProtectColorWords[] = {
    {u"Magenta", u"MAGENTA"}, {u"Cyan", u"CYAN"}, {u"Black", u"BLACK"}};
inline constexpr KeywordCommand CopyProtectDensityWords[] = {
    {u"-1", u"DENSITYL1"}, {u"0", u"DENSITYN"}, {u"1", u"DENSITYD1"}};
inline constexpr KeywordCommand CopyProtectContrastWords[] = {{u"-2", u"CONTRASTM2"},
                                                              {u"-1", u"CONTRASTM1"},
                                                              {u"0", u"CONTRASTN"},
                                                              {u"1", u"CONTRASTP1"},
                                                              {u"2", u"CONTRASTP2"}};
inline constexpr KeywordCommand CopyProtectAngleWords[] = {
    {u"P45", u"45"}, {u"None", u"0"}, {u"M45", u"315"}};

// The strings that the device knows and those that its administrator sets share their numbers; the field
// tells them apart.
inline constexpr std::u16string_view CopyProtectKnownString = u"FIXED";
inline constexpr std::u16string_view CopyProtectOwnString = u"ARBITRARY";

struct CopyProtectString {
    std::u16string_view Keyword;
    std::u16string_view Number;
    std::u16string_view Field;
};

inline constexpr CopyProtectString CopyProtectStrings[] = {
    {u"InvalidCopy", u"1", CopyProtectKnownString},   {u"Copy", u"2", CopyProtectKnownString},
    {u"Invalid", u"3", CopyProtectKnownString},       {u"InternalUse", u"4", CopyProtectKnownString},
    {u"Unauthorized", u"5", CopyProtectKnownString},  {u"Draft", u"6", CopyProtectKnownString},
    {u"Confidential", u"7", CopyProtectKnownString},  {u"IllegalCopy", u"8", CopyProtectKnownString},
    {u"MachineSetting1", u"1", CopyProtectOwnString}, {u"MachineSetting2", u"2", CopyProtectOwnString},
    {u"MachineSetting3", u"3", CopyProtectOwnString}, {u"MachineSetting4", u"4", CopyProtectOwnString},
    {u"MachineSetting5", u"5", CopyProtectOwnString}, {u"MachineSetting6", u"6", CopyProtectOwnString},
    {u"MachineSetting7", u"7", CopyProtectOwnString}, {u"MachineSetting8", u"8", CopyProtectOwnString},
};

static_assert(HasUniqueKeywords(CopyProtectStrings) && std::size(CopyProtectStrings) == 16);

}  // namespace DeviceSpecificModule
