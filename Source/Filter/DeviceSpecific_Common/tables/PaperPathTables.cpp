#include <array>

#include "tables/OptionTables.h"
#include "tables/PaperPathRows.h"
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
    OptionRecord record = FilledRecord(row.Keyword, u"");
    record.PairedKeyword = WideText(u"0");
    record.TicketFragment = BinFragment(u"PageInputBin", row.Option);
    record.FourInOneJobCommand = record.NamespacePrefix = WideText(row.Unused);
    record.PostScriptCommand = WideText(row.PostScriptCommand);
    record.DataCommand = InputBinData(row);
    record.DeviceName = WideText(row.DeviceName);
    return record;
}

OptionRecord PageModeRecord(const PageModeRow& row) {
    OptionRecord record = FilledRecord(row.Keyword, u"0");
    record.TicketFragment = record.JobCommand = WideText(u"");
    record.DataCommand = WideText(row.DataCommand);
    return record;
}

OptionRecord OrientationRecord(const OrientationRow& row) {
    OptionRecord record = FilledRecord(row.Keyword, u"");
    record.Id = row.Id;
    record.PairedKeyword = WideText(row.Fragment);
    return record;
}

OptionRecord OutputBinRecord(const OutputBinRow& row) {
    OptionRecord record = FilledRecord(row.Keyword, u"0");
    record.Id = row.Id;
    record.TicketFragment = BinFragment(u"PageOutputBin", row.Option);
    record.JobCommand = WideText(row.JobCommand);
    return record;
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
