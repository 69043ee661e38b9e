#pragma once

#include <string_view>

#include "tables/TableChecks.h"

// The media types that the device knows.

namespace DeviceSpecificModule {

// How much of a medium the fragment and the PostScript text say.
enum class MediaForm {
    Nothing,      // both are empty
    Zero,         // the fragment is "0", the PostScript text empty
    Described,    // all properties of the medium
    UserDefined,  // the number under which the device keeps a medium of the user's
};

struct MediaDescription {
    std::u16string_view OptionPrefix = {};  // in the fragment; on pre-printed paper it is always "xr"
    std::u16string_view Option = {};        // for a user's medium the PostScript type too
    std::u16string_view Type = {};          // PostScript names
    std::u16string_view Color = {};
    std::u16string_view Weight = {};
    std::u16string_view Material = u"Paper";  // properties in the fragment
    std::u16string_view PrePrinted = u"None";
    std::u16string_view TypeKey = u"XRMediaType";  // PostScript key that goes with Type
};

struct MediaTypeRow {
    std::u16string_view Keyword;
    std::u16string_view PreprintedKeyword;  // second row: the medium on pre-printed paper; empty: none
    std::u16string_view DeviceName;         // in both rows
    std::u16string_view Data;               // value of the first row's data line; empty: no line
    MediaForm Form = MediaForm::Nothing;
    MediaDescription Description = {};
};

// A line for the row, and one for what describes the medium.
// clang-format off
inline constexpr MediaTypeRow MediaTypeRows[] = {
    {u"psk:Plain", u"ns0000:Plain_2nd", u"PAPER,NORMAL,NONE,OFF", u"dThin",
     MediaForm::Described, {u"psk", u"Plain", u"Plain", u"None", u"Normal"}},
    {u"ns0000:PlainPlus", u"ns0000:PlainPlus_2nd", u"PAPERPLUS,NORMAL,NONE,OFF", u""},
    {u"ns0000:Type4PlainThick", u"", u"", u"dPlain"},
    {u"ns0000:Special", u"", u"SPECIAL,NORMAL,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"Special", u"Special", u"None", u"Normal", u"None"}},
    {u"ns0000:Envelope", u"", u"ENVELOPE,NORMAL,NONE,OFF", u"dEnvelopes",
     MediaForm::Described, {u"xr", u"Envelope", u"Envelope", u"None", u"Normal"}},
    {u"ns0000:EnvelopeThick", u"", u"", u"dEnvthick"},
    {u"ns0000:EnvelopeThin", u"", u"", u"dEnvthin"},
    {u"ns0000:Letterhead", u"", u"LETTERHEAD,NORMAL,NONE,OFF", u"dLetterhead",
     MediaForm::Described, {u"xr", u"Letterhead", u"Letterhead", u"None", u"Normal", u"Paper",
                            u"Letterhead"}},
    {u"ns0000:SingleSidedOnly", u"", u"SINGLESIDEDONLY,NORMAL,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"SingleSidedOnly", u"SingleSidedOnly", u"None", u"Normal", u"None",
                            u"None", u"MediaType"}},
    {u"ns0000:Thick1", u"ns0000:Thick1_2nd", u"PAPER,THICK,NONE,OFF", u"dThick",
     MediaForm::Described, {u"xr", u"Thick1", u"Plain", u"None", u"Thick"}},
    {u"ns0000:Thick1Plus", u"ns0000:Thick1Plus_2nd", u"PAPER,THICKPLUS,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"Thick1Plus", u"Plain", u"None", u"Thickplus"}},
    {u"ns0000:Thick2", u"ns0000:Thick2_2nd", u"PAPER,THICK2,NONE,OFF", u"dThick2",
     MediaForm::Described, {u"xr", u"Thick2", u"Plain", u"None", u"Thick2"}},
    {u"ns0000:Thick3", u"ns0000:Thick3_2nd", u"PAPER,THICK3,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"Thick3", u"Plain", u"None", u"Thick3"}},
    {u"ns0000:Thick4", u"ns0000:Thick4_2nd", u"PAPER,THICK4,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"Thick4", u"Plain", u"None", u"Thick4"}},
    {u"ns0000:Thin1", u"ns0000:Thin1_2nd", u"PAPER,THIN,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"Thin1", u"Plain", u"None", u"Thin"}},
    {u"ns0000:Color", u"", u"PAPER,NORMAL,OTHER,OFF", u"dColor",
     MediaForm::Described, {u"xr", u"Color", u"Plain", u"Other", u"Normal"}},
    {u"ns0000:Transparency", u"", u"TRANSPARENCY,NORMAL,NONE,OFF", u"",
     MediaForm::Described, {u"psk", u"Transparency", u"Transparency", u"None", u"Normal", u"Transparency"}},
    {u"ns0000:Tab", u"", u"TAB,NORMAL,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"Tab", u"Tab", u"None", u"Normal"}},
    {u"ns0000:Recycled", u"ns0000:Recycled_2nd", u"PAPER,NORMAL,NONE,OFF", u"dRecycled",
     MediaForm::UserDefined, {u"xr", u"UserCustomType20"}},
    {u"ns0000:Gloss", u"", u"", u""},
    {u"ns0000:HeavyGloss", u"", u"", u""},
    {u"ns0000:Bond", u"", u"", u"dBond"},
    {u"ns0000:RoughEnvelope", u"", u"", u""},
    {u"ns0000:Label", u"", u"", u"dLabel", MediaForm::Zero},
    {u"ns0000:RoughCotton", u"", u"", u""},
    {u"ns0000:Postcard", u"", u"", u"dPostcard", MediaForm::Zero},
    {u"ns0000:Gloss1", u"", u"", u""},
    {u"ns0000:GlossPlus", u"", u"", u""},
    {u"ns0000:Gloss2", u"", u"", u""},
    {u"ns0000:Preprinted", u"", u"", u""},
    {u"ns0000:User1_Plain", u"ns0000:User1_Plain_2nd", u"CUSTOM,NORMAL,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"CustomType1", u"CustomType", u"None", u"Normal"}},
    {u"ns0000:User2_Plain", u"ns0000:User2_Plain_2nd", u"CUSTOM2,NORMAL,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"CustomType2", u"CustomType2", u"None", u"Normal"}},
    {u"ns0000:User2_PlainPlus", u"ns0000:User2_PlainPlus_2nd", u"CUSTOM2,NORMAL,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"CustomType2", u"CustomType2", u"None", u"Normal"}},
    {u"ns0000:User3_Thick1", u"ns0000:User3_Thick1_2nd", u"CUSTOM3,THICK,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"CustomType3", u"CustomType3", u"None", u"Thick"}},
    {u"ns0000:User4_Thick1Plus", u"ns0000:User4_Thick1Plus_2nd", u"CUSTOM4,THICKPLUS,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"CustomType4", u"CustomType4", u"None", u"Thickplus"}},
    {u"ns0000:User5_Thick2", u"ns0000:User5_Thick2_2nd", u"CUSTOM5,THICK2,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"CustomType5", u"CustomType5", u"None", u"Thick2"}},
    {u"ns0000:User6_Thick3", u"ns0000:User6_Thick3_2nd", u"CUSTOM6,THICK3,NONE,OFF", u"",
     MediaForm::Described, {u"xr", u"CustomType6", u"CustomType6", u"None", u"Thick3"}},
    {u"ns0000:Undefined", u"", u"NOSET,NOSET,NOSET,OFF", u"",
     MediaForm::Described, {u"xr", u"Undefined", u"NoSet", u"NoSet", u"NoSetl"}},
    {u"ns0000:CustomType1", u"", u"", u""},
    {u"ns0000:CustomType2", u"", u"", u""},
    {u"ns0000:CustomType3", u"", u"", u""},
    {u"ns0000:CustomType4", u"", u"", u""},
    {u"ns0000:CustomType5", u"", u"", u""},
    {u"ns0000:CustomType6", u"", u"", u""},
    {u"ns0000:CustomType01", u"ns0000:CustomType01_2nd", u"USERCUSTOM1,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType1"}},
    {u"ns0000:CustomType02", u"ns0000:CustomType02_2nd", u"USERCUSTOM2,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType2"}},
    {u"ns0000:CustomType03", u"ns0000:CustomType03_2nd", u"USERCUSTOM3,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType3"}},
    {u"ns0000:CustomType04", u"ns0000:CustomType04_2nd", u"USERCUSTOM4,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType4"}},
    {u"ns0000:CustomType05", u"ns0000:CustomType05_2nd", u"USERCUSTOM5,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType5"}},
    {u"ns0000:CustomType06", u"ns0000:CustomType06_2nd", u"USERCUSTOM6,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType6"}},
    {u"ns0000:CustomType07", u"ns0000:CustomType07_2nd", u"USERCUSTOM7,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType7"}},
    {u"ns0000:CustomType08", u"ns0000:CustomType08_2nd", u"USERCUSTOM8,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType8"}},
    {u"ns0000:CustomType09", u"ns0000:CustomType09_2nd", u"USERCUSTOM9,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType9"}},
    {u"ns0000:CustomType10", u"ns0000:CustomType10_2nd", u"USERCUSTOM10,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType10"}},
    {u"ns0000:CustomType11", u"ns0000:CustomType11_2nd", u"USERCUSTOM11,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType11"}},
    {u"ns0000:CustomType12", u"ns0000:CustomType12_2nd", u"USERCUSTOM12,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType12"}},
    {u"ns0000:CustomType13", u"ns0000:CustomType13_2nd", u"USERCUSTOM13,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType13"}},
    {u"ns0000:CustomType14", u"ns0000:CustomType14_2nd", u"USERCUSTOM14,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType14"}},
    {u"ns0000:CustomType15", u"ns0000:CustomType15_2nd", u"USERCUSTOM15,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType15"}},
    {u"ns0000:CustomType16", u"ns0000:CustomType16_2nd", u"USERCUSTOM16,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType16"}},
    {u"ns0000:CustomType17", u"ns0000:CustomType17_2nd", u"USERCUSTOM17,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType17"}},
    {u"ns0000:CustomType18", u"ns0000:CustomType18_2nd", u"USERCUSTOM18,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType18"}},
    {u"ns0000:CustomType19", u"ns0000:CustomType19_2nd", u"USERCUSTOM19,NORMAL,NONE,OFF", u"",
     MediaForm::UserDefined, {u"xr", u"UserCustomType19"}},
};
// clang-format on

static_assert(HasUniqueKeywords(MediaTypeRows));

}  // namespace DeviceSpecificModule
