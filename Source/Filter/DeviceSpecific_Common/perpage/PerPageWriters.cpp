#include "perpage/PerPageWriters.h"

#include <algorithm>
#include <optional>
#include <span>

#include "conversion/TextOperations.h"
#include "perpage/EntryText.h"
#include "perpage/PerPageWords.h"
#include "ticket/TicketEditing.h"

namespace DeviceSpecificModule {
namespace {

bool Fits(std::optional<std::u16string_view> pattern, std::u16string_view text) {
    return !pattern || *pattern == text;
}

void FillWord(WideText& command, std::span<const PerPageWord> rows, std::u16string_view word,
              std::u16string_view option) {
    const auto row = std::ranges::find_if(
        rows, [&](const PerPageWord& each) { return Fits(each.Keyword, word) && Fits(each.Option, option); });
    if (row != rows.end()) FillFirstPlaceholder(command, row->Value);
}

void FillDeviceName(WideText& command, const OptionRecord* table, std::u16string_view option) {
    const OptionRecord* row = FindOptionRecord(table, option);
    if (row != nullptr) FillFirstPlaceholder(command, row->DeviceName.View());
}

WideText TabsOf(const Json::Value& list) {
    const WideText number = TextOf(list["NumberOfTabs"]);
    const std::u16string_view text = number.View();
    // A missing colon's place is the largest number.
    return WideText::Join({u"TAB", text.substr(text.find(u':') + 1)});
}

bool InsertsTabSheet(const Json::Value& entry) {
    return TextOf(entry["TabPaper"]) == UsedTabPaper && !TextOf(entry["TextOnTab"]).IsEmpty() &&
           TextOf(entry["PrintType"]) == InsertedSheet;
}

// Wraps around, as unsigned numbers do.
std::int32_t AddCount(std::int32_t page, std::uint32_t count) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(page) + count);
}

DecimalText InsertTabSheet(std::u16string_view page, InsertedTabs& tabs) {
    ++tabs.InsertedTabCount;
    const std::int32_t moved = AddCount(ReadDecimal(page), tabs.InsertedTabCount);
    tabs.LowestOfInsertedTabPages = std::min(tabs.LowestOfInsertedTabPages, moved);
    return DecimalText(moved);
}

DecimalText MovePage(std::u16string_view page, const InsertedTabs& tabs) {
    const std::int32_t number = ReadDecimal(page);
    const bool moves = number >= tabs.LowestOfInsertedTabPages;
    return DecimalText(moves ? AddCount(number, tabs.InsertedTabCount) : number);
}

// Fills the template's places from left to right in one pass: a page text may be long. There are never fewer
// places than numbers, since a separator or the text's end stands behind each.
WideText MovePageRange(std::u16string_view pages, const InsertedTabs& tabs) {
    constexpr std::u16string_view separators = u",-";
    const WideText whole = BuildRangeTemplate(pages);
    std::u16string_view places = whole.View();
    WideText moved;
    for (std::size_t begin = 0; (begin = pages.find_first_not_of(separators, begin)) != pages.npos;) {
        const std::size_t end = std::min(pages.find_first_of(separators, begin), pages.size());
        const std::size_t place = places.find(u"%s");
        AddPieces(moved, {places.substr(0, place), MovePage(pages.substr(begin, end - begin), tabs)});
        places.remove_prefix(place + 2);
        begin = end;
    }
    AddPieces(moved, {places});
    return moved;
}

void FillMovedPages(WideText& command, std::u16string_view pages, const InsertedTabs& tabs) {
    if (tabs.InsertedTabCount == 0) return FillFirstPlaceholder(command, pages);
    if (pages.find_first_of(u",-") == pages.npos) return FillFirstPlaceholder(command, MovePage(pages, tabs));
    FillFirstPlaceholder(command, MovePageRange(pages, tabs).View());
}

}  // namespace

void FillPrintType(WideText& command, const Json::Value& entry) {
    const WideText printType = TextOf(entry["PrintType"]);
    const WideText tabPaper = TextOf(entry["TabPaper"]);
    const WideText textOnTab = TextOf(entry["TextOnTab"]);
    const bool isBlank = printType == InsertedSheet && (tabPaper == NoTabPaper || textOnTab.IsEmpty());
    FillFirstPlaceholder(command, isBlank ? u"BLANK" : u"PRINT");
}

void FillBinding(WideText& command, std::u16string_view option) {
    FillWord(command, PerPageBindingWords, {}, option);
}

void FillDuplex(WideText& command, const Json::Value& entry, std::u16string_view option) {
    FillWord(command, PerPageDuplexWords, TextOf(entry["PrintType"]).View(), option);
}

void FillPaperTray(WideText& command, const Json::Value& entry, std::u16string_view option,
                   const OptionTables* tables) {
    const WideText tray = TextOf(entry["PaperTray"]);
    if (tray == SameAsBody && option != u"psk:AutoSelect") {
        FillDeviceName(command, tables == nullptr ? nullptr : tables->PageInputBins, option);
    } else {
        FillWord(command, PerPageTrayWords, tray.View(), option);
    }
}

void FillMediaAndTabs(WideText& command, const Json::Value& entry, std::u16string_view option,
                      const OptionTables* tables, const Json::Value& list) {
    if (TextOf(entry["TabPaper"]) == NoTabPaper) {
        FillDeviceName(command, tables == nullptr ? nullptr : tables->PageMediaTypes, option);
        FillFirstPlaceholder(command, u"NONE");
    } else {
        FillFirstPlaceholder(command, u"TAB,NORMAL,NONE,OFF");
        FillFirstPlaceholder(command, TabsOf(list).View());
    }
}

void FillStaple(WideText& command, const Json::Value& entry, std::u16string_view option) {
    FillWord(command, PerPageStapleWords, TextOf(entry["Staple"]).View(), option);
}

void FillPageRange(WideText& command, const Json::Value& entry, InsertedTabs& tabs) {
    const WideText pages = TextOf(entry["PageNumber"]);
    if (InsertsTabSheet(entry)) return FillFirstPlaceholder(command, InsertTabSheet(pages.View(), tabs));
    FillMovedPages(command, pages.View(), tabs);
}

WideText BuildRangeTemplate(std::u16string_view pages) {
    WideText places(u"");
    for (const char16_t& unit : pages)
        if (unit == u'-' || unit == u',') AddPieces(places, {u"%s", {&unit, 1}});
    if (!pages.empty() && pages.back() != u'-' && pages.back() != u',') AddPieces(places, {u"%s"});
    return places;
}

}  // namespace DeviceSpecificModule
