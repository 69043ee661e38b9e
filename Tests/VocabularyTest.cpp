#include <gtest/gtest.h>
#include <json/json.h>

#include <algorithm>
#include <map>
#include <set>

#include "Host/check/Vocabulary.h"
#include "Host/ground/MemoryBags.h"
#include "Host/jobs/KnownProperties.h"
#include "Host/tickets/Settings.h"
#include "Support.h"
#include "conversion/JsonState.h"
#include "ticket/TicketNamespaces.h"

// The vocabulary is what the module asks for, no more and no less: conversions of all kinds run with
// everything watched that they read.

namespace Platform = DeviceSpecificModule::Platform;

namespace {

using Names = std::set<std::string>;

struct Asked {
    Names Settings, PerPage, Items, Properties;
    std::map<std::string, std::string> Written;  // properties of the pipeline, and their types
};

Asked* asked = nullptr;  // of the conversion that is being watched

std::string Utf8(std::u16string_view text) { return DeviceSpecificModule::Narrow(Platform::WideText(text)); }

}  // namespace

// The linker sends what the module calls through these (--wrap), and what shared objects do, which must see
// them. It knows functions by their mangled names.
#define LOOKUP                                                                                          \
    "_ZN20DeviceSpecificModule20LookupCustomPropertyERKSt10shared_ptrIKN4Json5ValueEESt17basic_string_" \
    "viewIDsSt11char_traitsIDsEE"
#define FIND_CONSTANT "_ZNK4Json5ValueixEPKc"
#define FIND "_ZN4Json5ValueixEPKc"
#pragma GCC visibility push(default)

Platform::WideText Lookup(const DeviceSpecificModule::SharedJson&, std::u16string_view) asm("__real_" LOOKUP);
Platform::WideText WatchedLookup(const DeviceSpecificModule::SharedJson&,
                                 std::u16string_view) asm("__wrap_" LOOKUP);
Platform::WideText WatchedLookup(const DeviceSpecificModule::SharedJson& settings, std::u16string_view name) {
    if (asked != nullptr) asked->Settings.insert(Utf8(name));
    return Lookup(settings, name);
}

const Json::Value& FindConstant(const Json::Value*, const char*) asm("__real_" FIND_CONSTANT);
const Json::Value& WatchedFindConstant(const Json::Value*, const char*) asm("__wrap_" FIND_CONSTANT);
const Json::Value& WatchedFindConstant(const Json::Value* value, const char* key) {
    if (asked != nullptr) asked->PerPage.insert(key);
    return FindConstant(value, key);
}

Json::Value& Find(Json::Value*, const char*) asm("__real_" FIND);
Json::Value& WatchedFind(Json::Value*, const char*) asm("__wrap_" FIND);
Json::Value& WatchedFind(Json::Value* value, const char* key) {
    if (asked != nullptr) asked->PerPage.insert(key);
    return Find(value, key);
}
#pragma GCC visibility pop

namespace TicketHost {
namespace {

using namespace DeviceSpecificModule;
using Platform::Path;
using Platform::PathStep;

class WatchedBag final : public Platform::IPrintPipelinePropertyBag {
public:
    explicit WatchedBag(PipelineProperties properties) : held_(std::move(properties)) {}

    bool GetProperty(std::u16string_view name, Platform::PropertyValue& value) const override {
        asked->Properties.insert("pipeline " + Utf8(name));
        return held_.GetProperty(name, value);
    }
    bool AddProperty(std::u16string_view name, const Platform::PropertyValue& value) override {
        const bool isText = std::holds_alternative<WideText>(value);
        const bool isAddress = std::holds_alternative<Platform::BareReference>(value);
        asked->Written[Utf8(name)] = isText ? "text" : isAddress ? "address" : "other";
        return held_.AddProperty(name, value);
    }
    bool DeleteProperty(std::u16string_view name) override { return held_.DeleteProperty(name); }

private:
    MemoryPipelineBag held_;
};

class WatchedPrinterBag final : public Platform::IPrinterPropertyBag {
public:
    explicit WatchedPrinterBag(std::string kind) : kind_(std::move(kind)) {}

    bool GetString(std::u16string_view name, WideText&) const override { return Ask(name); }
    bool GetInt32(std::u16string_view name, std::int32_t&) const override { return Ask(name); }

private:
    bool Ask(std::u16string_view name) const {
        asked->Properties.insert(kind_ + Utf8(name));
        return false;
    }
    std::string kind_;
};

class WatchedTicket final : public Platform::IXMLDOMDocument2 {
public:
    explicit WatchedTicket(TicketDocument held) : held_(std::move(held)) {}

    bool setProperty(std::u16string_view name, std::u16string_view value) override {
        return held_->setProperty(name, value);
    }
    bool selectSingleNode(std::u16string_view query, TicketNode& node) override {
        ADD_FAILURE() << "a query that isn't watched: " << Utf8(query);
        return held_->selectSingleNode(query, node);
    }
    WideText xml() const override { return held_->xml(); }
    bool loadXML(const WideText& text, Platform::ParseError* error) override {
        return held_->loadXML(text, error);
    }
    bool selectPath(Path path, TicketNode& node) override {
        for (const PathStep& step : path)
            if (step.Name)
                asked->Items.insert(Utf8(step.Element) + (step.Namespace ? " reads " : " finds ") +
                                    PrefixOf(step) + Utf8(*step.Name));
        return held_->selectPath(path, node);
    }
    bool selectSeries(Path path, std::size_t numbered, Platform::ArrayView<TicketNode> nodes) override {
        asked->Items.insert("series " + Utf8(*path[numbered].Name));
        return held_->selectSeries(path, numbered, nodes);
    }
    bool appendToRoot(std::u16string_view root, const WideText& fragments) override {
        return held_->appendToRoot(root, fragments);
    }

private:
    static std::string PrefixOf(const PathStep& step) {
        if (!step.Namespace) return "";
        return *step.Namespace == DeviceSpecificModule::KeywordsNamespace ? "psk:" : "ns0000:";
    }
    TicketDocument held_;
};

PipelineProperties BagsOfAJob() {
    const auto bag = [](const char* kind) {
        return std::shared_ptr<Platform::IPrinterPropertyBag>(std::make_shared<WatchedPrinterBag>(kind));
    };
    return {{u"EncryptionID", Wide("[1,2]")},
            {u"DriverPropertyBag", bag("driver ")},
            {u"QueuePropertyBag", bag("queue ")}};
}

// All settings, each with the first of its words, "On" where that is one.
Json::Value FullSettings() {
    Json::Value settings;
    for (const SettingRow& row : SettingRows()) {
        const WordList words = row.Allowed.Words == nullptr ? WordList{"1"} : row.Allowed.Words();
        const bool hasOn = std::ranges::find(words, "On") != words.end();
        settings["features"][std::string(row.Name)] = hasOn ? "On" : words.front();
    }
    settings["features"]["OutPSize"] = "UsePaperSize";
    settings["features"]["ROpt"] = "None";
    settings["features"]["PerPageListDetails"] = R"({"NumberOfTabs":"5"})";
    settings["features"]["PerPagePageDetails"] =
        R"([{"PageNumber":"1","TabPaper":"Use","TextOnTab":"t","PrintType":"InsertBlankSheet"}])";
    return settings;
}

// Converts a job, a document and a page of this ticket, and says what each of the levels asks.
void Watch(const Json::Value& settings, const std::string& children, std::map<Level, Asked>& all) {
    OptionTableSet tables(std::vector<std::string>(OptionTableNames.begin(), OptionTableNames.end()));
    PTConverter snapshot;
    const std::shared_ptr<Platform::IPrintPipelinePropertyBag> bag =
        std::make_shared<WatchedBag>(BagsOfAJob());
    for (const auto& [level, number] :
         {std::pair{AtJob, JobLevel}, {AtDocument, DocumentLevel}, {AtPage, PageLevel}}) {
        const std::string counts =
            Parameter("ns0000:DocXRDocCustomCount", "1") + Parameter("ns0000:PageXRPageCustomCount", "1");
        const std::string own =
            level == AtJob ? DeviceSpecificModule::Settings(WriteSettings(settings)) + counts : "";
        const auto ticket = std::make_shared<WatchedTicket>(MakeTicket(own + children));
        asked = &all[level];
        ProcessDrvPT(bag, ticket, number, tables.Record(), &snapshot);
        asked = nullptr;
    }
}

std::map<Level, Asked> WatchAllKinds() {
    std::map<Level, Asked> all;
    const Json::Value full = FullSettings();
    for (const char* size : {"psk:ISOA4", "psk:CustomMediaSize", "ns0000:UserForm1"})
        Watch(full, Feature("psk:PageMediaSize", size) + Feature("psk:DocumentCollate", "psk:Collated"), all);
    for (const SettingRow& row : SettingRows()) {
        WordList words = row.Allowed.Words == nullptr ? WordList() : row.Allowed.Words();
        words.emplace_back("");
        for (const std::string& word : words) {
            Json::Value settings = full;
            settings["features"][std::string(row.Name)] = word.substr(word.find(':') + 1);
            Watch(settings, "", all);
        }
    }
    return all;
}

Names ItemsAt(Level level) {
    Names names;
    for (const ItemRow& row : ItemRows()) {
        const std::string element = row.Kind == ItemKind::Feature ? "psf:Feature" : "psf:ParameterInit";
        if ((row.ReadAt & level) != 0) names.insert(element + " reads " + row.FullName());
        if ((row.FoundAt & level) != 0) names.insert(element + " finds " + row.FullName());
    }
    if (level == AtJob)
        for (const SettingsSeries& series : AllSettingsSeries)
            names.insert("series " + std::string(series.Piece));
    if (level != AtDocument)  // of the forms that a user named at the queue
        for (const char* name : {"MediaSizeWidth", "MediaSizeHeight"})
            names.insert(std::string("psf:ScoredProperty reads psk:") + name);
    return names;
}

void ExpectSame(const Names& asked, const Names& rows, const char* where) {
    for (const std::string& name : asked)
        EXPECT_TRUE(rows.contains(name)) << "conversions use \"" << name << "\": add its row to " << where;
    for (const std::string& name : rows)
        EXPECT_TRUE(asked.contains(name)) << "no conversion uses \"" << name << "\", a row of " << where;
}

TEST(Vocabulary, IsWhatConversionsAskFor) {
    std::map<Level, Asked> all = WatchAllKinds();
    Asked together;
    for (auto& [level, each] : all) {
        SCOPED_TRACE("at level " + std::to_string(level));
        ExpectSame(each.Items, ItemsAt(level), "ItemRows() in Source/Host/check/Vocabulary.cpp");
        together.Settings.merge(each.Settings);
        together.PerPage.merge(each.PerPage);
        together.Properties.merge(each.Properties);
    }
    Names settings, perPage, properties;
    for (const SettingRow& row : SettingRows()) EXPECT_TRUE(settings.emplace(row.Name).second) << row.Name;
    for (const PerPageRow& row : PerPageRows()) perPage.emplace(row.Name);
    const char* bags[] = {"pipeline ", "driver ", "queue "};
    for (const KnownProperty& row : KnownProperties())
        properties.insert(bags[static_cast<int>(row.In)] + std::string(row.Name));
    for (const char* group : SettingsGroups)
        together.PerPage.erase(group);  // asked for while they are merged
    ExpectSame(together.Settings, settings, "Source/Host/check/SettingRows.cpp");
    ExpectSame(together.PerPage, perPage, "PerPageRows() in Source/Host/check/SettingRows.cpp");
    ExpectSame(together.Properties, properties, "Source/Host/jobs/KnownProperties.cpp");
    for (const PropertyRow& row : PropertyRows())
        EXPECT_TRUE(IsPropertyRead(Bag::Pipeline, row.Name) || IsPropertyRead(Bag::Queue, row.Name))
            << row.Name;
}

// But the simple mode's settings of quality, since the sample has the detailed one, and the dimensions, since
// its size has some of its own.
TEST(Vocabulary, StandsInTheFullestSample) {
    std::string pieces;
    for (const std::string& piece :
         Matches(FileText(SAMPLES_DIR "/tickets/all-settings.xml"), "string\">(.*)</"))
        pieces += piece;
    for (const SettingRow& row : SettingRows()) {
        const std::string name(row.Name);
        const bool isLeftOut =
            FindSetting(name + "2") != nullptr || name == "OutPSizeW" || name == "OutPSizeH";
        EXPECT_TRUE(isLeftOut || HasMatch(pieces, "\"" + name + "\":"))
            << "add " << name << " to Samples/tickets/all-settings.xml";
    }
}

// A row of the table in the module's header: "pipeline PAPER_SIZE read D written JP text".
std::string PropertyLine(const std::string& bagAndName, const std::string& read, const std::string& written,
                         const std::string& type) {
    return bagAndName + " read " + read + " written " + written + " " + type;
}

Names PropertyTable() {
    const char* const row = R"(^/// \| `(\w+)(?:\.\.\.)?` +\| (\w+) +\| ([JDP ]+) \| ([JDP ]+) \| (\w+) +\|)";
    const auto levels = [](std::string cell) {
        std::erase(cell, ' ');
        return cell;
    };
    Names lines;
    for (const PatternMatch& cells : AllMatches(FileText(MODULE_HEADER_FILE), row)) {
        const std::string bagAndName = cells.at(2) + " " + cells.at(1);
        const std::string line =
            PropertyLine(bagAndName, levels(cells.at(3)), levels(cells.at(4)), cells.at(5));
        EXPECT_TRUE(lines.insert(line).second) << line;
    }
    return lines;
}

std::string TypeOf(const KnownProperty& row) {
    if (row.Type == PropertyType::Text) return "text";
    if (row.Type == PropertyType::Number) return "integer";
    return row.Name.ends_with("Bag") ? "bag" : "token";
}

TEST(Vocabulary, TheHeadersTableHoldsThePropertiesThatConversionsReadAndWrite) {
    std::map<std::string, std::string> read, written, types;
    for (const auto& [level, each] : WatchAllKinds()) {
        const char letter = level == AtJob ? 'J' : level == AtDocument ? 'D' : 'P';
        for (const std::string& name : each.Properties) read[name] += letter;
        for (const auto& [name, type] : each.Written) {
            written["pipeline " + name] += letter;
            types["pipeline " + name] = type;
        }
    }
    const char* bags[] = {"pipeline ", "driver ", "queue "};
    for (const KnownProperty& row : KnownProperties())
        types[bags[static_cast<int>(row.In)] + std::string(row.Name)] = TypeOf(row);
    Names lines;
    for (const auto& [name, type] : types) lines.insert(PropertyLine(name, read[name], written[name], type));
    ExpectSame(lines, PropertyTable(), "the table in Include/devicespecific/DeviceSpecificModule.h");
}

}  // namespace
}  // namespace TicketHost
