#include <array>

#include "tables/InputBinRows.h"
#include "tables/OptionTables.h"
#include "tables/OrientationRows.h"
#include "tables/OutputBinRows.h"
#include "tables/PageModeRows.h"
#include "tables/RecordBuilding.h"

// The small tables: where sheets come from, which sides are printed and which way up, where sheets go.

namespace DeviceSpecificModule {
namespace {

WideText BinFragment(std::u16string_view feature, std::u16string_view option) {
    if (option.empty()) return WideText(u"");
    return WideText::Join({u"<psf:Feature name=\"psk:", feature, u"\"><psf:Option name=\"", option,
                           u"\"></psf:Option></psf:Feature>"});
}

WideText InputBinData(const InputBinRow& row) {
    return row.Data.empty() ? WideText(u"") : WideText::Join({u"ubyte \"", row.Data, u"\" MediaSource\r\n"});
}

OptionRecord InputBinRecord(const InputBinRow& row) {
    return {
        .Id = 0,
        .Keyword = WideText(row.Keyword),
        .PairedKeyword = WideText(u"0"),
        .TicketFragment = BinFragment(u"PageInputBin", row.Option),
        .JobCommand = WideText(u""),
        .FourInOneJobCommand = WideText(row.Unused),
        .NamespacePrefix = WideText(row.Unused),
        .PostScriptCommand = WideText(row.PostScriptCommand),
        .DataCommand = InputBinData(row),
        .ExtraText = WideText(u""),
        .DeviceName = WideText(row.DeviceName),
    };
}

OptionRecord PageModeRecord(const PageModeRow& row) {
    const WideText zero(u"0");
    return {
        .Id = 0,
        .Keyword = WideText(row.Keyword),
        .PairedKeyword = zero,
        .TicketFragment = WideText(u""),
        .JobCommand = WideText(u""),
        .FourInOneJobCommand = zero,
        .NamespacePrefix = zero,
        .PostScriptCommand = zero,
        .DataCommand = WideText(row.DataCommand),
        .ExtraText = zero,
        .DeviceName = zero,
    };
}

OptionRecord OrientationRecord(const OrientationRow& row) {
    const WideText empty(u"");
    return {
        .Id = row.Id,
        .Keyword = WideText(row.Keyword),
        .PairedKeyword = WideText(row.Fragment),
        .TicketFragment = empty,
        .JobCommand = empty,
        .FourInOneJobCommand = empty,
        .NamespacePrefix = empty,
        .PostScriptCommand = empty,
        .DataCommand = empty,
        .ExtraText = empty,
        .DeviceName = empty,
    };
}

OptionRecord OutputBinRecord(const OutputBinRow& row) {
    const WideText zero(u"0");
    return {
        .Id = row.Id,
        .Keyword = WideText(row.Keyword),
        .PairedKeyword = zero,
        .TicketFragment = BinFragment(u"PageOutputBin", row.Option),
        .JobCommand = WideText(row.JobCommand),
        .FourInOneJobCommand = zero,
        .NamespacePrefix = zero,
        .PostScriptCommand = zero,
        .DataCommand = zero,
        .ExtraText = zero,
        .DeviceName = zero,
    };
}

}  // namespace

std::span<const OptionRecord> InputBinRecords() {
    static const auto records = BuildRecords<InputBinCount>(InputBinRows, InputBinRecord);
    return records;
}

std::span<const OptionRecord> SimplexPageModeRecords() {
    static const auto records = BuildRecords<SimplexPageModeCount>(SimplexPageModeRows, PageModeRecord);
    return records;
}

std::span<const OptionRecord> DuplexPageModeRecords() {
    static const auto records = BuildRecords<DuplexPageModeCount>(DuplexPageModeRows, PageModeRecord);
    return records;
}

std::span<const OptionRecord> OrientationRecords() {
    static const auto records = BuildRecords<OrientationCount>(OrientationRows, OrientationRecord);
    return records;
}

std::span<const OptionRecord> OutputBinRecords() {
    static const auto records = BuildRecords<OutputBinCount>(OutputBinRows, OutputBinRecord);
    return records;
}

}  // namespace DeviceSpecificModule
