#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "Cases.h"
#include "devicespecific/ExportedTables.h"
#include "tables/CarbonCopyAndPerPageKeywords.h"
#include "tables/CopySecurityKeywords.h"
#include "tables/FinishingKeywords.h"
#include "tables/JobKeywords.h"
#include "tables/OptionTables.h"
#include "tables/OutputKeywords.h"
#include "tables/OverlayKeywords.h"
#include "tables/QualityKeywords.h"
#include "tables/StampKeywords.h"

namespace DeviceSpecificModule {
namespace {

using Fields = std::vector<std::string>;

// The rows of a data file, of so many fields each. A file without rows fails the test.
std::vector<Fields> ReadRows(const std::string& name, std::size_t columns) {
    std::ifstream file(TEST_DATA_DIR "/tables/" + name + ".tsv");
    std::vector<Fields> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) continue;
        std::istringstream cells(line + '\t');
        rows.emplace_back();
        for (std::string cell; std::getline(cells, cell, '\t');) rows.back().push_back(cell);
        EXPECT_EQ(columns, rows.back().size()) << name << ": " << line;
    }
    EXPECT_FALSE(rows.empty()) << name << " holds no rows";
    return rows;
}

// A text in the form of the data files, so that two texts have the same form only if they are the same.
std::string Written(std::u16string_view text) {
    std::string written;
    for (const char16_t unit : text) {
        const std::size_t escaped = std::u16string_view(u"\r\n\\").find(unit);
        if (escaped != std::u16string_view::npos)
            written += {'\\', "rn\\"[escaped]};
        else if (unit >= u' ' && unit <= u'~')
            written += static_cast<char>(unit);
        else
            written += "\\{" + std::to_string(static_cast<unsigned>(unit)) + "}";
    }
    return written;
}

Fields FieldsOf(const OptionRecord& record) {
    using Record = OptionRecord;
    Fields fields{std::to_string(record.Id)};
    for (WideText Record::*const text :
         {&Record::Keyword, &Record::PairedKeyword, &Record::TicketFragment, &Record::JobCommand,
          &Record::FourInOneJobCommand, &Record::NamespacePrefix, &Record::PostScriptCommand,
          &Record::DataCommand, &Record::ExtraText, &Record::DeviceName})
        fields.push_back((record.*text).IsNull() ? "(null)" : Written((record.*text).View()));
    return fields;
}

void ExpectRows(const std::string& place, const std::vector<Fields>& expected,
                std::span<const OptionRecord> rows) {
    for (std::size_t row = 0; row < std::min(expected.size(), rows.size() - 1); ++row)
        ASSERT_EQ(expected[row], FieldsOf(rows[row])) << place << " in Tests/Data/tables, row " << row + 1;
    ASSERT_EQ(expected.size() + 1, rows.size()) << place << " in Tests/Data/tables, and the row that ends it";
    EXPECT_EQ(FieldsOf(OptionRecord{}), FieldsOf(rows.back())) << place << ", last row";
}

TEST(OptionTables, HoldTheirRowsAndGiveTheHostCopies) {
    const struct {
        const char* Name;
        std::span<const OptionRecord> Rows;
        std::int32_t (*GetSize)(std::uint32_t*);  // null for a table that is not given to hosts
        std::int32_t (*Copy)(OptionRecord*);
    } tables[] = {
        {"media-sizes", MediaSizeRecords(), GetSizeOfPageMediaSize, GetPageMediaSize},
        {"media-types", MediaTypeRecords(), GetSizeOfPageMediaType, GetPageMediaType},
        {"input-bins", InputBinRecords(), GetSizeOfPageInputBin, GetPageInputBin},
        {"simplex-page-modes", SimplexPageModeRecords(), GetSizeOfSimplexPageMode, GetSimplexPageMode},
        {"duplex-page-modes", DuplexPageModeRecords(), GetSizeOfDuplexPageMode, GetDuplexPageMode},
        {"orientation", OrientationRecords(), nullptr, nullptr},
        {"output-bins", OutputBinRecords(), nullptr, nullptr},
    };
    for (const auto& [name, rows, getSize, copy] : tables) {
        const std::vector<Fields> expected = ReadRows(name, 11);
        ExpectRows(name, expected, rows);
        if (getSize == nullptr) continue;
        std::uint32_t count = 0xFFFFFFFF;
        EXPECT_EQ(1, getSize(&count)) << name;
        ASSERT_EQ(expected.size() + 1, count) << name;

        // An array as a host in C makes it: of cleared memory, with a row behind those that it asked for. The
        // second time it holds the first copy, changed.
        auto* array = static_cast<OptionRecord*>(std::calloc(count + 1, sizeof(OptionRecord)));
        array[count].Id = 77;
        for (const char* place : {" in a cleared array", " over a changed copy"}) {
            EXPECT_EQ(1, copy(array)) << name;
            ExpectRows(name + std::string(place), expected, {array, count});
            for (OptionRecord& record : std::span(array, count)) {
                record.Id = 7;
                EXPECT_TRUE(record.Keyword.Append(u" changed") && record.DataCommand.Append(u" changed"));
            }
        }
        ExpectRows(name, expected, rows);
        EXPECT_EQ(77u, array[count].Id) << name << ": a copy wrote past its table";
        std::destroy_n(array, count + 1);
        std::free(array);
    }
}

#define T(feature) {#feature "CommandTable", feature##CommandTable},
const struct {
    std::string Name;
    KeywordCommandTable Rows;
} keywordTables[] = {
#include "Data/tables/keyword-tables.inc"
};

// An option table is searched by keywords that are all different, and a format table is one row.
bool IsSound(KeywordCommandTable table) {
    std::set<std::u16string_view> keywords;
    for (const KeywordCommand& row : table) keywords.insert(row.Keyword);
    return !keywords.contains(u"") && keywords.size() == table.size() &&
           (table.size() == 1 || !keywords.contains(u"CMD"));
}

TEST(KeywordTables, HoldTheirRows) {
    std::map<std::string, std::vector<Fields>> expected;
    for (const Fields& fields : ReadRows("keywords", 3)) expected[fields[0]].push_back(fields);
    std::set<const KeywordCommand*> places;  // two tables of the same rows are two tables
    std::set<std::string> listed;
    for (const auto& [name, rows] : keywordTables) {
        std::vector<Fields> found;
        for (const auto& [keyword, command] : rows)
            found.push_back({name, Written(keyword), Written(command)});
        EXPECT_EQ(expected[name], found) << name << " has other rows than Tests/Data/tables/keywords.tsv";
        EXPECT_TRUE(IsSound(rows)) << name << " has a keyword twice, none, or \"CMD\" among others";
        EXPECT_TRUE(places.insert(rows.data()).second) << name << " is another table as well";
        EXPECT_TRUE(listed.insert(name).second) << name << " is twice in keyword-tables.inc";
        expected.erase(name);
    }
    for (const auto& [name, rows] : expected)
        ADD_FAILURE() << name << " has rows in Tests/Data/tables/keywords.tsv alone: is it in the"
                      << " keyword-tables.inc beside it?";
    for (const auto& header : std::filesystem::directory_iterator(MODULE_FOLDER "/tables"))
        for (const std::string& name :
             Matches(FileText(header.path()), R"(constexpr [\w& ]*\b(\w+CommandTable)(?:\[\])?\s*=)"))
            EXPECT_TRUE(listed.contains(name))
                << header.path().filename() << " has a new table, " << name << ": add T("
                << name.substr(0, name.find("CommandTable")) << ") to Tests/Data/tables/keyword-tables.inc,"
                << " and its rows to the keywords.tsv beside it";
}

}  // namespace
}  // namespace DeviceSpecificModule
