#pragma once

#include <string_view>

#include "tables/TableChecks.h"

// The trays that the device feeds from.

namespace DeviceSpecificModule {

struct InputBinRow {
    std::u16string_view Keyword;
    std::u16string_view Option;  // in the fragment; empty: no fragment
    std::u16string_view PostScriptCommand;
    std::u16string_view Data;  // value of the data line; empty: no line
    std::u16string_view DeviceName;
    std::u16string_view Unused = u"0";  // what the fields that mean nothing to a bin hold
};

// The large tray is the device's fifth. "ns0000:TRAY5" is known and selects nothing.
inline constexpr InputBinRow InputBinRows[] = {
    {u"psk:AutoSelect", u"xr:AUTO",
     u"<</ManualFeed false /MediaPosition 41 /TraySwitch true>>setpagedevice\r\n", u"01", u"AUTO"},
    {u"ns0000:TRAYLCT", u"xr:TRAY5",
     u"<</ManualFeed false /MediaPosition 4 /TraySwitch false>>setpagedevice\r\n", u"", u"TRAY5"},
    {u"psk:Manual", u"xr:MANUALFEED", u"<</ManualFeed true /TraySwitch false>>setpagedevice\r\n", u"",
     u"MANUALFEED"},
    {u"ns0000:TRAY1", u"xr:TRAY1",
     u"<</ManualFeed false /MediaPosition 0 /TraySwitch false>>setpagedevice\r\n", u"04", u"TRAY1"},
    {u"ns0000:TRAY2", u"xr:TRAY2",
     u"<</ManualFeed false /MediaPosition 1 /TraySwitch false>>setpagedevice\r\n", u"05", u"TRAY2"},
    {u"ns0000:TRAY3", u"xr:TRAY3",
     u"<</ManualFeed false /MediaPosition 2 /TraySwitch false>>setpagedevice\r\n", u"07", u"TRAY3"},
    {u"ns0000:TRAY4", u"xr:TRAY4",
     u"<</ManualFeed false /MediaPosition 3 /TraySwitch false>>setpagedevice\r\n", u"08", u"TRAY4"},
    {u"ns0000:TRAY5", u"", u"", u"", u"", u""},
    {u"ns0000:MULTIFEEDER", u"", u"", u"03", u""},
    {u"ns0000:MANUALENVELOPE", u"", u"", u"", u""},
};

static_assert(HasUniqueKeywords(InputBinRows));

}  // namespace DeviceSpecificModule
