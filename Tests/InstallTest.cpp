#include <set>
#include <vector>

#include "HostTool.h"
#include "Support.h"

// What is put in place for others, and whether what describes the tool still does.

namespace TicketHost {
namespace {

namespace Module = DeviceSpecificModule;
namespace fs = std::filesystem;
using Names = std::set<std::string>;

class Install : public HostTool {};

// All files and links below a folder.
Names FilesBelow(const fs::path& folder, const std::string& prefix = "") {
    Names names;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        if (!entry.is_directory()) names.insert(prefix + entry.path().lexically_relative(folder).string());
    return names;
}

TEST_F(Install, PutsInPlaceWhatHostsNeedAndNothingElse) {
    const Outcome outcome = RunShell(INSTALL_COMMAND " x");
    ASSERT_EQ(outcome.Status, 0) << outcome.Output << outcome.Errors;
    const std::string libraries = INSTALLED_LIBRARIES "/";
    Names expected = FilesBelow(INCLUDE_DIR, "include/");
    EXPECT_GT(expected.size(), 10u);
    for (const char* name : {"Config", "ConfigVersion", "Targets", "Targets-*"})
        expected.insert(libraries + "cmake/DeviceSpecificModule/DeviceSpecificModule" + name + ".cmake");
    for (const char* name : {"devicespecific", "devicespecificc"})
        expected.insert(libraries + "pkgconfig/" + name + ".pc");
    for (const char* name : {"", "c", "platform"})
        for (const char* ending : {".so", ".so.0", ".so.0.1.0"})
            expected.insert(libraries + "libdevicespecific" + name + ending);
    for (const char* name :
         {"bin/tickethost", "share/man/man1/tickethost.1", "share/bash-completion/completions/tickethost"})
        expected.insert(name);
    Names found;  // one is named after the type of build
    for (const std::string& name : FilesBelow(folder_ / "x"))
        found.insert(Module::ReplaceMatches(name, "Targets-\\w+\\.", "Targets-*."));
    EXPECT_EQ(found, expected);
}

// Whoever installs to a place that the loader doesn't search says so to the loader.
TEST_F(Install, LeavesNoPathsInWhatIsInstalled) {
    ASSERT_EQ(RunShell(INSTALL_COMMAND " x").Status, 0);
    const std::string libraries = (folder_ / "x" / INSTALLED_LIBRARIES / "libdevicespecific").string();
    for (const std::string name : {"", "c", "platform"}) {
        const std::string header = Module::OutputOf("readelf -Wd '" + libraries + name + ".so'");
        EXPECT_NE(header.find("soname: [libdevicespecific" + name + ".so.0]"), header.npos) << header;
        EXPECT_FALSE(Module::HasMatch(header, "RPATH|RUNPATH")) << header;
    }
    const std::string header =
        Module::OutputOf("readelf -Wd '" + (folder_ / "x/bin/tickethost").string() + "'");
    EXPECT_FALSE(Module::HasMatch(header, "RPATH|RUNPATH")) << header;
    EXPECT_EQ(RunShell("LD_LIBRARY_PATH=x/" INSTALLED_LIBRARIES " x/bin/tickethost --version").Output,
              Run("--version").Output);
}

// What an expression's first group finds in a text.
Names FindAll(const std::string& text, const std::string& expression) {
    const std::vector<std::string> names = Module::Matches(text, expression);
    return {names.begin(), names.end()};
}

// A text from behind its first `start` to the next `end`, or all of the rest.
std::string Between(const std::string& text, const std::string& start, const std::string& end) {
    const std::size_t from = text.find(start);
    EXPECT_NE(from, text.npos) << start;
    if (from == text.npos) return "";
    const std::string rest = text.substr(from + start.size());
    return rest.substr(0, rest.find(end));
}

class Descriptions : public HostTool {
protected:
    Names Verbs() {
        const std::string help = Run("help").Output;
        return FindAll(help.substr(help.find("\nVerbs:")), "^  ([a-z-]+)");
    }
    Names OptionsOf(const std::string& verb) {
        return FindAll(Run("help " + verb).Output, "^  (?:-[a-zA-Z],)?(--[a-z-]+)");
    }
    // What the shell offers behind these words, the last of which is begun.
    Names Completed(const std::string& words) {
        Write("complete", "source '" PACKAGING_DIR
                          "/tickethost.bash'\n"
                          "COMP_WORDS=(\"$TOOL\" \"$@\") COMP_CWORD=$#\n_tickethost \"$TOOL\"\n"
                          "printf '%s\\n' \"${COMPREPLY[@]}\"");
        const Outcome outcome = RunShell("bash complete " + words);
        EXPECT_EQ(outcome.Errors, "");
        return FindAll(outcome.Output, "^(\\S+)$");
    }
};

TEST_F(Descriptions, CompletionOffersWhatTheToolHas) {
    const Names verbs = Verbs();
    EXPECT_GT(verbs.size(), 6u);
    EXPECT_EQ(Completed("''"), verbs);
    EXPECT_EQ(Completed("help ''"), verbs);
    EXPECT_EQ(Completed("ta"), Names{"tables"});
    EXPECT_EQ(Completed("-"), OptionsOf(""));
    EXPECT_EQ(Completed("convert ''"), Names{});  // a file's name
    EXPECT_EQ(Completed("convert job.xml --pipe"), Names{"--pipeline"});
    for (const std::string& verb : verbs) EXPECT_EQ(Completed(verb + " -"), OptionsOf(verb)) << verb;
}

TEST_F(Descriptions, ReadmeNamesEachVerb) {
    const std::string readme = Module::FileText(PACKAGING_DIR "/../README.md");
    for (const std::string& verb : Verbs())
        EXPECT_TRUE(Module::HasMatch(readme, "\\btickethost " + verb + "\\b")) << "README.md lacks " << verb;
}

TEST_F(Descriptions, ManPageSaysWhatTheToolHas) {
    SCOPED_TRACE("Packaging/tickethost.1 against what the tool's help says");
    const std::string source = Module::FileText(PACKAGING_DIR "/tickethost.1");
    const std::string page = Module::ReplaceMatches(source, R"(\\-)", "-") + ".SH";
    const std::string verbs = Between(page, "\n.SH VERBS", "\n.SH") + "\n.SS ";
    const char* const anyOption = "(--[a-z][a-z-]*)";
    const Names shared = FindAll(Between(page, "\n.SH OPTIONS", "\n.SH"), anyOption);
    EXPECT_EQ(FindAll(verbs, "^\\.SS ([a-z-]+)"), Verbs());
    Names all = OptionsOf("");
    for (const std::string& verb : Verbs()) {
        Names described = FindAll(Between(verbs, "\n.SS " + verb + " ", "\n.SS "), anyOption);
        const Names options = OptionsOf(verb);
        for (const std::string& option : described)
            EXPECT_TRUE(options.contains(option) && !shared.contains(option)) << verb << " " << option;
        described.insert(shared.begin(), shared.end());
        for (const std::string& option : options)
            EXPECT_TRUE(described.contains(option)) << verb << " " << option;
        all.insert(options.begin(), options.end());
    }
    for (const std::string& option : shared) EXPECT_TRUE(all.contains(option)) << option;
    for (const std::string& option : OptionsOf("")) EXPECT_TRUE(shared.contains(option)) << option;
}

}  // namespace
}  // namespace TicketHost
