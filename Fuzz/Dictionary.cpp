#include <cctype>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <string>

#include "Contract.h"
#include "stages/FeatureEngine.h"
#include "stages/FeatureLists.h"
#include "tables/CarbonCopyAndPerPageKeywords.h"
#include "tables/CopySecurityKeywords.h"
#include "tables/FinishingKeywords.h"
#include "tables/JobKeywords.h"
#include "tables/OptionTables.h"
#include "tables/OutputKeywords.h"
#include "tables/OverlayKeywords.h"
#include "tables/QualityKeywords.h"
#include "tables/StampKeywords.h"

// Writes the module's vocabulary as a dictionary for libFuzzer: the keywords of all tables, the names of the
// settings in the stages' lists, and whatever the sample tickets that are its arguments hold between quotes
// or as the name of an element.

namespace {

using namespace DeviceSpecificModule;

class Words {
public:
    void Add(const std::string& word) {
        if (!word.empty()) words_.insert(word);
    }
    void Add(std::u16string_view word) { Add(Fuzz::Narrow(word)); }
    void AddAll(KeywordCommandTable table) {
        for (const KeywordCommand& row : table) Add(row.Keyword);
    }
    void AddAll(FeatureList list) {
        for (const FeatureRow& row : list) {
            Add(row.Feature);
            Add(row.Gate.value_or(u""));
            Add(row.Parameter.value_or(u""));
        }
    }
    void AddAll(std::span<const OptionRecord> table) {
        for (const OptionRecord& row : table) {
            Add(row.Keyword.View());
            Add(row.PairedKeyword.View());
        }
    }
    void AddAll(const std::string& text) {
        std::string word;
        for (const char each : text) {
            const bool isPart = std::isalnum(static_cast<unsigned char>(each)) != 0 || each == ':' ||
                                each == '_' || each == '/' || each == '.' || each == '-';
            if (isPart) word += each;
            if (isPart) continue;
            if (word.size() > 1) words_.insert(word);
            word.clear();
        }
    }
    void Write(std::ostream& out) const {
        for (const std::string& word : words_) {
            out << '"';
            for (const char each : word) {
                char code[8];
                std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned char>(each));
                const bool isPlain = each >= 0x20 && each < 0x7F && each != '"' && each != '\\';
                out << (isPlain ? std::string(1, each) : std::string(code));
            }
            out << "\"\n";
        }
    }

private:
    std::set<std::string> words_;
};

void AddVocabulary(Words& words) {
#define T(name) words.AddAll(name##CommandTable);
#include "Data/tables/keyword-tables.inc"
#undef T
#define L(name) words.AddAll(name##List);
#include "Data/stages/feature-lists.inc"
#undef L
    for (const auto table :
         {MediaSizeRecords(), MediaTypeRecords(), InputBinRecords(), SimplexPageModeRecords(),
          DuplexPageModeRecords(), OrientationRecords(), OutputBinRecords()})
        words.AddAll(table);
}

// What means something to the forms in which the vocabulary comes.
constexpr std::string_view forms[] = {
    "\n%%\n", "%s",         "<![CDATA[", "]]>", "<!--",     "-->",  "<?p i?>", "&lt;",      "&amp;",
    "&#13;",  "xmlns=",     "xml:",      "/>",  "</",       "{\"",  "\":\"",   "\",\"",     "\":[{",
    "0x",     "4294967295", "-1",        "\\u", "\xC2\x9B", "\r\n", "\x1B",    "2147483648"};

}  // namespace

int main(int count, char** files) {
    Words words;
    AddVocabulary(words);
    for (const std::string_view form : forms) words.Add(std::string(form));
    for (int at = 1; at < count; ++at) {
        std::ifstream file(files[at]);
        words.AddAll(std::string(std::istreambuf_iterator<char>(file), {}));
    }
    words.Write(std::cout);
    return std::cout.flush() ? 0 : 1;
}
