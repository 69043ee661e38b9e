#pragma once

#include "tables/KeywordCommand.h"

// Layout, image shift, chapters, and how the engine renders and finishes a page.

namespace DeviceSpecificModule {

inline constexpr KeywordCommand LayoutCommandTable[] = {{u"Off", u""}, {u"Bl4in1", u""}};

inline constexpr KeywordCommand ImageShiftCommandTable[] = {{u"Off", u""}, {u"Controller", u""}};
inline constexpr KeywordCommand ImageShiftInfoCommandTable[] = {{u"CMD", u""}};

inline constexpr KeywordCommand ChapterModeCommandTable[] = {{u"Off", u""}, {u"On", u""}};
inline constexpr KeywordCommand ChapterCommandTable[] = {{u"CMD", u""}};

inline constexpr KeywordCommand GlossyModeCommandTable[] = {{u"Off", u""}, {u"On", u""}};
inline constexpr KeywordCommand EdgeEnhancementCommandTable[] = {{u"Off", u""}, {u"On", u""}};
inline constexpr KeywordCommand EdgeMatchCommandTable[] = {{u"Finish", u""}, {u"Speed", u""}};

inline constexpr KeywordCommand ExposureCommandTable[] = {
    {u"Document", u""}, {u"Photo", u""}, {u"DTP", u""}, {u"Web", u""}, {u"CAD", u""}};

inline constexpr KeywordCommand TColorCommandTable[] = {{u"Off", u""}, {u"On", u""}};
inline constexpr KeywordCommand TColorTypeCommandTable[] = {{u"BlackR", u""}, {u"BlackB", u""},
                                                            {u"BlackG", u""}, {u"BlackC", u""},
                                                            {u"BlackM", u""}, {u"BlackY", u""}};

}  // namespace DeviceSpecificModule
