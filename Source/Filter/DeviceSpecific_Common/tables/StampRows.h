#pragma once

#include "tables/KeywordCommand.h"

// Rows that the texts stamped on pages have in common. Each stamp gets tables of its own from them, so that
// one can be written out with other commands without touching the rest.

namespace DeviceSpecificModule {

enum class Stamp { PageNumber, DateTime, HeaderFooter };

template <Stamp>
inline constexpr KeywordCommand StampColorRows[] = {
    {u"Black", u""},  {u"Red", u""},     {u"Green", u""}, {u"Blue", u""},
    {u"Yellow", u""}, {u"Magenta", u""}, {u"Cyan", u""},  {},
};

template <Stamp>
inline constexpr KeywordCommand StampPositionRows[] = {
    {u"LeftTop", u""},     {u"CenterTop", u""},
    {u"RightTop", u""},    {u"LeftCenter", u""},
    {u"Center", u""},      {u"RightCenter", u""},
    {u"LeftBottom", u""},  {u"CenterBottom", u""},
    {u"RightBottom", u""}, {},
};

template <Stamp>
inline constexpr KeywordCommand StampPagesRows[] = {{u"AllPages", u""}, {u"FirstPage", u""}, {}};

}  // namespace DeviceSpecificModule
