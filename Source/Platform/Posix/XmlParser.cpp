#include "XmlParser.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <functional>
#include <mutex>
#include <new>
#include <thread>
#include <utility>

namespace DeviceSpecificModule::Platform {
namespace {

constexpr int mostElementsDeep = 256;
constexpr int longestText = 10'000'000;
constexpr int mostNamespaces = 1000;         // in scope
constexpr std::size_t mostAttributes = 256;  // of an element, declarations of namespaces among them

// What a parse must know beside its document: what went wrong first, and the text that is growing.
struct ParseRecord {
    ParseError Error;
    bool Failed = false;
    bool OutOfMemory = false;
    const xmlNode* Text = nullptr;
    int TextLength = 0;  // in bytes of UTF-8

    // Reasons come from the parser with line ends.
    void Note(int line, int column, const char* reason) noexcept {
        if (std::exchange(Failed, true)) return;
        try {
            Error = {line, column, reason};
        } catch (const std::bad_alloc&) {
            OutOfMemory = true;
        }
        while (Error.Reason.ends_with('\n')) Error.Reason.pop_back();
        std::ranges::replace(Error.Reason, '\n', ' ');
    }
};

ParseRecord& RecordOf(void* parser) {
    return *static_cast<ParseRecord*>(static_cast<xmlParserCtxtPtr>(parser)->_private);
}

void Refuse(void* context, const char* reason) {
    auto* parser = static_cast<xmlParserCtxtPtr>(context);
    RecordOf(parser).Note(parser->input->line, parser->input->col, reason);
    xmlStopParser(parser);
}

// The parser takes the name of a namespace for empty when it has no memory for it; also when it has just
// refused the name's first character. It stands behind the value's end then, and of an empty value the two
// quotes are side by side.
bool LacksMemoryForName(void* parser, const char* reason) {
    const xmlParserInput* input = static_cast<xmlParserCtxtPtr>(parser)->input;
    return std::string_view(reason).find("Empty XML namespace") != std::string_view::npos &&
           input->cur - input->base >= 2 && input->cur[-1] != input->cur[-2];
}

void OnParseError(void* parser, xmlErrorPtr error) {
    // The names of namespaces needn't be addresses, only differ, and what "xml:id" may hold is no matter of
    // form.
    for (const int ignored : {XML_WAR_NS_URI, XML_DTD_XMLID_VALUE, XML_DTD_ID_REDEFINED})
        if (error->code == ignored) return;
    if (error->level < XML_ERR_ERROR) return;
    ParseRecord& record = RecordOf(parser);
    if (error->code == XML_ERR_NO_MEMORY || error->message == nullptr ||
        (!record.Failed && LacksMemoryForName(parser, error->message)))
        record.OutOfMemory = true;
    record.Note(error->line, error->int2, error->message == nullptr ? "" : error->message);
}

// A document type may name files to fetch and entities to expand, and no ticket has one.
void OnDocumentType(void* parser, const xmlChar*, const xmlChar*, const xmlChar*) {
    Refuse(parser, "a DOCTYPE is not allowed");
}

// The parser's own limits on depth and length depend on its version and on the encoding; these don't, so that
// what was taken from a file is taken again when its text comes back.
void OnElement(void* parser, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
               int namespaceCount, const xmlChar** namespaces, int attributeCount, int defaultCount,
               const xmlChar** attributes) {
    if (static_cast<xmlParserCtxtPtr>(parser)->nodeNr >= mostElementsDeep)
        return Refuse(parser, "elements more than 256 deep");
    if (static_cast<xmlParserCtxtPtr>(parser)->nsNr > 2 * mostNamespaces)  // prefix and name of each
        return Refuse(parser, "more than 1000 namespaces in scope");
    for (int at = 1; at < 2 * namespaceCount; at += 2)
        if (View(namespaces[at]).find_first_of("<&\t\r\n") != std::string_view::npos)
            return Refuse(parser, "a namespace whose name would not come back as it is");
    xmlSAX2StartElementNs(parser, name, prefix, uri, namespaceCount, namespaces, attributeCount, defaultCount,
                          attributes);
}

// Called once or more for each text; the pieces of one text grow one node.
void OnCharacters(void* context, const xmlChar* characters, int length) {
    const auto* parser = static_cast<xmlParserCtxtPtr>(context);
    ParseRecord& record = RecordOf(context);
    if (parser->node == nullptr || parser->node->last != record.Text) record.TextLength = 0;
    if (length > longestText - record.TextLength)
        return Refuse(context, "a text of more than 10 million bytes");
    xmlSAX2Characters(context, characters, length);
    record.TextLength += length;
    record.Text = parser->node == nullptr ? nullptr : parser->node->last;
}

// The bytes with one for each character of markup, where they are in UTF-16.
std::string_view MarkupOf(std::string_view bytes, std::string& room) {
    const bool bigEnd = bytes.starts_with("\xFE\xFF") || bytes.starts_with(std::string_view("\0<", 2));
    if (!bigEnd && !bytes.starts_with("\xFF\xFE") && !bytes.starts_with(std::string_view("<\0", 2)))
        return bytes;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2)
        room += bytes[bigEnd ? at : at + 1] == '\0' ? bytes[bigEnd ? at + 1 : at] : '?';
    return room;
}

// Whether a tag that begins here has more attributes than it may. Their values hold no "<".
bool IsCrowded(std::string_view tag) {
    if (std::ranges::count(tag, '=') <= static_cast<std::ptrdiff_t>(mostAttributes)) return false;
    std::size_t attributes = 0;
    for (std::size_t at = 0; at < tag.size() && tag[at] != '>'; ++at) {
        if (tag[at] != '"' && tag[at] != '\'') continue;
        at = std::min(tag.find(tag[at], at + 1), tag.size());
        ++attributes;
    }
    return attributes > mostAttributes && tag[1] != '!' && tag[1] != '?';
}

// Where the next tag begins behind what begins here: what looks like a tag in a comment is none.
std::size_t NextTag(std::string_view xml, std::size_t at) {
    using Form = std::pair<std::string_view, std::string_view>;
    for (const auto& [begin, end] : {Form{"<!--", "-->"}, Form{"<![CDATA[", "]]>"}, Form{"<?", "?>"}})
        if (xml.substr(at).starts_with(begin)) return xml.find('<', xml.find(end, at));
    return xml.find('<', at + 1);
}

// Refuses an element of too many attributes ahead of the parser, which compares each of them with all others.
void RefuseCrowdedElements(std::string_view bytes, ParseRecord& record) {
    std::string room;
    const std::string_view xml = MarkupOf(bytes, room);
    for (std::size_t at = xml.find('<'), next; at != xml.npos; at = next) {
        next = NextTag(xml, at);
        if (!IsCrowded(xml.substr(at, next - at))) continue;
        const std::string_view before = xml.substr(0, at);
        const auto line = 1 + std::ranges::count(before, '\n');
        const auto column = at - (before.rfind('\n') + 1) + 1;
        return record.Note(static_cast<int>(line), static_cast<int>(column),
                           "an element of more than 256 attributes");
    }
}

using Parser = std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)>;

// Dictionaries of names that documents left, for the next ones. The library takes a lock of the whole process
// to free one. They belong to no thread: what is destroyed with its thread costs memory when the thread first
// uses it, and the C library ends the process when it has none.
class KeptDictionaries {
public:
    ~KeptDictionaries() {
        for (std::atomic<xmlDictPtr>& place : places_) xmlDictFree(place.exchange(nullptr));
    }
    // Null when there is none.
    xmlDictPtr Take() {
        for (std::size_t at = 0, first = FirstPlace(); at < places; ++at) {
            std::atomic<xmlDictPtr>& place = places_[(first + at) % places];
            if (place.load(std::memory_order_relaxed) == nullptr) continue;
            if (const xmlDictPtr taken = place.exchange(nullptr)) return taken;
        }
        return nullptr;
    }
    // False when all places are taken.
    bool Keep(xmlDictPtr dictionary) {
        for (std::size_t at = 0, first = FirstPlace(); at < places; ++at) {
            xmlDictPtr none = nullptr;
            if (places_[(first + at) % places].compare_exchange_strong(none, dictionary)) return true;
        }
        return false;
    }

private:
    static constexpr std::size_t places = 16;

    // Mostly a thread's own.
    static std::size_t FirstPlace() { return std::hash<std::thread::id>()(std::this_thread::get_id()); }

    std::atomic<xmlDictPtr> places_[places] = {};
};
constinit KeptDictionaries kept;

// Names of one host's tickets are mostly the same; others' don't pile up.
constexpr std::size_t mostKept = 65'536;  // bytes

Parser NewParser(ParseRecord& record, xmlDictPtr dictionary) {
    Parser parser(xmlNewParserCtxt(), xmlFreeParserCtxt);
    if (!parser) ThrowResult(ResultOutOfMemory);
    if (dictionary == nullptr)
        dictionary = kept.Take();
    else
        xmlDictReference(dictionary);
    if (dictionary != nullptr) xmlDictFree(std::exchange(parser->dict, dictionary));
    parser->_private = &record;
    parser->sax->serror = OnParseError;
    parser->sax->internalSubset = OnDocumentType;
    parser->sax->startElementNs = OnElement;
    parser->sax->characters = OnCharacters;
    parser->sax->ignorableWhitespace = OnCharacters;
    return parser;
}

std::unique_ptr<Tree> ParseInto(ParseRecord& record, std::string_view bytes, Encoding encoding,
                                xmlDictPtr dictionary) {
    if (bytes.size() > INT_MAX) {
        record.Note(0, 0, "a document of 2 GiB or more");
        return nullptr;
    }
    // The parser would guess at an encoding of wider units.
    if (encoding == Encoding::Utf8 && bytes.substr(0, 4).find('\0') != bytes.npos) {
        record.Note(1, 1, "a zero character");
        return nullptr;
    }
    RefuseCrowdedElements(bytes, record);
    if (record.Failed) return nullptr;
    const Parser parser = NewParser(record, dictionary);
    const int options = XML_PARSE_NONET | (encoding == Encoding::Utf8 ? XML_PARSE_IGNORE_ENC : 0);
    OwnedDocument document(xmlCtxtReadMemory(parser.get(), bytes.data() == nullptr ? "" : bytes.data(),
                                             static_cast<int>(bytes.size()), nullptr, nullptr, options),
                           xmlFreeDoc);
    if (!document) record.Note(0, 0, "not well-formed");
    // The parser takes a zero character behind the root element for the end.
    if (!record.Failed && parser->input->cur < parser->input->end) Refuse(parser.get(), "a zero character");
    if (record.Failed) return nullptr;
    auto tree = std::make_unique<Tree>(std::move(document));
    tree->Bytes = bytes.size();
    tree->SharesDictionary = dictionary != nullptr;
    return tree;
}

}  // namespace

Tree::~Tree() {
    Context.reset();
    FreeRemoved();
    xmlFreeNodeList(std::exchange(Document->children, nullptr));  // whose names the dictionary may hold
    const xmlDictPtr dictionary = std::exchange(Document->dict, nullptr);
    xmlFreeDoc(Document);
    if (SharesDictionary || xmlDictGetUsage(dictionary) > mostKept || !kept.Keep(dictionary))
        xmlDictFree(dictionary);
}

std::unique_ptr<Tree> Parse(std::string_view bytes, Encoding encoding, ParseError* error,
                            xmlDictPtr dictionary) {
    // Ahead of all else that touches the library, which several threads must not be the first to use.
    static std::once_flag once;
    std::call_once(once, [] {
        const MemoryWatch silence;
        xmlInitParser();
    });
    const MemoryWatch watch;
    ParseRecord record;
    std::unique_ptr<Tree> tree = ParseInto(record, bytes, encoding, dictionary);
    watch.ThrowIfExhausted();
    if (record.OutOfMemory) ThrowResult(ResultOutOfMemory);
    if (!tree && error != nullptr) *error = std::move(record.Error);
    return tree;
}

}  // namespace DeviceSpecificModule::Platform
