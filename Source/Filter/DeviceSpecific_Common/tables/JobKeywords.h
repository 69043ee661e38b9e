#pragma once

#include "tables/KeywordCommand.h"

// The vocabulary that sends something: settings of the job header and modes of the engine.

namespace DeviceSpecificModule {

// The user's name, twice.
inline constexpr KeywordCommand LoginUserCommandTable[] = {
    {u"CMD", u"@PJL COMMENT\r\n@PJL SET LOGINUSER = \"%s\"\r\n@PJL SET USERNAME = \"%s\"\r\n"},
};

// The job's name, twice.
inline constexpr KeywordCommand JobNameCommandTable[] = {
    {u"CMD", u"@PJL SET JOBNAME = \"%s\"\r\n@PJL JOB NAME = \"%s\"\r\n"},
};

inline constexpr KeywordCommand PageResolutionCommandTable[] = {
    {u"ns0000:DPI300", u"@PJL SET RESOLUTION = 300\r\n"},
    {u"ns0000:DPI600", u"@PJL SET RESOLUTION = 600\r\n"},
    {u"ns0000:DPI1200_DEVICE", u"@PJL SET RESOLUTION = TR1200\r\n@PJL SET PAPERFEEDSPEED = FULL\r\n"},
};

inline constexpr KeywordCommand ROptCommandTable[] = {
    {u"D1200_FAST", u""},
    {u"D1200_HIGH", u""},
    {u"D1200_600", u""},
    {u"D2400_600", u""},
    {u"D1200_HQ", u"@PJL SET RESOLUTION = HQ1200\r\n@PJL SET PAPERFEEDSPEED = FULL\r\n"},
};

// The placeholder of "On" takes the key that releases the job at the device.
inline constexpr KeywordCommand HoldCommandTable[] = {
    {u"Off", u"@PJL SET HOLD = OFF\r\n"},
    {u"On", u"@PJL SET HOLD = STORE\r\n@PJL SET HOLDTYPE = PRIVATE\r\n@PJL SET HOLDKEY = %s\r\n"},
    {u"XRProof", u""},
    {u"XRCrtStore", u""},
    {u"Store", u""},
    {u"StorePrint", u""},
    {u"StoreJob", u""},
    {u"PrintHold", u""},
};

inline constexpr KeywordCommand TonerSaveCommandTable[] = {
    {u"Off", u"@PJL SET ECONOMODE = OFF\r\n"},
    {u"Type1", u"@PJL SET ECONOMODE = ON\r\n"},
};

// Leaving the quiet mode is silence, unlike the toner saving and the print-out modes, which send their off
// state.
inline constexpr KeywordCommand EcoSettingCommandTable[] = {
    {u"Off", u""},
    {u"On", u"@PJL SET QUIETMODE = ON\r\n"},
};

inline constexpr KeywordCommand ImprovePrintOutCommandTable[] = {
    {u"Off", u"@PJL SET LESSPAPERCURL = OFF\r\n@PJL SET FIXINTENSITYUP = OFF\r\n"},
    {u"ReduceCurl", u"@PJL SET LESSPAPERCURL = ON\r\n@PJL SET FIXINTENSITYUP = OFF\r\n"},
    {u"TonerFixing", u"@PJL SET LESSPAPERCURL = OFF\r\n@PJL SET FIXINTENSITYUP = ON\r\n"},
};

}  // namespace DeviceSpecificModule
