#pragma once

#include <cstdint>
#include <string_view>

#include "tables/TableChecks.h"

// The way of a sheet: where it comes from, which sides are printed and which way up, where it goes.

namespace DeviceSpecificModule {

// The trays that the device feeds from.
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

// Printing on one side and on two.
struct PageModeRow {
    std::u16string_view Keyword;
    std::u16string_view DataCommand;
};

inline constexpr PageModeRow SimplexPageModeRows[] = {
    {u"psk:OneSided", u"ubyte \"0\" SimplexPageMode\r\n"},
};

inline constexpr PageModeRow DuplexPageModeRows[] = {
    {u"psk:TwoSidedLongEdge", u"ubyte \"1\" DuplexPageMode\r\n"},
    {u"psk:TwoSidedShortEdge", u"ubyte \"0\" DuplexPageMode\r\n"},
};

// Which way up a page is.
struct OrientationRow {
    std::uint32_t Id;
    std::u16string_view Keyword;
    std::u16string_view Fragment;
};

inline constexpr OrientationRow OrientationRows[] = {
    {0, u"psk:Landscape",
     u"<psf:Feature name=\"psk:PageOrientation\"><psf:Option name=\"psk:Landscape\" /></psf:Feature>"},
    {1, u"psk:Portrait",
     u"<psf:Feature name=\"psk:PageOrientation\"><psf:Option name=\"psk:Portrait\" /></psf:Feature>"},
};

// The bins that the device delivers to.
struct OutputBinRow {
    std::uint32_t Id;
    std::u16string_view Keyword;
    std::u16string_view Option;  // in the fragment
    std::u16string_view JobCommand;
};

// The first two numbered bins are the other way round at the device.
inline constexpr OutputBinRow OutputBinRows[] = {
    {0, u"ns0000:Auto", u"xr:Auto", u"@PJL SET OUTBIN=DEFAULT\r\n"},
    {3, u"ns0000:Bin1", u"xr:Bin2", u"@PJL SET OUTBIN=BIN2\r\n"},
    {4, u"ns0000:Bin2", u"xr:Bin1", u"@PJL SET OUTBIN=BIN1\r\n"},
    {5, u"ns0000:Bin3", u"xr:Bin3", u"@PJL SET OUTBIN=BIN3\r\n"},
};

static_assert(HasUniqueKeywords(InputBinRows) && HasUniqueKeywords(SimplexPageModeRows) &&
              HasUniqueKeywords(DuplexPageModeRows) && HasUniqueKeywords(OrientationRows) &&
              HasUniqueKeywords(OutputBinRows));

}  // namespace DeviceSpecificModule
