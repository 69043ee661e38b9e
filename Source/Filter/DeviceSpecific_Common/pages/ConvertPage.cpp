#include "pages/ConvertPage.h"

#include "conversion/JsonState.h"
#include "conversion/PipelineProperties.h"
#include "conversion/TextOperations.h"
#include "devicespecific/OptionRecord.h"
#include "pages/PageSize.h"
#include "tables/OptionTables.h"
#include "ticket/TicketEditing.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {
namespace {

// One run over one ticket.
struct PageRun {
    PTConverter& Converter;
    const TicketDocument& Ticket;
    PageFlags Flags;
};

void WritePageMarker(PTConverter& converter) {
    AppendWideText(converter.DataText, WideText::Join({u"Page_", DecimalText(converter.PageCount), u"\r\n"}));
    ++converter.PageCount;
}

// The job command of an option, in the job pass, and its data line.
void WriteOption(const PageRun& run, std::u16string_view feature, std::u16string_view option,
                 const OptionRecord* table, bool fourInOneApplies = false) {
    if (run.Flags.JobPass)
        ApplyOptionRecord(run.Converter, run.Ticket, feature, option, table,
                          {.JobPass = true, .FourInOneApplies = fourInOneApplies});
    AppendOptionDataCommand(run.Converter, table, option);
}

void PublishOrientation(const PageRun& run) {
    WideText option = GetFeatureOptionName(run.Ticket, u"PageOrientation");
    if (option.IsNull()) option = WideText(u"");
    SetPipelineText(run.Converter.Pipeline, u"PageOrientation", option);
    ApplyOptionRecord(run.Converter, run.Ticket, u"psk:PageOrientation", option.View(),
                      OrientationRecords().data(), {.JobPass = true});
}

// Where the dimensions of a custom size come from.
enum class SizeSource { Settings, UserForm, Parameters };

struct SizeChoice {
    WideText Size;  // as found, prefix included; null or empty when there is none
    SizeSource Source = SizeSource::Settings;
};

SizeChoice ChooseSize(const PageRun& run) {
    WideText size = LookupCustomProperty(run.Converter.CustomProperties, u"OutPSize");
    if (size != u"UsePaperSize") return {size, SizeSource::Settings};
    size = GetFeatureOptionName(run.Ticket, u"PageMediaSize");
    // A form that the user named at the queue: the ticket holds its size, under a name that no table knows.
    if (size.View().find(u"UserForm") != std::u16string_view::npos)
        return {WideText(u"CustomMediaSize"), SizeSource::UserForm};
    return {size, SizeSource::Parameters};
}

struct Dimension {
    std::u16string_view Setting;
    std::u16string_view ScoredProperty;
    std::u16string_view Parameter;
    std::u16string_view DataLine;
    std::u16string_view Property;
};

constexpr Dimension widthNames = {u"OutPSizeW", u"MediaSizeWidth", u"PageMediaSizeMediaSizeWidth",
                                  u"ubyte \"%s\" CustWidth\r\n", u"CUSTOM_PAPER_SIZE_WIDTH"};
constexpr Dimension heightNames = {u"OutPSizeH", u"MediaSizeHeight", u"PageMediaSizeMediaSizeHeight",
                                   u"ubyte \"%s\" CustHeight\r\n", u"CUSTOM_PAPER_SIZE_HEIGHT"};

WideText ReadMicrometres(const PageRun& run, SizeSource source, const Dimension& names) {
    switch (source) {
        case SizeSource::Settings:
            return LookupCustomProperty(run.Converter.CustomProperties, names.Setting);
        case SizeSource::UserForm:
            return GetScoredPropertyValue(run.Ticket, u"PageMediaSize", names.ScoredProperty);
        case SizeSource::Parameters:
            break;
    }
    return GetParameterInitValue(run.Ticket, names.Parameter, true);
}

// Micrometres to tenths of a millimetre, by cutting two digits off the text.
WideText CutToTenths(const WideText& micrometres) {
    const std::size_t length = micrometres.Length();
    return WideText(micrometres.View().substr(0, length < 2 ? 0 : length - 2));
}

void WriteDimensionLine(PTConverter& converter, const Dimension& names, const WideText& value) {
    WideText line(names.DataLine);
    FillFirstPlaceholder(line, value.View());
    AppendWideText(converter.DataText, line);
}

void WriteCustomSize(const PageRun& run, std::u16string_view key, SizeSource source) {
    const OptionRecord* row = FindOptionRecord(run.Converter.Tables->PageMediaSizes, key);
    if (row == nullptr) return;
    const WideText wholeWidth = ReadMicrometres(run, source, widthNames);
    const WideText wholeHeight = ReadMicrometres(run, source, heightNames);
    const WideText width = CutToTenths(wholeWidth);
    const WideText height = CutToTenths(wholeHeight);

    WideText command = row->JobCommand;
    FillFirstPlaceholder(command, width.View());
    FillFirstPlaceholder(command, height.View());
    WriteDimensionLine(run.Converter, widthNames, width);
    WriteDimensionLine(run.Converter, heightNames, height);
    SetPipelineText(run.Converter.Pipeline, widthNames.Property, width);
    SetPipelineText(run.Converter.Pipeline, heightNames.Property, height);
    AppendWideText(run.Converter.DataText, row->DataCommand);
    if (run.Flags.JobPass) AppendWideText(run.Converter.PjlText, command);
}

void WriteMediaSize(const PageRun& run) {
    const OptionRecord* table = run.Converter.Tables->PageMediaSizes;
    if (table == nullptr) return;
    const SizeChoice choice = ChooseSize(run);
    const std::u16string_view key = PageSizeKeyOf(choice.Size.View());
    if (!choice.Size.IsEmpty()) SetPipelineText(run.Converter.Pipeline, u"PAPER_SIZE", WideText(key));
    if (IsCustomSize(key))
        WriteCustomSize(run, key, choice.Source);
    else
        WriteOption(run, u"psk:PageMediaSize", key, table, true);
}

void WriteTicketOption(const PageRun& run, std::u16string_view feature, const OptionRecord* table) {
    if (table == nullptr) return;
    const WideText option = GetFeatureOptionName(run.Ticket, feature);
    WriteOption(run, WideText::Join({u"psk:", feature}).View(), option.View(), table);
}

// A sheet in landscape is turned over along its other edge. What isn't the short edge becomes it, one-sided
// too.
std::u16string_view TurnEdge(std::u16string_view duplex) {
    return duplex == u"psk:TwoSidedShortEdge" ? u"psk:TwoSidedLongEdge" : u"psk:TwoSidedShortEdge";
}

void WriteDuplex(const PageRun& run) {
    constexpr std::u16string_view name = u"JobDuplexAllDocumentsContiguously";
    constexpr std::u16string_view feature = u"psk:JobDuplexAllDocumentsContiguously";
    const OptionTables& tables = *run.Converter.Tables;
    const bool booklet = LookupCustomProperty(run.Converter.CustomProperties, u"Booklet") == u"On";
    WideText orientation = GetFeatureOptionName(run.Ticket, u"PageOrientation");
    if (orientation.IsEmpty()) orientation = GetPipelineText(run.Converter.Pipeline, u"PageOrientation");
    if (booklet) {
        const bool portrait = orientation == u"psk:Portrait";
        return AppendOptionDataCommand(run.Converter, tables.DuplexPageModes,
                                       portrait ? u"psk:TwoSidedShortEdge" : u"psk:TwoSidedLongEdge");
    }
    const WideText duplex = GetPipelineText(run.Converter.Pipeline, name);
    WriteOption(run, feature, duplex.View(), tables.SimplexPageModes);
    const bool landscape = orientation == u"psk:Landscape";
    WriteOption(run, feature, landscape ? TurnEdge(duplex.View()) : duplex.View(), tables.DuplexPageModes);
}

void WriteOptions(const PageRun& run) {
    WriteMediaSize(run);
    WriteTicketOption(run, u"PageMediaType", run.Converter.Tables->PageMediaTypes);
    WriteTicketOption(run, u"PageInputBin", run.Converter.Tables->PageInputBins);
    WriteDuplex(run);
    RequireWhole(run.Converter.DataText);
    if (run.Flags.PublishData) SetPipelineText(run.Converter.Pipeline, u"DATA", run.Converter.DataText);
    if (run.Flags.MergeFragments) InsertTicketFragments(run.Ticket, run.Converter.PjlText);
}

}  // namespace

void ConvertPage(PTConverter& converter, const TicketDocument& ticket, PageFlags flags) {
    const PageRun run{converter, ticket, flags};
    WritePageMarker(converter);
    if (flags.JobPass) PublishOrientation(run);
    if (converter.Tables != nullptr) WriteOptions(run);
    RemoveTicketNode(ticket, PathToFeature(u"psk:PageOutputQuality"));
}

}  // namespace DeviceSpecificModule
