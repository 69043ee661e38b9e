#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "Cases.h"
#include "Targets.h"

// Replays what the fuzzers begin with, every finding ever made among it. A contract that doesn't hold ends
// the test with its message.

namespace Fuzz {
void PrintTo(const Target& target, std::ostream* out) { *out << target.Name; }  // for the names of tests
}  // namespace Fuzz

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesBelow(const fs::path& folder, std::string_view ending = {}) {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file() && entry.path().native().ends_with(ending)) files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

class FuzzSeeds : public testing::TestWithParam<Fuzz::Target> {};

TEST_P(FuzzSeeds, KeepTheContract) {
    const Fuzz::Target& target = GetParam();
    std::vector<fs::path> files = FilesBelow(fs::path(SEEDS_DIR) / target.Name);
    ASSERT_FALSE(files.empty()) << "no seeds";
    if (!target.Samples.empty()) {
        const std::vector<fs::path> samples = FilesBelow(SAMPLES_DIR, target.Samples);
        ASSERT_FALSE(samples.empty()) << "no samples";
        files.insert(files.end(), samples.begin(), samples.end());
    }
    for (const fs::path& file : files) {
        SCOPED_TRACE(file);
        const std::string input = DeviceSpecificModule::FileText(file);
        EXPECT_NO_THROW(target.Run(input));
    }
}

INSTANTIATE_TEST_SUITE_P(All, FuzzSeeds, testing::ValuesIn(Fuzz::Targets),
                         [](const auto& each) { return std::string(each.param.Name); });

// A target that one of these leaves out would not be run but for its seeds.
TEST(FuzzTargets, StandWhereTheyAreBuiltAndRun) {
    using DeviceSpecificModule::HasMatch;
    const std::string builds = DeviceSpecificModule::FileText(SEEDS_DIR "/../CMakeLists.txt");
    const std::string runs = DeviceSpecificModule::FileText(SEEDS_DIR "/../../fuzz");
    for (const Fuzz::Target& target : Fuzz::Targets) {
        const std::string name(target.Name);
        EXPECT_TRUE(HasMatch(builds, "^foreach\\(target .*\\b" + name + "\\b"))
            << "add " << name << " to the foreach of Fuzz/CMakeLists.txt";
        EXPECT_TRUE(HasMatch(runs, "\\[" + name + "\\]=[0-9]+"))
            << "add [" << name << "] with its longest input to the script fuzz";
        EXPECT_TRUE(HasMatch(runs, "^order=\\(.*\\b" + name + "\\b"))
            << "add " << name << " to \"order\" in the script fuzz";
    }
}

// Seeds of no target would never be run.
TEST(FuzzSeedFolders, BelongToTargets) {
    for (const fs::directory_entry& entry : fs::directory_iterator(SEEDS_DIR))
        EXPECT_NE(std::ranges::find(Fuzz::Targets, entry.path().filename().native(), &Fuzz::Target::Name),
                  Fuzz::Targets.end())
            << entry.path();
}

}  // namespace
