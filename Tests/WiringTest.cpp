#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "Support.h"
#include "devicespecific/platform/ResultError.h"

// How the job level is put together. Most built-in texts are empty, so what a stage does shows in what it
// asks of the host, and in its errors.

namespace DeviceSpecificModule {
namespace {

// What is asked of the host, as "kind name". All that may fail has a place in an order; from a place on they
// fail with the place as the error's code.
struct Host {
    std::vector<std::string> Asked;
    std::map<std::string, std::vector<std::size_t>> Places;  // by what is asked; one for each time
    std::size_t FailFrom = static_cast<std::size_t>(-1);

    void Ask(const std::string& kind, std::u16string_view name) {
        Asked.push_back(kind + " " + Narrow(WideText(name)));
        const auto found = Places.find(Asked.back());
        if (found == Places.end()) return;
        const auto time = static_cast<std::size_t>(std::ranges::count(Asked, Asked.back())) - 1;
        if (time < found->second.size() && found->second[time] >= FailFrom)
            Platform::ThrowResult(static_cast<std::uint32_t>(found->second[time]));
    }
};

class AskedPipelineBag final : public Platform::IPrintPipelinePropertyBag {
public:
    AskedPipelineBag(Host& host, Platform::PipelineProperties properties)
        : host_(host), held_(std::move(properties)) {}

    bool GetProperty(std::u16string_view name, Platform::PropertyValue& value) const override {
        host_.Ask("get", name);
        return held_.GetProperty(name, value);
    }
    bool AddProperty(std::u16string_view name, const Platform::PropertyValue& value) override {
        host_.Ask("add", name);
        return held_.AddProperty(name, value);
    }
    bool DeleteProperty(std::u16string_view name) override {
        host_.Ask("delete", name);
        return held_.DeleteProperty(name);
    }

private:
    Host& host_;
    Platform::MemoryPipelineBag held_;
};

class AskedPrinterBag final : public Platform::IPrinterPropertyBag {
public:
    AskedPrinterBag(Host& host, std::string kind) : host_(host), kind_(std::move(kind)) {}

    bool GetString(std::u16string_view name, WideText&) const override { return Ask(name); }
    bool GetInt32(std::u16string_view name, std::int32_t&) const override { return Ask(name); }

private:
    bool Ask(std::u16string_view name) const {
        host_.Ask(kind_, name);
        return false;
    }
    Host& host_;
    std::string kind_;
};

// Queries are known by the first name that they look for.
class AskedTicket final : public Platform::IXMLDOMDocument2 {
public:
    AskedTicket(Host& host, TicketDocument held) : host_(host), held_(std::move(held)) {}

    bool setProperty(std::u16string_view name, std::u16string_view value) override {
        return held_->setProperty(name, value);
    }
    bool selectSingleNode(std::u16string_view query, TicketNode& node) override {
        const std::size_t start = query.find(u"='") + 2;
        host_.Ask("ticket", query.substr(start, query.find(u'\'', start) - start));
        return held_->selectSingleNode(query, node);
    }
    WideText xml() const override { return held_->xml(); }
    bool loadXML(const WideText& text, Platform::ParseError* error) override {
        return held_->loadXML(text, error);
    }

private:
    Host& host_;
    TicketDocument held_;
};

Platform::PipelineProperties BagsOf(Host& host) {
    const auto bag = [&host](const char* kind) {
        return std::shared_ptr<Platform::IPrinterPropertyBag>(std::make_shared<AskedPrinterBag>(host, kind));
    };
    return {{u"Series", Wide("S1")},
            {u"EncryptionID", Wide("[1,2]")},
            {u"DriverPropertyBag", bag("driver")},
            {u"QueuePropertyBag", bag("queue")}};
}

// The lines of the data file, of which all from one on fail: settings with errors of the JSON library, the
// first with another one than those behind it.
std::string ErrorOfJobThatFailsFrom(std::size_t first, const Json::Value& order) {
    Host host;
    host.FailFrom = first;
    Json::Value settings;
    for (Json::ArrayIndex place = 0; place < order.size(); ++place) {
        const std::string kind = order[place][0].asString(), name = order[place][1].asString();
        if (kind != "setting")
            host.Places[kind + " " + name].push_back(place);
        else if (place < first)
            settings["features"][name] = order[place][2];
        else if (place == first)
            settings["features"][name] = Json::arrayValue;
        else
            settings["paraminits"][name] = Json::Int64{1} << 40;
    }
    TestHost tables;
    PTConverter snapshot;
    snapshot.CustomProperties = std::make_shared<Json::Value>(settings);
    const auto ticket =
        std::make_shared<AskedTicket>(host, MakeTicket(Feature("psk:DocumentCollate", "psk:Collated")));
    try {
        ProcessDrvPT(std::make_shared<AskedPipelineBag>(host, BagsOf(host)), ticket, JobLevel, &tables.Tables,
                     &snapshot);
    } catch (const Platform::ResultError& error) {
        return order[error.Code()][0].asString() + " " + order[error.Code()][1].asString();
    } catch (const Json::Exception& error) {
        const bool isFirst = std::string(error.what()).find("requires stringValue") != std::string::npos;
        return isFirst ? "setting " + order[Json::ArrayIndex(first)][1].asString() : error.what();
    }
    return "";
}

// The lines of the data file but those of the stages, which must be the pipeline's, each with something to
// ask.
Json::Value OrderOfAllStages() {
    const std::string array =
        Matches(FileText(MODULE_FOLDER "/JobPipeline.cpp"), R"(stages\[\] = \{([^}]*)\})").at(0);
    std::vector<std::string> stages = Matches(array, R"((\w+))"), listed;
    std::erase(stages, "EmptyStage");
    stages.emplace_back("ConvertPage");  // runs behind the stages
    Json::Value order;
    bool isStage = false;
    for (const Json::Value& line : ReadCases("conversion/job-order.json")) {
        EXPECT_FALSE(isStage && line[0] == "stage")
            << "job-order.json: " << listed.back() << " asks for nothing";
        isStage = line[0] == "stage";
        if (isStage)
            listed.push_back(line[1].asString());
        else
            order.append(line);
    }
    EXPECT_EQ(listed, stages)
        << "a stage of JobPipeline.cpp is missing in Tests/Data/conversion/job-order.json:"
        << " add its line, and behind it what it asks for";
    return order;
}

// Whatever comes behind a line fails as well, so its own failure is seen only when it comes ahead of all of
// them.
TEST(Wiring, TouchesWhatAJobNeedsInTheOrderOfItsStages) {
    const Json::Value order = OrderOfAllStages();
    for (Json::ArrayIndex first = 0; first < order.size(); ++first)
        EXPECT_EQ(ErrorOfJobThatFailsFrom(first, order),
                  order[first][0].asString() + " " + order[first][1].asString());
    EXPECT_EQ(ErrorOfJobThatFailsFrom(order.size(), order), "");
}

// A document that knows no cheaper ways, as another platform's may.
TEST(Wiring, ConvertsAlikeWithADocumentOfTheBasicOperationsAlone) {
    const std::string sample = FileText(SAMPLES_DIR "/tickets/all-settings.xml");
    ASSERT_NE(sample.find("JobXRJobCustomProperties001"), sample.npos);  // settings in several pieces
    std::string results[2];
    for (bool isBasic : {false, true}) {
        TestHost host({{u"EncryptionID", Wide("[1,2]")}});
        Host asked;
        for (std::int32_t level : {JobLevel, DocumentLevel, PageLevel}) {
            TicketDocument ticket = MakeDocument(sample);
            if (isBasic) ticket = std::make_shared<AskedTicket>(asked, ticket);
            host.Run(level, ticket);
            results[isBasic] += SteadyPjl(host.Property(u"PJL")) + host.Data() + Narrow(ticket->xml());
        }
        EXPECT_EQ(asked.Asked.empty(), !isBasic);
    }
    EXPECT_EQ(results[0], results[1]);
    EXPECT_NE(results[0].find("HOLDKEY"), std::string::npos);
}

TEST(Wiring, KeepsTheJobsBagsAndItsCommandMapInTheSnapshot) {
    const auto bag = [](const char* map) -> std::shared_ptr<Platform::IPrinterPropertyBag> {
        return std::make_shared<Platform::MemoryPrinterBag>(Platform::PrinterProperties{
            {u"CommandMap_S1", Wide(map)}, {u"CommandMap_", Wide(R"({"none":1})")}});
    };
    const auto driver = bag(R"({"driver":1})"), queue = bag(R"({"queue":1})");
    TestHost host({{u"Series", Wide("S1")}, {u"DriverPropertyBag", driver}, {u"QueuePropertyBag", queue}});
    host.Run(JobLevel, MakeTicket(""));
    EXPECT_EQ(host.Snapshot.Driver, driver);
    EXPECT_EQ(host.Snapshot.Queue, queue);
    EXPECT_EQ(*host.Snapshot.CommandMap, *MakeSettings(R"({"driver":1})"));

    for (const char16_t* name : {u"DriverPropertyBag", u"QueuePropertyBag"}) host.Bag->DeleteProperty(name);
    for (std::int32_t level : {PageLevel, DocumentLevel}) host.Run(level, MakeTicket(""));
    EXPECT_TRUE(host.Snapshot.Driver == driver && host.Snapshot.Queue == queue);
    host.Run(JobLevel, MakeTicket(""));
    EXPECT_TRUE(host.Snapshot.Driver == nullptr && host.Snapshot.Queue == nullptr);
    EXPECT_EQ(*host.Snapshot.CommandMap, *MakeSettings(R"({"driver":1})"));
}

}  // namespace
}  // namespace DeviceSpecificModule
