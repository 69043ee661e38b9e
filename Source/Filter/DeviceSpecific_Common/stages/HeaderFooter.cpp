#include "stages/HeaderFooter.h"

#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "stages/Stages.h"
#include "tables/StampKeywords.h"

namespace DeviceSpecificModule {
namespace {

constexpr HeaderFooterTables builtInTables = {
    .HeaderFooter = HeaderFooterCommandTable,
    .Format = HeaderFooterFormatCommandTable[0].Command,
    .Header = {.SwitchKey = u"HeaderFooterPrintHeader",
               .SwitchTable = HeaderFooterPrintHeaderCommandTable,
               .StartNumberTypeKey = u"HeaderStartNumberType",
               .StartNumberTypeTable = HeaderStartNumberTypeCommandTable,
               .PageNumberKey = u"HeaderPageNumber",
               .PageNumberFormat = HeaderPageNumberCommandTable[0].Command},
    .Footer = {.SwitchKey = u"HeaderFooterPrintFooter",
               .SwitchTable = HeaderFooterPrintFooterCommandTable,
               .StartNumberTypeKey = u"FooterStartNumberType",
               .StartNumberTypeTable = FooterStartNumberTypeCommandTable,
               .PageNumberKey = u"FooterPageNumber",
               .PageNumberFormat = FooterPageNumberCommandTable[0].Command},
    .Pages = HeaderFooterPagesCommandTable,
    .Color = HeaderFooterColorCommandTable,
};

// Unlike the feature engine this goes on behind a match.
void AppendEqualRows(KeywordCommandTable table, const WideText& value, WideText& pjl) {
    for (const KeywordCommand& row : table)
        if (value == row.Keyword) AppendWideChars(pjl, row.Command);
}

void AppendKeyword(const SharedJson& settings, std::u16string_view key, KeywordCommandTable table,
                   WideText& pjl) {
    AppendEqualRows(table, LookupCustomProperty(settings, key), pjl);
}

void AppendFormat(const SharedJson& settings, std::u16string_view key, std::u16string_view format,
                  WideText& pjl) {
    WideText command(format);
    FillFirstPlaceholder(command, LookupCustomProperty(settings, key).View());
    AppendWideText(pjl, command);
}

void AppendPart(const SharedJson& settings, const HeaderFooterPart& part, WideText& pjl) {
    const WideText value = LookupCustomProperty(settings, part.SwitchKey);
    if (value != u"On") return AppendEqualRows(part.SwitchTable, value, pjl);
    AppendKeyword(settings, part.StartNumberTypeKey, part.StartNumberTypeTable, pjl);
    AppendFormat(settings, part.PageNumberKey, part.PageNumberFormat, pjl);
}

}  // namespace

void AppendHeaderFooter(const SharedJson& settings, const HeaderFooterTables& tables, WideText& pjl) {
    const WideText value = LookupCustomProperty(settings, u"HeaderFooter");
    AppendEqualRows(tables.HeaderFooter, value, pjl);
    if (value != u"On") return;
    AppendFormat(settings, u"HeaderFooterFormat", tables.Format, pjl);
    AppendPart(settings, tables.Header, pjl);
    AppendPart(settings, tables.Footer, pjl);
    AppendKeyword(settings, u"HeaderFooterPages", tables.Pages, pjl);
    AppendKeyword(settings, u"HeaderFooterColor", tables.Color, pjl);
}

void WriteHeaderFooter(PTConverter& converter, const PipelineBag&, const TicketDocument&) {
    AppendHeaderFooter(converter.CustomProperties, builtInTables, converter.PjlText);
}

}  // namespace DeviceSpecificModule
