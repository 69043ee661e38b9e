#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <set>
#include <sstream>
#include <vector>

#include "Host/report/HtmlReport.h"
#include "Host/report/ReportStyle.h"
#include "HostTool.h"
#include "Support.h"

namespace TicketHost {
namespace {

namespace Module = DeviceSpecificModule;
using Platform::WideText;
using Platform::XmlElement;

void Walk(const XmlElement& element, const std::function<void(const XmlElement&)>& visit) {
    visit(element);
    for (const XmlElement& child : element.Children) Walk(child, visit);
}

// The page as XML, which a browser's parser forgives much that this one doesn't.
XmlElement ReadPage(const std::string& page) {
    constexpr std::string_view documentType = "<!DOCTYPE html>";
    EXPECT_TRUE(page.starts_with(documentType)) << page.substr(0, 80);
    Platform::ParseError error;
    const auto root = Platform::ReadXml(std::string_view(page).substr(documentType.size()), error);
    EXPECT_TRUE(root) << error.Reason << " at " << error.Line << "\n" << page;
    return root.value_or(XmlElement());
}

// What makes a page work: links that lead somewhere in it, one main part, headings that go down step by step,
// table headings that say what they head, and nothing that loads or runs.
void CheckPage(const XmlElement& page) {
    std::set<std::string> ids, targets, names;
    int level = 0, mains = 0;
    Walk(page, [&](const XmlElement& element) {
        const std::string& name = element.Name.Local;
        names.insert(name);
        const std::string id = AttributeOf(element, "id"), target = AttributeOf(element, "href");
        EXPECT_TRUE(id.empty() || ids.insert(id).second) << id;
        if (!target.empty()) targets.insert(target);
        if (name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '6') {
            EXPECT_LE(name[1] - '0', level + 1) << element.Text;
            level = name[1] - '0';
        }
        if (name == "main") ++mains;
        EXPECT_FALSE(name == "th" && AttributeOf(element, "scope").empty());
        for (const auto& [attribute, value] : element.Attributes)
            EXPECT_FALSE(attribute.Local.starts_with("on") || attribute.Local == "src") << attribute.Local;
    });
    for (const std::string& target : targets) EXPECT_TRUE(ids.contains(target.substr(1))) << target;
    for (const char* name : {"script", "link", "img", "iframe", "object", "form", "base", "b"})
        EXPECT_FALSE(names.contains(name)) << name;
    EXPECT_TRUE(mains == 1 && names.contains("title") && !AttributeOf(page, "lang").empty());
}

std::string TextOf(const XmlElement& page) {
    std::string text;
    Walk(page, [&text](const XmlElement& element) { text += element.Text + "\n"; });
    return text;
}

TEST(HtmlWriter, TextsAreEscapedWhateverTheyHold) {
    const std::pair<std::string_view, const char*> rows[] = {
        {"a & b", "a &amp; b"},
        {"</p><script>", "&lt;/p&gt;&lt;script&gt;"},
        {"\" onload='x", "&quot; onload=&#39;x"},
        {"&lt;", "&amp;lt;"},
        {"]]>", "]]&gt;"},
        {"\x1B\xE4\xE2\x80\xAE", "&lt;ESC&gt;&lt;0xE4&gt;&lt;U+202E&gt;"},
        {std::string_view("\0\n", 2), "&lt;0x00&gt;&lt;LF&gt;"},
        {"\xEF\xBF\xBE\xEF\xBF\xBF\xEF\xBF\xBD", "&lt;U+FFFE&gt;&lt;U+FFFF&gt;\xEF\xBF\xBD"},
        {"\xC3\xA4\xF0\x9F\x98\x80", "\xC3\xA4\xF0\x9F\x98\x80"}};
    for (const auto& [text, escaped] : rows) {
        std::ostringstream out;
        HtmlWriter(out).Put("i", {{"title", std::string(text)}}, text);
        EXPECT_EQ(out.str(), "<i title=\"" + std::string(escaped) + "\">" + escaped + "</i>");
    }
}

std::string Describe(const PageFacts& facts) {
    const auto name = [](const PageFact& fact) { return fact.Name + (fact.IsSent ? "" : "!"); };
    constexpr const char* edges[] = {"", " left", " top"};
    return name(facts.Size) + " " + std::to_string(facts.Width) + "x" + std::to_string(facts.Height) + ", " +
           name(facts.Medium) + ", " + name(facts.Bin) + ", " + facts.Orientation +
           (facts.IsJobsOrientation ? "*" : "") + "," + (facts.IsOneSided ? " one" : "") +
           edges[static_cast<int>(facts.Edge)];
}

// Each row of data lines, the ticket's children and what the page is by them; "!" is not in the lines.
TEST(HtmlReport, PagesAreReadOffLinesAndTicket) {
    const std::string a4 = R"(ubyte "02" MediaSize)", thin = R"(ubyte_array "dThin" MediaType)",
                      tray2 = R"(ubyte "05" MediaSource)", oneSided = R"(ubyte "0" SimplexPageMode)",
                      shortEdge = R"(ubyte "0" DuplexPageMode)", longEdge = R"(ubyte "1" DuplexPageMode)",
                      width = R"(ubyte "1485" CustWidth)", height = R"(ubyte "1050" CustHeight)",
                      custom = R"(uint16_xy "Custom" MediaSize)";
    const std::string size = Module::Feature("psk:PageMediaSize", "psk:ISOA4"),
                      plain = Module::Feature("psk:PageMediaType", "psk:Plain"),
                      bin = Module::Feature("psk:PageInputBin", "ns0000:TRAY2"),
                      landscape = Module::Feature("psk:PageOrientation", "psk:Landscape");
    const auto scored = [](const std::string& name, const std::string& value) {
        return "<psf:ScoredProperty name='psk:MediaSize" + name + "'>" + value + "</psf:ScoredProperty>";
    };
    const std::string inside = scored("Width", "<psf:Value>70000</psf:Value>") +
                               scored("Height", "<psf:ParameterRef name='psk:H'/>");
    const std::string own =
        Module::Feature("psk:PageMediaSize", "ns0000:Own", inside) + Module::Parameter("psk:H", "90000");
    const struct {
        std::vector<std::string> Lines;
        std::string Ticket, Expected;
    } rows[] = {
        {{"Page_1", a4, thin, tray2, oneSided},
         size + plain + bin + landscape,
         "ISOA4 210000x297000, Plain, TRAY2, Landscape, one"},
        {{}, size + plain + bin, "ISOA4! 210000x297000, Plain!, TRAY2!, Job*,"},
        {{a4}, own, "ISOA4 210000x297000, !, !, Job*,"},
        {{}, own, "Own! 70000x90000, !, !, Job*,"},
        {{width, height, custom, longEdge}, size, "CustomMediaSize 148500x105000, !, !, Job*, left"},
        {{R"(ubyte "99999999999" CustWidth)", R"(ubyte "" CustHeight)", custom},
         "",
         "CustomMediaSize 0x0, !, !, Job*,"},
        {{oneSided, shortEdge}, landscape, "! 0x0, !, !, Landscape, one top"},
        {{"50", "ubyte", "\"", ""}, "", "! 0x0, !, !, Job*,"},
    };
    for (const auto& [lines, ticket, expected] : rows) {
        Platform::ParseError error;
        const auto root = Platform::ReadXml(Module::MakeTicket(ticket)->xml(), error);
        const PipelineProperties properties = {{u"PageOrientation", WideText(u"psk:Job")}};
        EXPECT_EQ(Describe(ReadPageFacts(lines, ItemsOf(root.value()), properties)), expected);
    }
}

// Each row of pages and the sheets that they make: "a" and "b" are two-sided on two kinds of paper, "o" is
// one-sided and "x" failed; "w", "h" and "m" are wider, higher and of another medium than "a", and "t" is
// turned. "1+2..6*3" is three equal sheets.
TEST(HtmlReport, PagesGoOntoSheets) {
    const struct {
        std::string_view Pages;
        bool Apart;
        const char* Sheets;
    } rows[] = {{"aaaa", false, "1+2..4*2 "},
                {"aab", false, "1+2 3 "},
                {"abba", false, "1 2+3 4 "},
                {"aoa", false, "1 2 3 "},
                {"ooo", false, "1..3*3 "},
                {"aaaaa", false, "1+2..4*2 5 "},
                {"axa", false, "1 2 3 "},
                {"aaa", true, "1..3*3 "},
                {"awaham", false, "1 2 3 4 5 6 "},
                {"aaat", false, "1+2 3+4 "},
                {"", false, ""}};
    for (const auto& [pages, apart, expected] : rows) {
        SheetRow row;
        if (apart) row.KeepPagesApart();
        std::size_t number = 0;
        for (const char kind : pages) {
            SheetPage page{++number, number, {}};
            page.Facts.Edge = kind == 'o' ? TurningEdge::None : TurningEdge::Left;
            page.Facts.Failed = kind == 'x';
            page.Facts.Bin.Name = kind == 'b' ? "other" : "";
            page.Facts.Medium.Name = kind == 'm' ? "other" : "";
            page.Facts.Width = kind == 'w' ? 1 : 0;
            page.Facts.Height = kind == 'h' ? 1 : 0;
            page.Facts.Orientation = kind == 't' ? "Landscape" : "";
            row.Add(page);
        }
        row.End();
        std::ostringstream sheets;
        for (const SheetRun& run : row.Runs()) {
            sheets << run.Front.Number;
            if (run.Back) sheets << "+" << run.Back->Number;
            if (run.Sheets > 1) sheets << ".." << run.LastPage << "*" << run.Sheets;
            sheets << " ";
        }
        EXPECT_EQ(sheets.str(), expected) << pages;
    }
}

struct MadePage {
    std::string Lines, Ticket, Orientation;  // data lines, the ticket's children, what the job's ticket says
    bool Fails = false;
    std::int32_t Level = 0;
};

// Without option tables and a snapshot.
std::string ReportOf(const std::vector<MadePage>& pages) {
    Job job{"job", {}, {}};
    job.Settings.Tables.emplace();
    job.Settings.Snapshot = false;
    for (const MadePage& page : pages)
        job.Calls.push_back({page.Level, std::make_shared<Ticket>(Ticket{"ticket.xml", ""})});
    std::ostringstream out;
    HtmlReport report(out);
    report.Begin(job, {});
    PipelineProperties properties;
    std::string data;
    for (std::size_t at = 0; at < pages.size(); ++at) {
        const WideText ticket = Module::MakeTicket(pages[at].Ticket)->xml();
        properties[u"DATA"] = Module::Wide(data += pages[at].Lines);
        properties[u"PageOrientation"] = Module::Wide(pages[at].Orientation);
        const auto error = pages[at].Fails ? std::optional(CallError{"Error", {}, ""}) : std::nullopt;
        report.Take({at + 1, job.Calls[at], 1, error, ticket, ticket, properties});
    }
    report.End(properties);
    return out.str();
}

// A sheet as it is drawn and captioned: "#1" is a page's number, "?" one whose paper is drawn as unknown.
std::string SheetText(const XmlElement& sheet) {
    std::string text = AttributeOf(sheet, "class");
    Walk(sheet, [&text](const XmlElement& each) {
        const std::string& name = each.Name.Local;
        if (name == "path") text += "|" + AttributeOf(each, "class");
        if (name == "rect" && AttributeOf(each, "class") == "paper unknown") text += "|?";
        if (each.Text.find_first_not_of('\n') != std::string::npos)
            text += (name == "text" ? "|#" : "|") + each.Text;
    });
    return text;
}

TEST(HtmlReport, SheetsAreDrawnAndCaptioned) {
    const auto line = [](const std::string& value, const std::string& name) {
        return "ubyte \"" + value + "\" " + name + "\r\n";
    };
    const std::string a4 = line("02", "MediaSize"), custom = "uint16_xy \"Custom\" MediaSize\r\n",
                      wide = custom + line("2100", "CustWidth"), tray2 = line("05", "MediaSource"),
                      left = line("1", "DuplexPageMode"), top = line("0", "DuplexPageMode"),
                      tall = wide + line("12000", "CustHeight") + left,
                      square = wide + line("2100", "CustHeight"), oneSided = line("0", "SimplexPageMode");
    const std::string size = Module::Feature("psk:PageMediaSize", "psk:ISOA4"),
                      own = Module::Feature("psk:PageMediaSize", "ns0000:Own"),
                      plain = Module::Feature("psk:PageMediaType", "psk:Plain"),
                      portrait = Module::Feature("psk:PageOrientation", "psk:Portrait"),
                      landscape = Module::Feature("psk:PageOrientation", "psk:Landscape");
    const MadePage equal{a4 + top + tray2, plain, "psk:Portrait"};
    const std::string none = "|Medium|not given|Bin|not given|Sides|", by = "\u00A0\u00D7\u00A0",
                      isA4 = "|Size|ISOA4, 210" + by + "297\u00A0mm|Reads|";
    const struct {
        std::vector<MadePage> Pages;
        std::string Sheet;  // the last one
    } rows[] = {
        {{{tall, size + portrait, ""}, {tall, size + landscape, ""}},
         "broad|edge|cut|#1|edge|cut|#2|Pages 1 and 2|Size|CustomMediaSize, 210" + by +
             "1200\u00A0mm|in the ticket ISOA4|Reads|Portrait, back Landscape" + none +
             "two, turned on the long edge, left"},
        {{equal, equal, equal, equal},
         "sheet|edge|#1|edge|#2|Pages 1 to 4| \u00B7 2 sheets" + isA4 +
             "Portrait (the job\u2019s)|Medium|Plain, |no line says so|Bin|TRAY2|Sides|two, turned "
             "on the short edge, top"},
        {{{a4 + left, portrait, ""}, {a4 + left, "", ""}},
         "sheet|edge|#1|edge|#2|Pages 1 and 2" + isA4 + "Portrait, back not given" + none +
             "two, turned on the long edge, left"},
        {{{a4, "", "", true}},
         "sheet|?|failed-page|#1|Page 1|The call failed." + isA4 + "not given" + none + "no line says so"},
        {{{wide, landscape, ""}},
         "sheet|?|#1|Page 1|Size|CustomMediaSize, dimensions not known|Reads|Landscape" + none +
             "no line says so"},
        {{{"", own + portrait, ""}},
         "sheet|?|#1|Page 1|Size|Own, dimensions not known, |no line says so|Reads|Portrait" + none +
             "no line says so"},
        {{{square + oneSided + left, portrait, ""}},
         "sheet|edge|#1|Page 1|Size|CustomMediaSize, 210" + by + "210\u00A0mm|Reads|Portrait" + none +
             "one, |yet a line for two goes with it: left edge"},
        {{{a4 + left, portrait, "", false, 2}},
         "sheet|edge|#job|The job itself" + isA4 + "Portrait" + none + "two, turned on the long edge, left"},
    };
    for (const auto& [pages, sheet] : rows) {
        const XmlElement page = ReadPage(ReportOf(pages));
        CheckPage(page);
        std::string last;
        Walk(page, [&last](const XmlElement& each) {
            const std::string kind = AttributeOf(each, "class");
            if (each.Name.Local == "li" && (kind == "sheet" || kind == "broad")) last = SheetText(each);
        });
        EXPECT_EQ(last, sheet);
    }
}

TEST(HtmlReport, JobsThatAreOddSaySo) {
    const std::pair<std::vector<MadePage>, std::vector<const char*>> rows[] = {
        {{},
         {"The job has no calls.", "No page was converted.", "Option tables: none",
          "No snapshot: each call "}},
        {std::vector<MadePage>(51, {"", "", "", true}), {"51 calls failed.", "And 1 more."}}};
    for (const auto& [pages, texts] : rows) {
        const std::string page = TextOf(ReadPage(ReportOf(pages)));
        for (const char* text : texts) EXPECT_NE(page.find(text), page.npos) << text << page;
    }
}

// One text in each place that a job has, told apart by its number.
TEST(HtmlReport, HostileTextsStayTexts) {
    const auto hostile = [](int place) {
        return "<b>" + std::to_string(place) + "</b>&amp;\"'><script>alert(1)</script>";
    };
    const auto wide = [&](int place) { return Module::Wide("\x1B" + hostile(place)); };
    const auto name = [&](int place) { return std::u16string(wide(place).View()); };
    const auto inTicket = [&](int place) {
        return Module::ReplaceMatches(Module::ReplaceMatches(hostile(place), "&", "&amp;"), "[<'\"]",
                                      "&#60;");
    };
    Job job{hostile(1), {}, {{2, std::make_shared<Ticket>(Ticket{"\x1B" + hostile(2), ""})}}};
    job.Settings.Pipeline = {{name(3), wide(4)}};
    job.Settings.Driver = {{name(5), wide(6)}};
    const PipelineProperties before = {{name(7), wide(8)}};
    const PipelineProperties after = {{u"PJL", WideText::Join({name(9), u"\r\n"})},
                                      {u"DATA", WideText::Join({u"Page_1\r\n", name(10), u"\r\n"})},
                                      {u"PageOrientation", wide(11)},
                                      {name(12), wide(13)}};
    const WideText ticketBefore =
        Module::MakeTicket(Module::Feature("psk:PageInputBin", "psk:" + inTicket(14)) +
                           Module::Parameter("psk:" + inTicket(15), inTicket(16)) +
                           Module::Settings("{\"features\":{\"Set" + inTicket(17) + "\":1}"))
            ->xml();
    const WideText ticketAfter = Module::MakeTicket(Module::Feature("psk:" + inTicket(18), "psk:A"))->xml();
    std::ostringstream out;
    HtmlReport report(out);
    report.Begin(job, before);
    report.Take(
        {1, job.Calls[0], 0, CallError{hostile(19), {}, hostile(20)}, ticketBefore, ticketAfter, after});
    report.End(after);
    const XmlElement page = ReadPage(out.str());
    CheckPage(page);
    const std::string text = TextOf(page);
    for (int place = 1; place <= 20; ++place)
        EXPECT_NE(text.find("b>" + std::to_string(place) + "<"), text.npos) << place << text;
    EXPECT_EQ(out.str().find('\x1B'), std::string::npos);
}

// The texts of an explanation, in a page of its own since calls look different there.
TEST(HtmlReport, ExplanationsStandByTheirLines) {
    const auto hostile = [](int place) { return "<b>" + std::to_string(place) + "</b>&\"'"; };
    Explanation why;
    why.Items.resize(4);
    for (int at = 0; at < 4; ++at) {
        why.Items[static_cast<std::size_t>(at)].Label = hostile(1 + at);
        why.Items[static_cast<std::size_t>(at)].File = hostile(5 + at);
        why.Items[static_cast<std::size_t>(at)].Tried = true;
    }
    why.Items[0].Effects = {{0, 0, LineKind::Pjl, hostile(9)}, {0, NoIndex, LineKind::Data, hostile(10)}};
    why.Items[3].HiddenBy = {0};
    why.Calls = {{1, 2, "ticket.xml", 0, {}}};
    why.Calls[0].Lines = {{LineKind::Pjl, hostile(11), {{{0}, hostile(12)}}, {}},
                          {LineKind::Data, hostile(13), {{{1, 2}, {}}}, {}},
                          {LineKind::Property, hostile(14), {}, {}},
                          {LineKind::Ticket, hostile(15), {}, {1}}};
    const Job job{"job", {}, {{2, std::make_shared<Ticket>(Ticket{"ticket.xml", ""})}}};
    std::ostringstream out;
    HtmlReport report(out, &why);
    report.Begin(job, {});
    report.Take({1, job.Calls[0], 1, {}, WideText(u"<a/>"), WideText(u"<a/>"), {}});
    report.End({});
    const XmlElement page = ReadPage(out.str());
    CheckPage(page);
    std::map<std::string, std::string> causes;  // links of a line's causes, by the line
    Walk(page, [&causes](const XmlElement& element) {
        if (element.Name.Local != "li" || element.Children.empty()) return;
        const XmlElement& line = element.Children.front();
        if (line.Name.Local != "code") return;
        std::string& links = causes[line.Text];
        Walk(element, [&links](const XmlElement& each) { links += AttributeOf(each, "href"); });
    });
    const std::map<std::string, std::string> expected = {
        {hostile(11), "#item-1"}, {hostile(13), "#item-2#item-3"}, {hostile(14), ""}, {hostile(15), ""}};
    EXPECT_EQ(causes, expected);
    const std::string text = TextOf(page);
    for (int place = 1; place <= 15; ++place)
        EXPECT_NE(text.find("b>" + std::to_string(place) + "<"), text.npos) << place << text;
}

TEST_F(HostTool, ReportsOfTheSamplesAreWellFormedPages) {
    int samples = 0;
    for (const auto& file : std::filesystem::directory_iterator(SAMPLES_DIR)) {
        if (file.path().extension() != ".json") continue;
        const Outcome outcome = Run("convert --format html '" + file.path().string() + "'");
        EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
        CheckPage(ReadPage(outcome.Output));
        ++samples;
    }
    EXPECT_GE(samples, 4);
    const Outcome explained = Run("explain --format html '" SAMPLES_DIR "/booklet.json'");
    EXPECT_EQ(explained.Status, 0) << explained.Errors;
    const XmlElement page = ReadPage(explained.Output);
    CheckPage(page);
    EXPECT_NE(TextOf(page).find("Caused by "), std::string::npos);
}

// Pages that are alike take one drawing and one account; of those that aren't only so many are told.
TEST(HtmlReport, LongJobsStayShort) {
    const std::u16string_view front = u"1\" DuplexPageMode\r\nubyte \"05",
                              other = u"1\" DuplexPageMode\r\nubyte \"07";
    const struct {
        std::vector<std::u16string_view> Bins;
        std::size_t MostBytes;
        const char* Says;
    } rows[] = {{{u"05"}, 40'000, "Pages 1 to 3000"},
                {{u"05", u"07"}, 3'500'000, "2000 more pages are not drawn"},
                {{u"05", u"07"}, 3'500'000, "2000 more calls not told"},
                // page 1, then 999 of the sheets of two pages that follow
                {{front, front, other, other}, 3'500'000, "1001 more pages are not drawn"}};
    for (const auto& [bins, mostBytes, says] : rows) {
        const Job job{"long", {}, {{0, std::make_shared<Ticket>(Ticket{"page.xml", ""})}}};
        std::ostringstream out;
        HtmlReport report(out);
        report.Begin(job, {});
        PipelineProperties properties = {{u"DATA", WideText(u"")}};
        for (std::size_t number = 1; number <= 3000; ++number) {
            const std::u16string_view bin = bins[number % bins.size()];
            properties[u"DATA"] = WideText::Join({Module::Wide("Page_" + std::to_string(number)).View(),
                                                  u"\r\nubyte \"", bin, u"\" MediaSource\r\n"});
            report.Take({number, job.Calls[0], 1, {}, WideText(u"<a/>"), WideText(u"<a/>"), properties});
        }
        report.End(properties);
        const std::string page = out.str();
        EXPECT_LT(page.size(), mostBytes);
        EXPECT_NE(TextOf(ReadPage(page)).find(says), std::string::npos) << says;
    }
}

double LuminanceOf(const std::string& colour) {
    double channels[3] = {};
    for (std::size_t at = 0; at < 3; ++at) {
        const double value = std::stoi(colour.substr(2 * at, 2), nullptr, 16) / 255.0;
        channels[at] = value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    }
    return 0.2126 * channels[0] + 0.7152 * channels[1] + 0.0722 * channels[2];
}

double ContrastOf(const std::string& left, const std::string& right) {
    const double a = LuminanceOf(left), b = LuminanceOf(right);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// By the web's guidelines for accessibility, level AA: texts 4.5, lines that mean something 3.
TEST(HtmlReport, ColoursStandOutInEachScheme) {
    const std::string css(ReportStyle.View());
    const std::vector<std::string> schemes = Module::Matches(css, R"(:root \{([^}]*)\})");
    for (const std::string& scheme : schemes) {
        std::map<std::string, std::string> colours;
        for (const Module::PatternMatch& each : Module::AllMatches(scheme, "--([a-z]+): #([0-9a-f]{6});"))
            colours[each.at(1)] = each.at(2);
        for (const char* ground : {"ground", "raised"})
            for (const char* ink : {"ink", "quiet", "mark", "good", "bad", "doubt"})
                EXPECT_GE(ContrastOf(colours.at(ink), colours.at(ground)), 4.5) << ink << " on " << ground;
        for (const char* line : {"outline", "mark", "bad", "ink"})
            EXPECT_GE(ContrastOf(colours.at(line), colours.at("paper")), 3.0) << line;
    }
    EXPECT_EQ(schemes.size(), 3u);  // light, dark, paper
}

}  // namespace
}  // namespace TicketHost
