#include <json/value.h>

#include "JobRun.h"
#include "Targets.h"
#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "perpage/PerPageSettings.h"
#include "stages/CarbonCopy.h"
#include "stages/CopySecurity.h"
#include "stages/HeaderFooter.h"
#include "stages/PageNumbering.h"
#include "tables/CarbonCopyAndPerPageKeywords.h"
#include "ticket/TicketNamespaces.h"

// Any settings: the parts of an input are the job's custom properties, the exceptions for single pages, what
// these share, the custom properties of the document and of the page. Whatever is one piece in an input is
// cut into three on its way.

namespace Fuzz {
namespace {

using namespace DeviceSpecificModule;

constexpr std::string_view ticketFront =
    "<psf:PrintTicket xmlns:psf='" FRAMEWORK_NAMESPACE "' xmlns:psk='" KEYWORDS_NAMESPACE
    "' xmlns:ns0000='" DEVMODE_NAMESPACE
    "'><psf:Feature name='psk:PageResolution'><psf:Option name='ns0000:DPI600'/></psf:Feature>"
    "<psf:Feature name='psk:DocumentBinding'><psf:Option name='psk:BindLeft'/></psf:Feature>"
    "<psf:Feature name='psk:PageInputBin'><psf:Option name='ns0000:TRAY1'/></psf:Feature>"
    "<psf:Feature name='psk:PageMediaType'><psf:Option name='psk:Plain'/></psf:Feature>"
    "<psf:Feature name='psk:PageMediaSize'><psf:Option name='psk:ISOA4'/></psf:Feature>";

void AddEscaped(std::string& xml, std::string_view text) {
    for (const char each : text) {
        if (each == '<')
            xml += "&lt;";
        else if (each == '&')
            xml += "&amp;";
        else
            xml += each;
    }
}

void AddParameter(std::string& xml, std::string_view name, std::string_view value) {
    xml.append("<psf:ParameterInit name='ns0000:").append(name).append("'><psf:Value>");
    AddEscaped(xml, value);
    xml += "</psf:Value></psf:ParameterInit>";
}

void AddSeries(std::string& xml, std::string_view level, std::string_view piece, std::string_view text) {
    if (text.empty()) return;
    AddParameter(xml, std::string(level).append("XR").append(level).append("CustomCount"), "3");
    // Never inside a character: a piece is a text of its own.
    const auto cutBehind = [text](std::size_t at) {
        while (at < text.size() && (text[at] & 0xC0) == 0x80) ++at;
        return at;
    };
    const std::size_t first = cutBehind(text.size() / 3), second = cutBehind(text.size() / 2);
    AddParameter(xml, std::string(piece) + "000", text.substr(0, first));
    AddParameter(xml, std::string(piece) + "001", text.substr(first, second - first));
    AddParameter(xml, std::string(piece) + "002", text.substr(second));
}

// Control characters can't stand in a ticket; the JSON of the exceptions can still hold them.
std::string TicketOf(const std::vector<std::string_view>& parts) {
    std::string xml(ticketFront);
    AddSeries(xml, "Job", "JobXRJobCustomProperties", PartOf(parts, 0));
    std::string perPage;
    if (parts.size() > 1)
        perPage = "{\"features\":{\"PerPageSetting\":\"On\",\"PerPagePageDetails\":" + Quoted(parts[1]) +
                  ",\"PerPageListDetails\":" + Quoted(PartOf(parts, 2)) + "}}";
    AddSeries(xml, "Doc", "DocumentXRDocumentCustomProperties",
              PartOf(parts, 3).empty() ? perPage : parts[3]);
    AddSeries(xml, "Page", "PageXRPageCustomProperties", parts.size() > 4 ? parts[4] : perPage);
    return xml + "</psf:PrintTicket>";
}

constexpr KeywordCommand words[] = {{u"Off", u"off;"}, {u"On", u"on;"}, {u"Fixed", u"fixed;"}};

constexpr HeaderFooterTables headerFooter = {
    .HeaderFooter = words,
    .Format = u"format %s;",
    .Header = {u"HeaderFooterPrintHeader", words, u"HeaderStartNumberType", words, u"HeaderPageNumber",
               u"%s;"},
    .Footer = {u"HeaderFooterPrintFooter", words, u"FooterStartNumberType", words, u"FooterPageNumber",
               u"%s;"},
    .Pages = words,
    .Color = words,
};

constexpr CopySecurityFormats copySecurity = {
    .String = u"%s;",
    .Number = u"%s,%s;",
    .Fields = u"%s;",
    .DateTime = u"%s,%s;",
    .Style = u"%s,%s,%s,%s,%s,%s,%s;",
    .Password = u"%s;",
};

// The built-in texts of these stages are empty; with others in their place it shows what the stages do.
std::string RunWithTexts(const SharedJson& settings, const PTConverter& snapshot) {
    PTConverter converter = snapshot;
    converter.PjlText = WideText(u"");
    return ErrorOf([&] {
               AppendPageNumbering(settings, u"%s,%s,%s;", converter.PjlText);
               AppendHeaderFooter(settings, headerFooter, converter.PjlText);
               AppendCarbonCopy(settings, CarbonCopyTypeCommandTable, u"%s;", converter.PjlText);
               AppendCopySecurity(converter, copySecurity);
           }) +
           Narrow(converter.PjlText.View());
}

std::string RunPerPage(const SharedJson& settings, std::size_t inputSize) {
    WideText pjl(u"");
    std::size_t entries = 0;
    const std::string error = ErrorOf([&] {
        Json::Value details, list;
        ParseJsonText(LookupCustomProperty(settings, u"PerPagePageDetails"), details);
        ParseJsonText(LookupCustomProperty(settings, u"PerPageListDetails"), list);
        entries = details.size();
        AppendPerPageCommands(details, list, {}, &HostTables(), u"%s;%s;%s;%s;%s;%s;%s;%s;%s;%s;%s;%s;%s.",
                              pjl);
        Require(entries == 0 || pjl.View().ends_with(u'.'), "each exception sends its command", pjl.View());
    });
    // A moved page gains ten digits at most; the number of tabs stands in every entry.
    Require(pjl.Length() <= (200 + inputSize) * entries + 12 * inputSize, "per-page commands are bounded");
    return error + Narrow(pjl.View());
}

std::string RunJob(std::string_view input) {
    const std::string xml = TicketOf(SplitParts(input));
    const TicketDocument ticket = LoadTicket(xml);
    if (!ticket) return {};
    JobRun job({{u"EncryptionID", Wide("[1,2]")}});
    std::string seen = job.Call(JobLevel, ticket, xml.size());
    const SharedJson settings = job.Snapshot.CustomProperties;
    const std::string texts = RunWithTexts(settings, job.Snapshot);
    Require(texts.size() <= 2000 + 8 * xml.size(), "the texts of the stages are bounded");
    seen += texts + RunPerPage(settings, xml.size());
    if (const TicketDocument document = LoadTicket(std::string(ticketFront) + "</psf:PrintTicket>"))
        seen += job.Call(DocumentLevel, document, xml.size());
    return seen + job.Everything();
}

}  // namespace

void RunSettings(std::string_view input) { RequireSameTwice(input, RunJob); }

}  // namespace Fuzz
