#pragma once

#include "tables/KeywordCommand.h"

// Ticket options of the whole job: collation, output, sides, orientation, pages on a sheet.

namespace DeviceSpecificModule {

inline constexpr KeywordCommand DocumentCollateCommandTable[] = {{u"psk:Collated", u""},
                                                                 {u"psk:Uncollated", u""}};

inline constexpr KeywordCommand PageOutputBinCommandTable[] = {{u"ns0000:Auto", u""},
                                                               {u"ns0000:Bin1", u""},
                                                               {u"ns0000:Bin2", u""},
                                                               {u"ns0000:Bin3", u""},
                                                               {u"ns0000:Bin4", u""}};

inline constexpr KeywordCommand PageOutputColorCommandTable[] = {{u"psk:Color", u""},
                                                                 {u"psk:Grayscale", u""}};

inline constexpr KeywordCommand JobDuplexAllDocumentsContiguouslyCommandTable[] = {
    {u"psk:OneSided", u""}, {u"psk:TwoSidedLongEdge", u""}, {u"psk:TwoSidedShortEdge", u""}};

inline constexpr KeywordCommand PageOrientationCommandTable[] = {{u"psk:Landscape", u""},
                                                                 {u"psk:Portrait", u""}};

inline constexpr KeywordCommand DocumentBindingCommandTable[] = {
    {u"psk:BindLeft", u""}, {u"psk:BindRight", u""}, {u"psk:BindTop", u""}};

inline constexpr KeywordCommand JobNUpAllDocumentsContiguouslyCommandTable[] = {
    {u"ns0000:_2", u""}, {u"ns0000:_4", u""}, {u"ns0000:_6", u""}, {u"ns0000:_9", u""}, {u"ns0000:_16", u""}};

}  // namespace DeviceSpecificModule
