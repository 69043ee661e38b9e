#include <gtest/gtest.h>
#include <json/json.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "Support.h"

// Whole jobs through the host tool: each folder below Scenarios holds a manifest.json and the expected.json
// that converting it must give. CONTRIBUTING.md tells how to add one.

namespace {

namespace fs = std::filesystem;
using DeviceSpecificModule::FileText;
using DeviceSpecificModule::OutputOf;
using DeviceSpecificModule::SteadyPjl;

Json::Value ParseJson(const std::string& name, const std::string& text) {
    Json::Value value;
    std::string errors;
    std::istringstream stream(text);
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    if (!Json::parseFromStream(builder, stream, &value, &errors))
        throw std::runtime_error(name + ": " + errors + text);
    return value;
}

// In the layout of the expected results: what a member holds begins on the member's line.
std::string WriteJson(const Json::Value& value) {
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "  ";
    builder["emitUTF8"] = true;
    builder["enableYAMLCompatibility"] = true;  // no blank ahead of a colon
    return DeviceSpecificModule::ReplaceMatches(Json::writeString(builder, value), R"(: \n *([\[{]))",
                                                ": $1") +
           "\n";
}

// What the tool makes of a scenario. Its exit status must fit its result.
Json::Value Convert(const fs::path& folder) {
    int status = -1;
    const std::string output = OutputOf(
        "'" TICKETHOST "' convert --format json --keep-going '" + (folder / "manifest.json").string() + "'",
        &status);
    Json::Value result = ParseJson("tickethost on " + folder.string(), output);
    bool threw = false;
    for (Json::Value& call : result["calls"]) {
        threw = threw || call.isMember("error");
        Json::Value& properties = call["properties"];
        if (properties.isMember("PJL")) properties["PJL"] = SteadyPjl(properties["PJL"].asString());
    }
    EXPECT_EQ(status, threw ? 1 : 0) << folder;
    return result;
}

std::string Difference(const fs::path& expected, const std::string& actual) {
    const fs::path file = fs::temp_directory_path() / ("scenario-" + std::to_string(getpid()) + ".json");
    std::ofstream(file) << actual;
    int status = 0;
    const std::string difference =
        OutputOf("diff -u '" + expected.string() + "' '" + file.string() + "'", &status);
    fs::remove(file);
    return difference;
}

TEST(Scenarios, GiveTheirExpectedResults) {
    const bool update = getenv("UPDATE_SCENARIOS") != nullptr;
    int found = 0;
    for (const auto& entry : fs::directory_iterator(SCENARIOS_DIR)) {
        const fs::path expected = entry.path() / "expected.json";
        const Json::Value result = Convert(entry.path());
        ++found;
        if (fs::exists(expected) && result == ParseJson(expected, FileText(expected))) continue;
        if (update)
            std::ofstream(expected) << WriteJson(result);
        else if (fs::exists(expected))
            ADD_FAILURE() << entry.path() << "\n" << Difference(expected, WriteJson(result));
        else
            ADD_FAILURE() << expected
                          << " is missing: work it out by hand, or let UPDATE_SCENARIOS=1 ./test -R"
                          << " Scenarios write it and check every line";
    }
    EXPECT_GT(found, 0) << "no scenarios below " SCENARIOS_DIR;
}

// The samples are what users try first.
TEST(Samples, Convert) {
    int found = 0;
    for (const auto& entry : fs::directory_iterator(SAMPLES_DIR)) {
        if (entry.path().extension() != ".json") continue;
        int status = -1;
        const std::string output =
            OutputOf("'" TICKETHOST "' convert --format json '" + entry.path().string() + "'", &status);
        EXPECT_EQ(status, 0) << entry.path();
        for (const Json::Value& call : ParseJson(entry.path(), output)["calls"])
            EXPECT_EQ(call["status"], 1) << entry.path();
        ++found;
    }
    EXPECT_GT(found, 0);
}

// Every line of the header, in order.
TEST(Samples, ShowEveryLineOfTheHeader) {
    int status = -1;
    const Json::Value result = ParseJson(
        "whole-job.json",
        OutputOf("'" TICKETHOST "' convert --format json '" SAMPLES_DIR "/whole-job.json'", &status));
    EXPECT_EQ(
        SteadyPjl(result["calls"][0]["properties"]["PJL"].asString()),
        "\x1B%-12345X@PJL\r\n@PJL COMMENT\r\n@PJL SET LOGINUSER = \"\"\r\n@PJL SET USERNAME = \"\"\r\n"
        "@PJL SET RESOLUTION = 600\r\n@PJL SET HOLD = OFF\r\n@PJL SET JOBNAME = \"\"\r\n"
        "@PJL JOB NAME = \"\"\r\n@PJL SET ECONOMODE = OFF\r\n@PJL PRINTLOG ITEM = 1,PRINTER\r\n"
        "@PJL PRINTLOG ITEM = 2,{DATE}\r\n@PJL PRINTLOG ITEM = 3,\r\n@PJL PRINTLOG ITEM = 4,{COMPUTER}\r\n"
        "@PJL SET JOBTIME = \"{TIME}\"\r\n@PJL SET MEDIATYPECHECK = ON\r\n@PJL SET STRINGCODESET = UTF8\r\n");
}

}  // namespace
