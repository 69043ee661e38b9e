#include <json/value.h>

#include <algorithm>
#include <vector>

#include "Contract.h"
#include "Targets.h"
#include "conversion/TextOperations.h"
#include "perpage/PageList.h"
#include "perpage/PerPageOrder.h"
#include "perpage/PerPageWriters.h"

// Page texts, one in a line: what each of them and two of them together read as, their templates, what they
// are moved to behind tab sheets, and their order.

namespace Fuzz {
namespace {

using namespace DeviceSpecificModule;

bool IsSeparator(char16_t unit) { return unit == u',' || unit == u'-'; }

std::vector<std::u16string_view> LinesOf(std::u16string_view text) {
    std::vector<std::u16string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(u'\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

void RequireList(std::u16string_view pages) {
    const PageList list = ReadPageList(pages);
    Require(list.Count <= 2 && list.First <= list.Highest, "a page list has a first and a highest page",
            pages);
    Require(list.Count > 0 || list.Highest == 0, "a list without pages has none", pages);
    Require(list.Count != 1 || list.First == list.Highest, "one page is first and highest", pages);
    const bool isPage = !pages.empty() && pages.find_first_not_of(u"0123456789") == pages.npos;
    Require(!isPage || (list.Count == 1 && list.First == static_cast<std::uint32_t>(ReadDecimal(pages))),
            "digits are one page", pages);
}

// The items of one text and of another behind it are the items of both.
void RequireJoins(std::u16string_view front, std::u16string_view back) {
    if (front.empty() || front.ends_with(u',') || back.empty()) return;
    const PageList a = ReadPageList(front), b = ReadPageList(back);
    const WideText both = WideText::Join({front, u",", back});
    const PageList joined = ReadPageList(both.View());
    const bool none = a.Count == 0 || b.Count == 0;
    const std::uint32_t first = none ? a.First + b.First : std::min(a.First, b.First);
    Require(joined.Count == std::min(2u, a.Count + b.Count) && joined.First == first &&
                joined.Highest == std::max(a.Highest, b.Highest),
            "page lists join", both.View());
}

std::u16string SeparatorsOf(std::u16string_view pages) {
    std::u16string separators(pages);
    std::erase_if(separators, [](char16_t unit) { return !IsSeparator(unit); });
    return separators;
}

void RequireTemplate(std::u16string_view pages) {
    const WideText places = BuildRangeTemplate(pages);
    std::u16string expected;
    for (const char16_t separator : SeparatorsOf(pages)) expected += std::u16string(u"%s") + separator;
    if (!pages.empty() && !IsSeparator(pages.back())) expected += u"%s";
    Require(places == expected, "a template has a place in front of each separator", pages);
}

// Of an entry that inserts no tab sheet.
void RequireMove(std::u16string_view pages, InsertedTabs tabs) {
    Json::Value entry;
    entry["PageNumber"] = Narrow(pages);
    const std::u16string_view read = pages.substr(0, pages.find(u'\0'));
    WideText command(u"<%s>");
    FillPageRange(command, entry, tabs);
    const std::u16string_view moved = command.View();
    Require(moved.starts_with(u'<') && moved.ends_with(u'>'), "pages stay in their place", moved);
    if (tabs.InsertedTabCount == 0) {
        const WideText same = WideText::Join({u"<", read, u">"});
        Require(moved == (moved.find(u'\xFFFD') != moved.npos ? moved : same.View()),
                "unmoved pages stay as they are", moved);
        return;
    }
    Require(moved.size() <= 2 + 11 * read.size() + 11, "moved pages are bounded", moved);
    const bool negative =
        moved.starts_with(u"<-") || moved.find(u",-") != moved.npos || moved.find(u"--") != moved.npos;
    Require(negative || SeparatorsOf(moved) == SeparatorsOf(read) || read.find_first_of(u",-") == read.npos,
            "moved pages keep their separators", moved);
}

void RequireOrder(const std::vector<std::u16string_view>& lines) {
    Json::Value details(Json::arrayValue);
    for (const std::u16string_view line : lines)
        details.append(Json::objectValue)["PageNumber"] = Narrow(line);
    const std::vector<PerPageOrderEntry> order = BuildPerPageOrder(details);
    std::vector<bool> seen(lines.size());
    Require(order.size() == lines.size(), "each exception has its place");
    for (std::size_t at = 0; at < order.size(); ++at) {
        Require(order[at].Position < seen.size() && !seen[order[at].Position],
                "each exception is there once");
        seen[order[at].Position] = true;
        Require(at == 0 || !PageListPrecedes(order[at], order[at - 1]), "no entry precedes the one in front");
    }
}

}  // namespace

void RunPages(std::string_view input) {
    const WideText text = Wide(input);
    const std::vector<std::u16string_view> lines = LinesOf(text.View());
    for (std::size_t at = 0; at < lines.size(); ++at) {
        RequireList(lines[at]);
        RequireTemplate(lines[at]);
        if (at > 0) RequireJoins(lines[at - 1], lines[at]);
        const auto count = static_cast<std::uint32_t>(at % 3);
        RequireMove(lines[at], {count, count == 0 ? 0 : ReadDecimal(lines[at / 2])});
    }
    RequireOrder(lines);
}

}  // namespace Fuzz
