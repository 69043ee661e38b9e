#include "HostTool.h"
#include "Support.h"

// The hosts of Samples/hosts, of which people copy: they do to a job what the tool does.

namespace TicketHost {
namespace {

using Files = std::map<std::string, std::string>;

class SampleHosts : public HostTool {
protected:
    SampleHosts() {
        if (!SANITIZED)  // a program that is none can't load such libraries
            hosts_["python"] = "DEVICESPECIFIC_LIBRARY='" C_INTERFACE_FILE "' '" SAMPLE_HOST_PYTHON "'";
    }

    // What is in a folder, with what differs between two runs written alike.
    Files Results(const std::string& folder) const {
        Files files = Contents(folder);
        files["job.pjl"] = DeviceSpecificModule::SteadyPjl(files["job.pjl"]);
        return files;
    }

    std::map<std::string, std::string> hosts_ = {{"cpp", SAMPLE_HOST_CPP}, {"c", SAMPLE_HOST_C}};
};

TEST_F(SampleHosts, GiveTheBytesThatTheToolGives) {
    std::string calls, files;
    for (const char* name : {"job", "page-cover", "page-table", "page-card"}) {
        const std::string file = SAMPLES_DIR "/tickets/" + std::string(name) + ".xml";
        const char* const level = calls.empty() ? R"({"level":2)" : R"(,{"level":0)";
        calls.append(level).append(R"(,"ticket":")").append(file).append("\"}");
        files += " '" + file + "'";
    }
    Write("job.json",
          R"({"pipeline":{"Series":"Sample"},"driver":{"CommandMap_Sample":"{}"},"calls":[)" + calls + "]}");
    ASSERT_EQ(Run("convert --out tool job.json").Errors, "");
    Files expected = Results("tool");
    expected.erase("properties.json");
    ASSERT_EQ(expected.size(), 6u);
    ASSERT_NE(expected["job.pjl"].find("{DATE}"), std::string::npos);
    for (const auto& [name, command] : hosts_) {
        const Outcome outcome = RunShell("mkdir " + name + "; " + command + " " + name + files);
        EXPECT_TRUE(outcome.Status == 0 && outcome.Errors.empty()) << name << ": " << outcome.Errors;
        EXPECT_EQ(Results(name), expected) << name;
    }
}

TEST_F(SampleHosts, SayWhatWentWrongAndWhere) {
    Write("broken.xml", "<a>\n<b></c>");
    for (const auto& [name, command] : hosts_) {
        const Outcome outcome = RunShell(command + " . broken.xml");
        EXPECT_EQ(outcome.Status, 1) << name;
        EXPECT_EQ(outcome.Errors, "host: broken.xml:2:8: Opening and ending tag mismatch: b line 2 and c\n");
    }
}

}  // namespace
}  // namespace TicketHost
