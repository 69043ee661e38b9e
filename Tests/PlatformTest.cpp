#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <random>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <vector>

#include "Cases.h"
#include "Platform/Clock.h"
#include "Platform/XmlElement.h"
#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/TicketDocument.h"
#include "devicespecific/platform/WideText.h"

namespace DeviceSpecificModule::Platform {
namespace {

using namespace std::string_literals;
using DeviceSpecificModule::Narrow, DeviceSpecificModule::ReadCases, DeviceSpecificModule::Wide;
using DeviceSpecificModule::ThreadCodePage;

TEST(WideTextTest, NullAndEmptyTexts) {
    alignas(WideText) const unsigned char zeros[sizeof(WideText)] = {};
    EXPECT_TRUE(reinterpret_cast<const WideText*>(zeros)->IsNull());
    WideText null, empty(u"");
    EXPECT_TRUE(null.IsNull() && null.IsEmpty() && null.View().empty());
    EXPECT_TRUE(!empty.IsNull() && empty.IsEmpty() && empty.View().empty());
    EXPECT_TRUE(null == empty && null == u"" && empty == u"" && !(null == WideText(u"a")));
    EXPECT_TRUE(null.Append(u"") && null.IsNull() && null.Append(u"a\0b"s) && null == u"a\0b"s);
    EXPECT_TRUE(empty.Append(u"c") && empty == u"c" && WideText(u"").IsEmpty());
}

TEST(WideTextTest, CopiesAreIndependent) {
    WideText text(u"a");
    const WideText earliest = text;
    ASSERT_TRUE(text.Append(u"b"));
    WideText earlier = text, sibling = text;
    EXPECT_EQ(earlier.View().data(), text.View().data());  // one buffer
    EXPECT_TRUE(text.Append(u"c") && earlier.Append(u"d"));
    EXPECT_TRUE(earliest == u"a" && sibling == u"ab" && earlier == u"abd" && text == u"abc");

    text = sibling = WideText(u"ab");
    for (int doubling = 0; doubling < 3; ++doubling) ASSERT_TRUE(text.Append(text.View()));
    ASSERT_TRUE(text.Append(text.View().substr(15)));
    EXPECT_TRUE(text == u"ababababababababb" && sibling == u"ab");
    const WideText* self = &text;
    text = *self;
    EXPECT_EQ(WideText(std::move(text)).Length(), 17u);
}

// The buffer moves when it has doubled, from 16 units to 131072, also while each earlier state has a holder.
TEST(WideTextTest, ManyPiecesCostTheirLengthOnce) {
    WideText text;
    std::vector<WideText> states;
    int moves = 0;
    for (int piece = 0; piece < 100'000; ++piece) {
        const char16_t* before = text.View().data();
        states.push_back(text);
        ASSERT_TRUE(text.Append(u"x"));
        if (text.View().data() != before) ++moves;
    }
    EXPECT_EQ(moves, 14);
    EXPECT_TRUE(text == std::u16string(100'000, u'x') && states[777] == std::u16string(777, u'x'));
}

TEST(WideTextTest, CopiesGrowOnTwoThreadsAtOnce) {
    for (int round = 0; round < 200; ++round) {
        WideText texts[2] = {WideText(u"begin"), WideText()};
        ASSERT_TRUE(texts[0].Append(u":"));  // there is room behind the text now, for one of the two
        texts[1] = texts[0];
        const auto grow = [&texts](int index) {
            for (int piece = 0; piece < 100; ++piece) texts[index].Append(index == 0 ? u"a" : u"b");
        };
        std::thread other(grow, 1);
        grow(0);
        other.join();
        ASSERT_TRUE(texts[0] == u"begin:" + std::u16string(100, u'a'));
        ASSERT_TRUE(texts[1] == u"begin:" + std::u16string(100, u'b'));
    }
}

std::u16string FromHex(const Json::Value& each, const char* name) {
    std::u16string units;
    for (unsigned time = 0; time < each.get("times", 1).asUInt(); ++time) {
        std::istringstream words(each[name].asString());
        for (unsigned unit; words >> std::hex >> unit;) units += static_cast<char16_t>(unit);
    }
    return units;
}

TEST(CodePagesTest, WhatHasNoFormIsReplaced) {
    for (const Json::Value& each : ReadCases("platform/codepages.json")) {
        const ThreadCodePage page(each["page"].asString());
        const std::u16string units = FromHex(each, "bytes");
        const std::string bytes(units.begin(), units.end());
        std::string narrow;
        WideText wide;
        EXPECT_TRUE(each.isMember("from")
                        ? ConvertFromWide(CodePage::Thread, FromHex(each, "from"), narrow) && narrow == bytes
                        : ConvertToWide(CodePage::Thread, bytes, wide) && wide == FromHex(each, "to"))
            << each.toStyledString() << Narrow(wide) << narrow;
    }
}

// Code pages with shift states, byte order marks and characters of several units among them; random texts,
// with lone surrogates and characters that no code page has.
TEST(CodePagesTest, SecretsBecomeTheSameBytes) {
    const char* const pages[] = {"UTF-8",  "ISO-8859-15", "ISO-2022-JP",  "ISO-2022-KR", "UTF-7",
                                 "UTF-16", "BIG5-HKSCS",  "EUC-JISX0213", "GB18030",     "TCVN5712-1"};
    constexpr std::u16string_view alphabet =
        u"aZ~\\\u00E9\u20AC\u00CA\u0304\u030C\u304B\u309A\u6F22\uAC00\uFFFD\xD83D\xDE00\xD840\xDC0B\0";
    std::mt19937 random(5);
    for (const char* page : pages) {
        const ThreadCodePage own(page);
        for (int round = 0; round < 300; ++round) {
            std::u16string units;
            for (std::size_t length = random() % 12; length > 0; --length)
                units += alphabet[random() % alphabet.size()];
            std::string whole, pieces;
            const auto take = [&pieces](std::string_view piece) { pieces += piece; };
            ASSERT_TRUE(ConvertFromWide(CodePage::Thread, units, whole));
            ASSERT_TRUE(ConvertSecretFromWide(CodePage::Thread, units, take));
            EXPECT_EQ(whole, pieces) << page << " " << Narrow(WideText(units));
        }
    }
    const ThreadCodePage unknown("no such page");
    EXPECT_FALSE(ConvertSecretFromWide(CodePage::Thread, u"a", [](std::string_view) { FAIL(); }));
}

TEST(CodePagesTest, EachThreadHasItsOwn) {
    const ThreadCodePage unknown("no such page");
    std::string bytes = "old";
    WideText text(u"old");
    EXPECT_FALSE(ConvertFromWide(CodePage::Thread, u"a", bytes) || bytes != "old");
    EXPECT_FALSE(ConvertToWide(CodePage::Thread, "a", text) || text != u"old");
    EXPECT_TRUE(ConvertToWide(CodePage::Utf8, "\xC3\xA9", text) && text == u"\u00E9");
    setenv("LC_ALL", "C", 1);
    EXPECT_TRUE(ConvertToWide(CodePage::System, "\xC3\xA8", text) && text == u"\u00E8");
    const ThreadCodePage latin("ISO-8859-1");
    EXPECT_TRUE(ConvertToWide(CodePage::Thread, "\xC3\xA9", text) && text == u"\u00C3\u00A9");
    std::thread([&text] { EXPECT_TRUE(ConvertToWide(CodePage::Thread, "\xC3\xA9", text)); }).join();
    EXPECT_TRUE(text == u"\u00E9");
}

TEST(ClockTest, YearsThatCantBeCounted) {
    LocalTime time{.Year = 1};
    const std::int64_t twoDays = 172'800, endOfLastYear = 67'767'976'233'532'800;  // in UTC
    EXPECT_FALSE(ToLocalTime(endOfLastYear + twoDays, time) || ToLocalTime(INT64_MAX, time));
    EXPECT_EQ(time.Year, 1);
    EXPECT_TRUE(ToLocalTime(endOfLastYear - twoDays, time) && time.Year == 2147483647);
}

TicketDocument Load(std::string_view xml) {
    ParseError error;
    TicketDocument document = LoadTicketDocument(Wide(xml), error);
    if (!document) throw std::runtime_error(std::string(xml) + ": " + error.Reason);
    return document;
}

TicketNode Find(const TicketDocument& document, std::u16string_view query) {
    TicketNode node;
    EXPECT_TRUE(document->selectSingleNode(query, node));
    return node;
}

std::string TextAt(const TicketDocument& document, std::string_view query) {
    TicketNode node = Find(document, u"/");
    if (!document->selectSingleNode(Wide(query).View(), node))
        return node ? "refused with a node" : "refused";
    return node ? Narrow(node->text()) : "no node";
}

TEST(TicketDocumentTest, Queries) {
    const TicketDocument document = Load(
        "<a:root xmlns:a='urn:a' xmlns:b='urn:b'><a:item name='b:one'>1<a:item>2</a:item></a:item>"
        "<item>3</item><a:item name='b:two'>4</a:item></a:root>");
    ASSERT_TRUE(document->setProperty(u"SelectionNamespaces", u" xmlns:x='urn:a'\r\n\txmlns:y=\"urn:b\" "));
    for (const Json::Value& each : ReadCases("platform/namespaces.json"))
        EXPECT_FALSE(document->setProperty(u"SelectionNamespaces", Wide(each.asString()).View()))
            << each.asString();
    EXPECT_FALSE(document->setProperty(u"AnotherName", u"xmlns:x='urn:none'"));

    testing::internal::CaptureStderr();
    for (const Json::Value& each : ReadCases("platform/queries.json"))
        EXPECT_EQ(TextAt(document, each[0].asString()), each[1].asString()) << each[0].asString();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");

    ASSERT_TRUE(document->setProperty(u"SelectionNamespaces", u"xmlns:y='urn:a'"));
    EXPECT_EQ(TextAt(document, "//y:item"), "12");
    ASSERT_TRUE(document->loadXML(Wide("<item xmlns='urn:a'>5</item>")));
    EXPECT_EQ(TextAt(document, "//y:item"), "5");
}

TEST(TicketDocumentTest, TextsAreExact) {
    const TicketDocument document =
        Load("<a b=' &lt;&#10;'>  x\r\n<!--no--><![CDATA[<&]]><?no no?>&#13;&amp;<c> y </c></a>");
    EXPECT_EQ(TextAt(document, "/"), "  x\n<&\r& y ");
    EXPECT_EQ(TextAt(document, "/a/@b"), " <\n");
    EXPECT_EQ(TextAt(document, "//comment()"), "no");
    EXPECT_EQ(Find(document, u"/a")->childNodesLength(), 6u);

    for (const Json::Value& each : ReadCases("platform/settexts.json")) {
        const WideText text = Wide(each[0].asString());
        EXPECT_TRUE(Find(document, u"/a/@b")->setText(text) && Find(document, u"/a")->setText(text));
        EXPECT_EQ(Narrow(document->xml()), each[1].asString());
        EXPECT_EQ(Find(document, u"/a")->childNodesLength(), text.IsEmpty() ? 0u : 1u);
        EXPECT_TRUE(document->loadXML(document->xml()));
    }
    for (const char16_t* query : {u"/", u"//comment()", u"//text()"})
        EXPECT_FALSE(Find(Load("<a><!--c-->t</a>"), query)->setText(WideText(u"x")));
}

TEST(TicketDocumentTest, RemovedNodesStayUsable) {
    const TicketDocument document = Load("<a> <b c='1'>x<d>y</d>z</b> </a>"), another = Load("<a><b/></a>");
    const TicketNode root = Find(document, u"/a"), b = Find(document, u"//b"), c = Find(document, u"//@c"),
                     d = Find(document, u"//d");
    EXPECT_TRUE(!Find(document, u"/")->parentNode() && !c->parentNode());
    for (const TicketNode& stranger : {TicketNode(), root, c, d, Find(another, u"//b")})
        EXPECT_FALSE(root->removeChild(stranger));
    EXPECT_TRUE(b->parentNode()->removeChild(b) && !root->removeChild(b) && !b->parentNode());
    EXPECT_EQ(Narrow(document->xml()), "<?xml version=\"1.0\"?>\n<a>  </a>\n");
    EXPECT_TRUE(b->text() == u"xyz" && b->setText(WideText(u"new")) && b->text() == u"new" &&
                d->text() == u"y" && c->text() == u"1");
    EXPECT_TRUE(document->loadXML(Wide("<a>reloaded</a>")));
    EXPECT_TRUE(root->text() == u"  " && b->text() == u"new" && root->setText(WideText(u"old")));
    EXPECT_EQ(TextAt(document, "/a"), "reloaded");
    EXPECT_FALSE(Find(document, u"/")->removeChild(root));
}

TEST(TicketDocumentTest, RefusedTextsChangeNothing) {
    const TicketDocument document = Load("<a>as it was</a>");
    for (const Json::Value& each : ReadCases("platform/refusals.json")) {
        const std::string xml = each["xml"].asString();
        ParseError error;
        EXPECT_FALSE(document->loadXML(Wide(xml), &error)) << xml;
        EXPECT_EQ(error.Line, each["line"].asInt()) << xml;
        EXPECT_GT(error.Column, 0) << xml;
        EXPECT_NE(error.Reason.find(each["reason"].asString()), std::string::npos) << error.Reason;
        EXPECT_EQ(error.Reason.find('\n'), std::string::npos) << error.Reason;
    }
    EXPECT_TRUE(!document->loadXML(WideText()) && TextAt(document, "/a") == "as it was");
    ParseError error;
    EXPECT_EQ(LoadTicketDocument(std::string_view(), error), nullptr);
    EXPECT_NE(error.Reason, "");
}

// In pieces: the letters, the reference and the letter of two bytes.
TEST(TicketDocumentTest, TextsEndAt10MillionBytes) {
    ParseError error;
    std::string bytes = "<a>" + std::string(9'999'998, 'x') + "&amp;\u00E9</a>";
    EXPECT_EQ(LoadTicketDocument(std::string_view(bytes), error), nullptr);
    EXPECT_NE(error.Reason.find("10 million"), std::string::npos) << error.Reason;
    bytes.erase(3, 1);
    const TicketDocument document = LoadTicketDocument(std::string_view(bytes), error);
    ASSERT_NE(document, nullptr) << error.Reason;
    EXPECT_TRUE(document->loadXML(document->xml(), &error)) << error.Reason;  // what was taken is taken again
}

// What the parser's cost would grow with the square of.
TEST(TicketDocumentTest, ElementsAreNotCrowded) {
    const auto refusal = [](const std::string& xml) {
        ParseError error;
        const bool taken = LoadTicketDocument(std::string_view(xml), error) != nullptr;
        return taken ? "taken"
                     : std::to_string(error.Line) + ":" + std::to_string(error.Column) + " " + error.Reason;
    };
    const auto many = [](const std::string& front, int count) {
        std::string attributes;
        for (int at = 0; at < count; ++at)
            attributes += " " + front + std::to_string(at) + (at % 2 == 0 ? "='=\">'" : "=\"='>\"");
        return attributes;
    };
    const auto utf16 = [](const std::string& ascii) {
        std::string bytes = "\xFE\xFF";
        for (const char each : ascii) bytes.append(1, '\0').append(1, each);
        return bytes;
    };
    const std::string most = "<a>\n<b" + many("c", 256) + "/></a>",
                      tooMany = "<a>\n <b" + many("c", 257) + "/></a>";
    const std::string tooManyReason = "2:2 an element of more than 256 attributes";
    EXPECT_EQ(refusal(most), "taken");
    EXPECT_EQ(refusal(tooMany), tooManyReason);
    EXPECT_EQ(refusal(utf16(most)), "taken");
    EXPECT_EQ(refusal(utf16(tooMany)), tooManyReason);
    EXPECT_EQ(refusal("<a b='" + std::string(1000, '=') + "'><!--<b" + many("c", 300) + "--></a>"), "taken");
    EXPECT_EQ(refusal("<a><?b" + many("c", 300) + "?></a>"), "taken");
    std::string nested, end;
    for (int depth = 0; depth < 4; ++depth) {
        nested += "<a" + many("xmlns:p" + std::to_string(depth) + "x", 250) + ">";
        end += "</a>";
    }
    EXPECT_EQ(refusal(nested + end), "taken");
    EXPECT_NE(refusal(nested + "<a xmlns:q='u'/>" + end).find("more than 1000 namespaces"),
              std::string::npos);
}

TEST(TicketDocumentTest, XmlKeepsTheDocument) {
    for (const Json::Value& each : ReadCases("platform/documents.json")) {
        const TicketDocument document = Load(each[0].asString());
        EXPECT_TRUE(document->loadXML(document->xml())) << each[1].asString();
        EXPECT_EQ(Narrow(document->xml()), each[1].asString());
    }
}

TEST(XmlElementTest, WhatIsWrittenReadsTheSame) {
    const std::string odd = "a<b>&\"'\r\n\t ]]>&amp;\xC3\xA9\xF0\x9F\x98\x80";
    const XmlElement root{.Name = {"p", "a", ""},
                          .Namespaces = {{"p", "urn:p"}, {"", "urn:default"}},
                          .Attributes = {{{"p", "x", ""}, odd}, {{"", "y", ""}, ""}},
                          .Text = "",
                          .Children = {{{"", "b", ""}, {}, {}, odd, {}}, {{"p", "c", ""}, {}, {}, "", {}}}};
    ParseError error;
    const std::string written = WriteXml(root);
    const auto read = ReadXml(written, error);
    ASSERT_TRUE(read) << error.Reason << written;
    EXPECT_TRUE(written.ends_with("\n  <p:c/>\n</p:a>\n")) << written;
    EXPECT_TRUE(written.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<p:a ")) << written;
    EXPECT_EQ(read->Name.Namespace + read->Attributes.at(0).Name.Namespace, "urn:purn:p");
    EXPECT_EQ(read->Attributes.at(0).Value + "|" + read->Attributes.at(1).Value, odd + "|");
    EXPECT_EQ(read->Children.at(0).Text, odd);
    EXPECT_EQ(read->Children.at(0).Name.Namespace, "urn:default");
    EXPECT_EQ(read->Children.at(1).Name.Namespace, "urn:p");
}

TEST(XmlElementTest, LinesAreKnownAsFarAsTheyAreCounted) {
    for (const auto& [lines, line] : {std::pair(65'533, 65'534), std::pair(65'534, 0)}) {
        ParseError error;
        const auto read =
            ReadXml("<a>" + std::string(static_cast<std::size_t>(lines), '\n') + "<b/></a>", error);
        ASSERT_TRUE(read) << error.Reason;
        EXPECT_EQ(read->Children.at(0).Line, line);
    }
}

// What documents leave for the next ones has an end, in number and in size: of 40 times 1.6 MB of names at
// most 16 times 64 KiB.
TEST(TicketDocumentTest, LittleStaysOfManyLongNames) {
    const auto used = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };  // nothing under a sanitizer
    std::string names;
    for (int count = 0; count < 40; ++count)
        names += "<a" + std::to_string(count) + std::string(40'000, 'x') + "/>";
    const std::string xml = "<a>new" + names + "</a>";
    const std::size_t before = used();
    std::vector<TicketDocument> documents;
    for (int count = 0; count < 40; ++count) documents.push_back(Load(xml));
    documents.clear();
    EXPECT_LE(used(), before + 2'000'000);
    EXPECT_EQ(TextAt(Load(xml), "/a"), "new");
}

TEST(TicketDocumentTest, EncodingsOfBytes) {
    for (const Json::Value& each : ReadCases("platform/encodings.json")) {
        std::string bytes;
        const WideText characters = Wide(each[0].asString());
        for (const char16_t unit : characters.View()) bytes += static_cast<char>(unit);
        ParseError error;
        const TicketDocument document = LoadTicketDocument(std::string_view(bytes), error);
        EXPECT_EQ(document ? Narrow(document->xml()) : "refused", each[1].asString()) << error.Reason;
    }
}

TEST(TicketDocumentTest, DocumentsOnSeveralThreads) {
    const auto work = [] {
        const TicketDocument document = Load("<a><b c='p:x'>1</b><b c='p:y'>2</b></a>");
        for (int round = 0; round < 200; ++round) {
            EXPECT_EQ(TextAt(document, "a/b[substring-after(@c,':')='y']"), "2");
            EXPECT_EQ(TextAt(document, "//b[none()]"), "refused");
            EXPECT_TRUE(Find(document, u"//b")->setText(WideText(u"3")));
            EXPECT_TRUE(document->loadXML(document->xml()));
        }
    };
    std::vector<std::jthread> threads;
    while (threads.size() < 4) threads.emplace_back(work);
}

}  // namespace
}  // namespace DeviceSpecificModule::Platform
