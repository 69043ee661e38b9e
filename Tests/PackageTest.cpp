#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "Host/ground/Errors.h"
#include "Host/jobs/Package.h"
#include "Host/jobs/PartNames.h"
#include "HostTool.h"
#include "Support.h"
#include "ZipBuilder.h"

// Packages as jobs. Most hold a sequence "/s" of one document "/d" with one page "/p".

namespace TicketHost {
namespace {

using Fuzz::BuildZip;
using Fuzz::ZipForm;
using Fuzz::ZipItem;
using Items = std::vector<ZipItem>;

#define XPS "http://schemas.microsoft.com/xps/2005/06"
#define OXPS "http://schemas.openxps.org/oxps/v1.0"

std::string Relation(const std::string& type, const std::string& target, const std::string& more = "") {
    return "<Relationship Id=\"R\" Type=\"" + type + "\" Target=\"" + target + "\"" + more + "/>";
}
std::string Relations(const std::string& inside) {
    return "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">" + inside +
           "</Relationships>";
}
std::string References(const std::string& root, const std::string& child,
                       const std::vector<std::string>& sources) {
    std::string xml = "<" + root + ">";
    for (const std::string& source : sources) xml += "<" + child + " Source=\"" + source + "\"/>";
    return xml + "</" + root.substr(0, root.find(' ')) + ">";
}
std::string Sequence(const std::vector<std::string>& documents, const std::string& space = XPS) {
    return References("FixedDocumentSequence xmlns=\"" + space + "\"", "DocumentReference", documents);
}
std::string Document(const std::vector<std::string>& pages, const std::string& space = XPS) {
    return References("FixedDocument xmlns=\"" + space + "\"", "PageContent", pages);
}
std::string TicketOf(const std::string& target) { return Relations(Relation(XPS "/printticket", target)); }

std::string Utf16(const std::string& text, bool highFirst) {
    std::string bytes = highFirst ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : text) highFirst ? (bytes += '\0') += c : (bytes += c) += '\0';
    return bytes;
}

const ZipItem root = {"_rels/.rels", Relations(Relation(XPS "/fixedrepresentation", "/s"))};

// The parts of a job, with those of `changed` in place of its own or behind them.
Items OnePage(const Items& changed = {}) {
    Items items = {root, {"s", Sequence({"/d"})}, {"d", Document({"/p"})}, {"p", "<FixedPage/>"}};
    for (const ZipItem& item : changed) {
        const auto found = std::ranges::find(items, item.Name, &ZipItem::Name);
        found == items.end() ? void(items.push_back(item)) : void(*found = item);
    }
    return items;
}

// The calls of a package, each with its ticket's name and, in brackets, content; or why it is refused.
std::string CallsOf(const std::string& bytes) {
    try {
        std::string lines;
        const Package package(std::make_unique<ZipArchive>("job.xps", bytes));
        for (const Call& call : ReadPackageCalls(package)) {
            lines += std::to_string(call.Level) + " " + call.Source->Name;
            if (!call.Source->Part.empty()) lines += " [" + std::get<std::string>(call.Source->Content) + "]";
            lines += "; ";
        }
        return lines;
    } catch (const InputError& error) {
        return error.what();
    }
}

TEST(PackageNames, AreFoundFromReferences) {
    const char* const rows[][3] = {
        {"/a/b", "c", "/a/c"},
        {"/a/b", "/c", "/c"},
        {"/a/b", "../c", "/c"},
        {"/", "c", "/c"},
        {"/a/b", "./d/../c", "/a/c"},
        {"/a", "../../c", "/c"},
        {"/a", "b\\c", "/b/c"},
        {"/a", "%2E%2e/c", "/c"},
        {"/a/b", "c#d", "/a/c"},
        {"/a/b", "c?d#e", "/a/c"},
        {"/a", "b//c", "/b/c"},
        {"/a", "b%20c", "/b%20c"},
        {"/a", "", "-"},
        {"/a", "#b", "-"},
        {"/a", "//b/c", "-"},
        {"/a", "file:///b", "-"},
        {"/a", "b/", "-"},
        {"/a", "..", "-"},
        {"/a", "b:c", "-"},
        {"/a", "b/c:d", "/b/c:d"},
    };
    for (const auto& [base, reference, name] : rows)
        EXPECT_EQ(ResolvePart(base, reference).value_or("-"), name) << base << " " << reference;
    for (const auto& [name, key] :
         std::map<std::string, std::string>{{"/A%20b\\C", "/a b/c"},
                                            {"/%41%c3%84%", "/a\xC3\x84%"},
                                            {"/\xC3\x84%2541%G0", "/\xC3\x84%41%g0"}})
        EXPECT_EQ(KeyOfPart(name), key);
    EXPECT_EQ(RelationshipsOf("/"), "/_rels/.rels");
    EXPECT_EQ(RelationshipsOf("/a/b.c"), "/a/_rels/b.c.rels");
    for (const char* const name : {"a/[1].piece", "a/[1].LAST.Piece"})
        EXPECT_TRUE(ReadPieceName(name) && ReadPieceName(name)->Part == "a" &&
                    ReadPieceName(name)->Number == 1);
    EXPECT_TRUE(ReadPieceName("a/[0].last.piece")->IsLast && !ReadPieceName("a/[0].piece")->IsLast);
    for (const char* const name : {"[0].piece", "a/[01].piece", "a/[].piece", "a/[-1].piece", "a/[1].piece.x",
                                   "a/1.piece", "a/[99999999999999999999].piece", "a/[1.piece"})
        EXPECT_FALSE(ReadPieceName(name)) << name;
}

// What differs here changes nothing of the calls: job ticket and page ticket, none for the document.
TEST(Package, IsReadInEachOfItsForms) {
    const ZipItem job = {"_rels/s.rels", TicketOf("M/j")}, page = {"_rels/p.rels", TicketOf("/M/p")};
    const ZipItem j = {"M/j", "<j/>"}, p = {"M/p", "<p/>"};
    const Items plain = OnePage({job, page, j, p});
    const auto with = [&](const Items& changed) {
        Items items = {job, page, j, p};
        items.insert(items.end(), changed.begin(), changed.end());
        return OnePage(items);
    };
    const std::string open = Relations(Relation(OXPS "/fixedrepresentation", "/s"));
    const std::string others =
        Relation("x", "http://x", " TargetMode=\"External\"") + Relation(XPS "/printticketx", "/s");
    const std::string deflated = "\x01\x04" + std::string(1, '\0') + "\xFB\xFF<j/>";  // one block, not packed
    const std::pair<const char*, std::string> rows[] = {
        {"plain", BuildZip(plain)},
        {"sizes behind", BuildZip(plain, ZipForm::Descriptors)},
        {"64 bits", BuildZip(plain, ZipForm::Wide)},
        {"any order", BuildZip(Items(plain.rbegin(), plain.rend()))},
        {"deflated", BuildZip(with({{"M/j", deflated, 8, 0, Fuzz::Crc32("<j/>"), 4}}))},
        {"OpenXPS",
         BuildZip(with({{"_rels/.rels", open}, {"s", Sequence({"d"}, OXPS)}, {"d", Document({"p"}, OXPS)}}))},
        {"other relationships",
         BuildZip(with({{"_rels/.rels", Relations(others + Relation(XPS "/fixedrepresentation", "s"))}}))},
        {"either case", BuildZip(with({{"s", Sequence({"D"})}, {"d", Document({"%50"})}}))},
        {"UTF-16",
         BuildZip(with({{"s", Utf16(Sequence({"d"}), false)}, {"d", Utf16(Document({"p"}), true)}}))},
        {"folders", BuildZip(with({{"M/", ""}, {"d/", ""}, {"D/", ""}}))},
        {"choices",
         BuildZip(with({{"d", "<FixedDocument xmlns=\"" XPS "\" xmlns:m=\"http://schemas.openxmlformats.org/"
                              "markup-compatibility/2006\"><m:AlternateContent><m:Choice Requires=\"x\">"
                              "<PageContent Source=\"/q\"/></m:Choice><m:Fallback><PageContent Source=\"p\"/>"
                              "</m:Fallback></m:AlternateContent><x xmlns=\"y\"/></FixedDocument>"}}))},
    };
    for (const auto& [form, bytes] : rows)
        EXPECT_EQ(CallsOf(bytes), "2 job.xps/M/j [<j/>]; 1 job.xps: no ticket; 0 job.xps/M/p [<p/>]; ")
            << form;
    const Items pieces = {job,
                          page,
                          {"M/J/[1].piece", "j"},
                          root,
                          {"M/J/[2].last.PIECE", "/>"},
                          {"s", Sequence({"d"})},
                          {"d", Document({"p"})},
                          {"m/j/[0].piece", "<"},
                          {"p", ""},
                          p};
    EXPECT_EQ(CallsOf(BuildZip(pieces)),
              "2 job.xps/m/j [<j/>]; 1 job.xps: no ticket; 0 job.xps/M/p [<p/>]; ");
}

TEST(Package, MakesItsCallsInTheOrderOfItsDocuments) {
    const Items items = OnePage({{"s", Sequence({"x/d", "d", "x/d"})},
                                 {"d", Document({"p", "x/q", "p"})},
                                 {"x/d", Document({"q"})},
                                 {"x/q", ""},
                                 {"x/_rels/d.rels", TicketOf("../t")},
                                 {"_rels/p.rels", TicketOf("/t")},
                                 {"t", "<t/>"}});
    const std::string t = " job.xps/t [<t/>]; ", none = " job.xps: no ticket; ";
    EXPECT_EQ(CallsOf(BuildZip(items)), "2" + none + "1" + t + "0" + none + "1" + none + "0" + t + "0" +
                                            none + "0" + t + "1" + t + "0" + none);
}

TEST(Package, RefusesWhatIsBrokenAndSaysWhere) {
    const std::string one = BuildZip(OnePage());
    std::string deep, tags(480'004, ' '), wide = BuildZip(OnePage(), ZipForm::Wide), many = one;
    for (int depth = 0; depth < 300; ++depth) deep = "<a>" + deep + "</a>";
    for (std::size_t at = 0; at < tags.size(); at += 4) tags.replace(at, 4, "<a/>");
    wide.replace(wide.rfind("PK\6\6") + 32, 3, "\xA1\x86\x01");  // 100,001
    Items heavy = OnePage({{"s", Sequence({})}});
    std::vector<std::string> documents;
    for (int number = 0; number < 17; ++number) {
        documents.push_back("h" + std::to_string(number));
        heavy.push_back({documents.back(), std::string(200'000, 'x'), 0, 0, 0, 16 << 20});
    }
    heavy[1].Packed = Sequence(documents);
    const auto with = [](const Items& changed) { return BuildZip(OnePage(changed)); };
    const auto relations = [&](const std::string& inside) {
        return with({{"_rels/.rels", Relations(inside)}});
    };
    const std::string second = Relation(XPS "/printticket", "d") + Relation(XPS "/printticket", "p");
    const std::pair<std::string, const char*> rows[] = {
        {one.substr(0, one.size() - 1),
         "the directory at the end of the package is missing; it may be cut off"},
        {"PK\3\4", "the directory at the end of the package is missing; it may be cut off"},
        {one + one, "has more than one directory, of which any might count"},
        {wide, "more than 100000 entries"},
        {with({{"p", "", 0, 0, 0, {}, 5000}}), "entries overlap"},
        {with({{"P", ""}}), "/P: more than one entry of this name"},
        {with({{"%70", ""}}), "/%70: more than one entry of this name"},
        {with({{"p/[0].last.piece", ""}}), "/p: more than one entry of this name"},
        {with({{"q/[0].piece", ""}, {"q/[0].last.piece", ""}}), "/q: more than one entry of this name"},
        {BuildZip({{"s", ""}}), "/_rels/.rels: is not in the package"},
        {relations(Relation("x", "s")),
         "/_rels/.rels: leads to no fixed representation, as that of an XPS or OpenXPS package does"},
        {relations("\n<Relationship Target=\"s\"/>"), "/_rels/.rels:2: Relationship has no Type"},
        {relations(Relation(XPS "/fixedrepresentation", "http://x/s", " TargetMode=\"External\"")),
         "/_rels/.rels:1: \"http://x/s\" is not in the package"},
        {relations(Relation(XPS "/fixedrepresentation", "a/..")),
         "/_rels/.rels:1: \"a/..\" names no part of the package"},
        {with({{"_rels/.rels", "<a/>"}}), "/_rels/.rels:1: is no Relationships but a"},
        {with({{"_rels/s.rels", Relations(second)}}),
         "/_rels/s.rels:1: has a second relationship of the type " XPS "/printticket"},
        {with({{"_rels/p.rels", TicketOf("t")}}), "/_rels/p.rels:1: names /t, which is not in the package"},
        {with({{"_rels/p.rels", TicketOf("t")}, {"t", "<a>\n<b></a>"}}),
         "/t:2:8: Opening and ending tag mismatch: b line 2 and a"},
        {with({{"_rels/p.rels", TicketOf("t")}, {"t", deep}}), "/t:1:771: elements more than 256 deep"},
        {with({{"s", Sequence({"d\"/>\n<DocumentReference Source=\"q"})}}),
         "/s:2: names /q, which is not in the package"},
        {with({{"s", "<!DOCTYPE a>\n<a/>"}}), "/s:1:12: a DOCTYPE is not allowed"},
        {with({{"s", Sequence({})}}), "/s:1: holds no DocumentReference"},
        {with({{"s", Document({"d"})}}), "/s:1: is no FixedDocumentSequence but FixedDocument"},
        {with({{"d", Document({}, "x")}}), "/d:1: is no FixedDocument but FixedDocument of x"},
        {with({{"d", Document({"p"})},
               {"s", References("FixedDocumentSequence xmlns=\"" XPS "\"", "PageContent", {"d"})}}),
         "/s:1: holds PageContent where only DocumentReference may stand"},
        {with({{"d", tags}}), "/d: more than 120000 tags and attributes"},
        {with({{"d", "<a>", 0, 1}}), "/d: is encrypted"},
        {with({{"d", "<a>", 12}}), "/d: is packed by method 12, neither stored nor deflated"},
        {with({{"d", "\7\7", 8}}), "/d: Zlib error: data error"},
        {with({{"d", "<a/>", 0, 0, 1}}), "/d: CRC error"},
        {with({{"d", "<a/>", 0, 0, {}, 3}}), "/d: is of another length than the directory says"},
        {with({{"d", "<a/>", 0, 0, {}, (16 << 20) + 1}}), "/d: larger than 16 MiB"},
        {with({{"d", std::string(1000, ' '), 8, 0, 0, 101'000}}),
         "/d: unpacks to more than 100 times its size"},
        {BuildZip(heavy), "more than 256 MiB to read"},
        {with({{"s", Sequence(std::vector<std::string>(101, "d"))},
               {"d", Document(std::vector<std::string>(1000, "p"))}}),
         "more than 100000 documents and pages"},
    };
    for (const auto& [bytes, error] : rows) EXPECT_EQ(CallsOf(bytes), "job.xps: " + std::string(error));
}

class PackageTool : public HostTool {
protected:
    // What a package in a file of the folder holds: the names of its entries with their content.
    std::vector<std::pair<std::string, std::string>> EntriesOf(const std::string& name) const {
        std::vector<std::pair<std::string, std::string>> entries;
        const ZipArchive archive(name, Read(name));
        for (std::uint64_t index = 0; index < archive.Count(); ++index)
            entries.emplace_back(archive.Entry(index).Name, archive.Read(index));
        return entries;
    }
};

// A ticket that the job and a page share, where the job's call alone adds something; a document's, and one in
// pieces, of which the calls of two pages make the same.
TEST_F(PackageTool, WritesThePackageAnewWithItsTickets) {
    const std::string snapshot = DeviceSpecificModule::Narrow(
        DeviceSpecificModule::MakeTicket(
            "<psf:ParameterInit name='ns0000:PageDevmodeSnapshot'/><psf:Feature name='psk:X'/>")
            ->xml());
    const std::string ticket = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><t>\xE4</t>";
    const Items items = OnePage({{"d", Document({"p", "q", "q"})},
                                 {"q", ""},
                                 {"_rels/s.rels", TicketOf("T")},
                                 {"_rels/d.rels", TicketOf("j")},
                                 {"_rels/p.rels", TicketOf("t")},
                                 {"_rels/q.rels", TicketOf("u")},
                                 {"u/[1].last.piece", ticket.substr(30)},
                                 {"j", snapshot},
                                 {"t", snapshot},
                                 {"u/[0].piece", ticket.substr(0, 30)},
                                 {"picture", std::string("\0\x1A\xFF", 3)}});
    Write("job.xps", BuildZip(items, ZipForm::Descriptors));
    const Outcome outcome = Run("convert --format json --out out job.xps");
    EXPECT_EQ(outcome.Errors,
              "tickethost: out/converted.xps: stays as it was, since its calls did not all make the same of "
              "it: /t\n");
    EXPECT_EQ(outcome.Status, 0);
    auto expected = EntriesOf("job.xps");
    std::erase_if(expected, [](const auto& entry) { return entry.first == "u/[1].last.piece"; });
    for (auto& [name, bytes] : expected) {
        if (name == "j") bytes = Read("out/002-ticket.xml");
        if (name == "u/[0].piece") (name = "u", bytes = "<?xml version=\"1.0\"?>\n<t>\xC3\xA4</t>\n");
    }
    EXPECT_EQ(EntriesOf("out/converted.xps"), expected);
    EXPECT_NE(Read("out/002-ticket.xml"), snapshot);
    EXPECT_NE(Read("out/001-ticket.xml"), Read("out/003-ticket.xml"));
    EXPECT_EQ(Run("convert --format json --out out out/converted.xps").Status, 0);
    EXPECT_EQ(Run("convert --format json --out out j.xml").Status, 2);
    Write("j.xml", "<a/>");
    EXPECT_EQ(Run("convert --format json --out out j.xml").Status, 0);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "out/converted.xps"));
}

// Each kind of input, in a file of a misleading name and from the standard input: what it begins with, and
// the heading or the error that comes of it.
TEST_F(PackageTool, TellsInputByItsContent) {
    const std::string manifest =
        R"({"calls":[{"level":0,"ticket":"t.x/M/j"},{"level":1,"ticket":"./t.x/m/J"}]})";
    Write("words", "hello");
    Write("t.x", BuildZip(OnePage({{"M/j", "<a/>"}, {"p", ""}})));
    const std::pair<std::string, std::string> rows[] = {
        {"<a/>", "Call 1 of 1: job level, NAME\n"},
        {"\xEF\xBB\xBF \n<a/>", "Call 1 of 1: job level, NAME\n"},
        {Utf16("<a/>", false), "Call 1 of 1: job level, NAME\n"},
        {Utf16("<a/>", true), "Call 1 of 1: job level, NAME\n"},
        {" \r\n\t" + manifest, "Call 1 of 2: page level, t.x/M/j\n"},
        {"\xEF\xBB\xBF" + manifest, "Call 1 of 2: page level, t.x/M/j\n"},
        {Read("t.x"), "Call 1 of 3: job level, NAME: no ticket\n"},
        {Utf16(manifest, false), "tickethost: NAME:1:1: not UTF-8\n"},
        {"", "tickethost: NAME: is empty\n"},
        {"hello", "tickethost: NAME: neither a ticket (XML) nor a manifest (JSON) nor a package (ZIP)\n"},
        {"PK\3\4",
         "tickethost: NAME: the directory at the end of the package is missing; it may be cut off\n"},
        {R"({"calls":[{"level":0,"ticket":"t.x/M/k"}]})", "tickethost: t.x: /M/k: is not in the package\n"},
        {R"({"calls":[{"level":0,"ticket":"t.x/p"}]})", "tickethost: t.x: /p:1:1: Document is empty\n"},
        {R"({"calls":[{"level":0,"ticket":"words/p"}]})", "tickethost: words/p: Not a directory\n"},
    };
    for (const auto& [bytes, line] : rows) {
        Write("input.json", bytes);
        for (const std::string name : {"input.json", "standard input"}) {
            const Outcome outcome =
                RunShell("\"$TOOL\" convert " + (name == "input.json" ? name : "- <input.json"));
            std::string expected = line;
            if (const std::size_t at = line.find("NAME"); at != line.npos) expected.replace(at, 4, name);
            EXPECT_EQ((outcome.Output + outcome.Errors).substr(0, expected.size()), expected) << bytes;
        }
    }
}

}  // namespace
}  // namespace TicketHost
