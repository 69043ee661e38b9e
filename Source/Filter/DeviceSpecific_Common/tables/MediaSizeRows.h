#pragma once

#include <string_view>

#include "tables/TableChecks.h"

// The media sizes that the device knows.

namespace DeviceSpecificModule {

struct MediaSizeRow {
    std::u16string_view Keyword;  // without prefix
    std::u16string_view Prefix;   // in a ticket
    std::u16string_view PairedKeyword;
    std::u16string_view Width;     // micrometres
    std::u16string_view Height;    // micrometres
    std::u16string_view PageSize;  // width and height in points; empty: no PostScript text
    std::u16string_view Data;      // type and value of the data line; empty: no line
    bool IsWide = false;           // set up for the wide format, which prints to the edges
};

// "P9X12", "P7X8HALF", "P4QUATX5HALF" and "ISOSRA4" go with a size here, but have no row of their own.
// "ROC16K" has the published prefix here, where the other ROC sizes have the vendor's.
inline constexpr MediaSizeRow MediaSizeRows[] = {
    {u"ISOA3", u"psk", u"ISOA4", u"297000", u"420000", u"842 1191", u""},
    {u"ISOA4", u"psk", u"ISOA5", u"210000", u"297000", u"595 842", u"ubyte \"02\""},
    {u"ISOA5", u"psk", u"ISOA6", u"148000", u"210000", u"420 595", u"ubyte \"16\""},
    {u"ISOA6", u"psk", u"", u"105000", u"148000", u"297 420", u"ubyte \"17\""},
    {u"JISB4", u"psk", u"JISB5", u"257000", u"364000", u"729 1032", u""},
    {u"JISB5", u"psk", u"JISB6", u"182000", u"257000", u"516 729", u"ubyte \"11\""},
    {u"B5_ISO", u"ns0000", u"", u"176000", u"250000", u"499 709", u"ubyte \"13\""},
    {u"JISB6", u"psk", u"", u"128000", u"182000", u"363 516", u""},
    {u"P12X18", u"ns0000", u"P9X12", u"304800", u"457200", u"864 1296", u""},
    {u"NorthAmericaTabloid", u"psk", u"NorthAmericaLetter", u"279400", u"431800", u"792 1224", u""},
    {u"NorthAmericaLegal", u"psk", u"P7X8HALF", u"215900", u"355600", u"612 1008", u"ubyte \"01\""},
    {u"MEXICOLEGAL", u"psk", u"", u"215900", u"339700", u"", u"ubyte_array \"Mexican Legal\""},
    {u"INDIALEGAL", u"psk", u"", u"214800", u"344900", u"", u"ubyte_array \"India Legal\""},
    {u"NorthAmericaLetter", u"psk", u"NorthAmericaStatement", u"215900", u"279400", u"612 792",
     u"ubyte \"00\""},
    {u"NorthAmericaExecutive", u"psk", u"", u"184200", u"266700", u"522 756", u"ubyte \"03\""},
    {u"NorthAmericaStatement", u"psk", u"P4QUATX5HALF", u"139700", u"215900", u"396 612", u""},
    {u"ROC8K", u"ns0000", u"ROC16K", u"270000", u"390000", u"765 1106", u""},
    {u"ROC16K", u"psk", u"", u"195000", u"270000", u"553 765", u""},
    {u"ROC16K_184x260", u"ns0000", u"", u"184000", u"259900", u"", u"ubyte_array \"16K 184X260MM\""},
    {u"ROC16K_195x270", u"ns0000", u"", u"195000", u"270000", u"", u"ubyte_array \"16K 195X270MM\""},
    {u"ROC16K_197x273", u"ns0000", u"", u"196900", u"273000", u"", u"ubyte_array \"ROC16K\""},
    {u"JapanHagakiPostcard", u"psk", u"", u"100000", u"148000", u"284 419", u"ubyte \"14\""},
    {u"JapanDoubleHagakiPostcardRotated", u"psk", u"", u"148000", u"200000", u"419 567", u""},
    {u"NorthAmerica4x6", u"psk", u"", u"101600", u"152400", u"288 432", u""},
    {u"NorthAmericaNumber9Envelope", u"psk", u"", u"104700", u"241300", u"297 684", u""},
    {u"NorthAmericaNumber10Envelope", u"psk", u"", u"104700", u"241300", u"297 684", u"ubyte \"06\""},
    {u"ISOB5Envelope", u"psk", u"", u"176000", u"250000", u"499 709", u""},
    {u"ISODLEnvelope", u"psk", u"", u"110000", u"220000", u"312 624", u"ubyte \"09\""},
    {u"NorthAmericaMonarchEnvelope", u"psk", u"", u"98400", u"190500", u"279 540", u"ubyte \"07\""},
    {u"ISOC4Envelope", u"psk", u"", u"229000", u"324000", u"649 918", u""},
    {u"ISOC5Envelope", u"psk", u"", u"162000", u"229000", u"459 649", u"ubyte \"08\""},
    {u"ISOC6Envelope", u"psk", u"", u"114000", u"162000", u"323 459", u""},
    {u"JapanYou3Envelope", u"psk", u"", u"98000", u"148000", u"278 420", u""},
    {u"JapanYou4Envelope", u"psk", u"", u"105000", u"235000", u"298 666", u"ubyte_array \"Envelope #4\""},
    {u"ISOA0", u"psk", u"", u"841000", u"1189000", u"", u""},
    {u"ISOA1", u"psk", u"", u"594000", u"841000", u"", u""},
    {u"ISOA2", u"psk", u"", u"420000", u"594000", u"", u""},
    {u"JISB1", u"psk", u"", u"728000", u"1030000", u"", u""},
    {u"JISB2", u"psk", u"", u"515000", u"728000", u"", u""},
    {u"JISB3", u"psk", u"", u"364000", u"515000", u"", u""},
    {u"JapanChou3Envelope", u"psk", u"", u"120000", u"235000", u"340 666", u"ubyte_array \"JCHOU3\""},
    {u"JapanChou4Envelope", u"psk", u"", u"90000", u"205000", u"255 581", u"ubyte_array \"JCHOU4\""},
    {u"JapanKaku1Envelope", u"ns0000", u"", u"270000", u"382000", u"765 1083", u""},
    {u"JapanKaku2Envelope", u"psk", u"", u"240000", u"332000", u"680 941", u""},
    {u"JapanKaku3Envelope", u"psk", u"", u"216000", u"277000", u"612 785", u""},
    {u"P8X13", u"ns0000", u"", u"203200", u"330200", u"576 936", u""},
    {u"P8X10", u"ns0000", u"", u"203200", u"254000", u"576 720", u""},
    {u"P8X10HALF", u"ns0000", u"", u"203200", u"177000", u"576 756", u""},
    {u"P8QUATX13", u"ns0000", u"", u"209500", u"330200", u"594 936", u""},
    {u"OtherMetricFolio", u"psk", u"", u"215900", u"330200", u"595 935", u"ubyte \"205\""},
    {u"SPFOLIO", u"ns0000", u"", u"215900", u"322300", u"612 914", u""},
    {u"P8HALFX13", u"ns0000", u"", u"215900", u"330200", u"612 936", u""},
    {u"P8HALFX13HALF", u"ns0000", u"", u"215900", u"342900", u"612 972", u""},
    {u"P8EIGHTHX13QUAT", u"ns0000", u"", u"206300", u"336500", u"585 954", u""},
    {u"P3X5", u"psk", u"", u"76200", u"127000", u"", u"ubyte_array \"3x5\""},
    {u"P270MM", u"ns0000", u"", u"209900", u"269900", u"", u"ubyte_array \"A4Short\""},
    {u"P220MMX330MM", u"ns0000", u"", u"220000", u"330000", u"624 935", u""},
    {u"KAI16", u"ns0000", u"", u"185000", u"260000", u"524 737", u""},
    {u"KAI32", u"ns0000", u"", u"130000", u"185000", u"369 524", u""},
    {u"WIDEA3", u"psk", u"WIDEA4", u"302100", u"425100", u"856 1205", u"", true},
    {u"WIDEA4", u"psk", u"WIDEA5", u"215100", u"302100", u"610 856", u"", true},
    {u"WIDEA5", u"psk", u"", u"153100", u"215100", u"434 610", u"", true},
    {u"WIDEB4", u"psk", u"WIDEB5", u"262100", u"369100", u"743 1046", u"", true},
    {u"WIDEB5", u"psk", u"", u"187100", u"262100", u"530 743", u"", true},
    {u"WIDEP11X17", u"psk", u"WIDEP8HALFX11", u"284500", u"436900", u"806 1238", u"", true},
    {u"WIDEP8HALFX11", u"psk", u"WIDEP5HALFX8HALF", u"221000", u"284500", u"626 806", u"", true},
    {u"WIDEP5HALFX8HALF", u"psk", u"", u"144800", u"221000", u"410 626", u"", true},
    {u"FBA4TAB", u"ns0000", u"", u"225500", u"297000", u"639 842", u""},
    {u"FBLETTERTAB", u"ns0000", u"", u"231400", u"279400", u"656 792", u""},
    {u"ISOSRA3", u"psk", u"ISOSRA4", u"320000", u"450000", u"907 1276", u""},
};

// A size that the ticket gives by parameters.
struct CustomSizeRow {
    std::u16string_view Keyword;
    std::u16string_view PairedKeyword;
    std::u16string_view Prefix;
    std::u16string_view DataCommand;
    std::u16string_view ExtraText;
};

inline constexpr CustomSizeRow CustomSizeRows[] = {
    {u"CustomMediaSize", u"CustomMediaSize", u"psk", u"uint16_xy \"Custom\" MediaSize\r\n", u""},
    {u"PSCustomMediaSize", u"", u"psk", u"50", u"50"},
    {u"UserPaper", u"UserPaper", u"ns0000", u"ubyte \"Custom\" MediaSize\r\n", u""},
};

static_assert(HasUniqueKeywords(MediaSizeRows) && HasUniqueKeywords(CustomSizeRows));

}  // namespace DeviceSpecificModule
