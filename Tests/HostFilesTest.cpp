#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "HostTool.h"

// What the tool reads from files and leaves in the folder of --out, also where the disk doesn't let it.

namespace TicketHost {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

class HostFiles : public HostTool {
protected:
    // A job of so many pages, none of which makes a "PJL".
    void WritePages(const std::string& name, std::size_t pages) {
        std::string calls;
        for (std::size_t page = 0; page < pages; ++page)
            calls += std::string(page > 0 ? "," : "") + R"({"level":0,"ticket":"<a>)" + name + R"(</a>"})";
        Write(name, "{\"calls\":[" + calls + "]}");
    }

    // Results of an earlier job of three calls, with a header, in the folder.
    Files MakeEarlierResults(const std::string& folder) {
        Write("three.json", R"({"pipeline":{"PJL":"earlier"},"calls":[{"level":0,"ticket":"<a>1</a>"},)"
                            R"({"level":0,"ticket":"<a>2</a>"},{"level":0,"ticket":"<a>3</a>"}]})");
        EXPECT_EQ(Run("convert --format json --out " + folder + " three.json").Errors, "");
        const Files files = Contents(folder);
        EXPECT_EQ(files.size(), 6u);
        EXPECT_EQ(files.at("job.pjl"), "earlier");
        return files;
    }
};

const Files onePage = {{"001-ticket.xml", "<?xml version=\"1.0\"?>\n<a>one.json</a>\n"},
                       {"job.data", "Page_0\r\n"},
                       {"properties.json", "{\n  \"DATA\": \"Page_0\\r\\n\"\n}\n"}};

TEST_F(HostFiles, NewResultsTakeThePlaceOfAllEarlierOnes) {
    MakeEarlierResults("out");
    WritePages("one.json", 1);
    for (const char* name : {"out/0001-ticket.xml", "out/99999-ticket.xml"})
        Write(name, "of a job of thousands");
    const Files others = {{"01-ticket.xml", "a"}, {"001-ticket.xml.bak", "b"}, {"a001-ticket.xml", "c"},
                          {"ticket.xml", "d"},    {"job.pjl5", "e"},           {".job.data", "f"},
                          {"-ticket.xml", "g"},   {"001-Ticket.xml", "h"},     {"x", "(folder)"},
                          {"001-ticket_xml", "i"}};
    Files expected = onePage;
    expected.insert(others.begin(), others.end());
    for (const auto& [name, bytes] : others)
        bytes == "(folder)" ? void(fs::create_directory(folder_ / "out" / name))
                            : Write("out/" + name, bytes);
    EXPECT_EQ(Run("convert --format json --out out one.json").Errors, "");
    EXPECT_EQ(Contents("out"), expected);
}

TEST_F(HostFiles, LinksAreReplacedAndNotFollowed) {
    WritePages("one.json", 1);
    Write("victim", "as it was");
    fs::create_directories(folder_ / "victims");
    Write("victims/inside", "as it was");
    fs::create_directory(folder_ / "out");
    for (const char* name : {"001-ticket.xml", "002-ticket.xml", "job.pjl", "properties.json"})
        fs::create_symlink("../victim", folder_ / "out" / name);
    fs::create_symlink("../victims", folder_ / "out/job.data");
    fs::create_symlink("../nothing", folder_ / "out/003-ticket.xml");
    EXPECT_EQ(Run("convert --format json --out out one.json").Errors, "");
    EXPECT_EQ(Contents("out"), onePage);
    EXPECT_EQ(Read("victim"), "as it was");
    EXPECT_EQ(Contents("victims"), (Files{{"inside", "as it was"}}));
    EXPECT_FALSE(fs::exists(folder_ / "nothing"));
}

TEST_F(HostFiles, FoldersInTheirPlacesAreRefusedAndStay) {
    WritePages("one.json", 1);
    for (const std::string name :
         {"001-ticket.xml", "002-ticket.xml", "job.pjl", "job.data", "properties.json"}) {
        const Files earlier = MakeEarlierResults("out-" + name);
        fs::remove(folder_ / ("out-" + name) / name);
        fs::create_directory(folder_ / ("out-" + name) / name);
        Files expected = earlier;
        expected[name] = "(folder)";
        const Outcome outcome = Run("convert --format json --out out-" + name + " one.json");
        EXPECT_EQ(outcome.Errors, "tickethost: out-" + name + "/" + name + ": Is a directory\n");
        EXPECT_TRUE(outcome.Status == 2 && outcome.Output.empty()) << outcome.Output;
        EXPECT_EQ(Contents("out-" + name), expected);
    }
}

// Runs that end before they have all their results: what they convert, what goes wrong, and what they say.
TEST_F(HostFiles, EarlierResultsStayWhenARunFails) {
    const Files earlier = MakeEarlierResults("out");
    Write("long.xml", "<a>" + std::string(20000, 'x') + "</a>");
    const char* const runs[][2] = {
        {"$TOOL convert --format json --out out long.xml >/dev/full",
         "standard output: No space left on device\n"},
        {"$TOOL convert --format json --out out absent.xml", "absent.xml: No such file or directory\n"},
        {"trap '' XFSZ; ulimit -f 16; $TOOL convert --format json --out out long.xml",
         "out/001-ticket.xml: File too large\n"},
    };
    for (const auto& [line, said] : runs) {
        const Outcome outcome = RunShell("TOOL=\"env '$TOOL'\"; eval \"" + std::string(line) + "\"");
        EXPECT_EQ(outcome.Errors, "tickethost: " + std::string(said)) << line;
        EXPECT_EQ(outcome.Status, 2) << line;
        EXPECT_EQ(Contents("out"), earlier) << line;
    }
}

// Disks that take no more, each mounted for one run alone.
TEST_F(HostFiles, EarlierResultsStayOnDisksThatTakeNoMore) {
    const std::string own = geteuid() == 0 ? "unshare -m " : "unshare -rm ";
    fs::create_directory(folder_ / "disk");
    if (RunShell(own + "mount -t tmpfs tmpfs disk").Status != 0)
        GTEST_SKIP() << "this machine lets nobody mount a disk of its own: " << Read("errors");
    const Files earlier = MakeEarlierResults("out");
    Write("long.xml", "<a>" + std::string(100000, 'x') + "</a>");
    const char* const disks[][2] = {
        {"true", "disk/out/001-ticket.xml: No space left on device\n"},
        {"mount -o remount,ro disk", "disk/out: Read-only file system\n"},
    };
    for (const auto& [last, said] : disks) {
        Write("run", "mount -t tmpfs -o size=64k tmpfs disk && cp -R out disk/out && " + std::string(last) +
                         " && \"$TOOL\" convert --format json --out disk/out long.xml; status=$?\n"
                         "cp -R disk/out after && exit $status\n");
        fs::remove_all(folder_ / "after");
        const Outcome outcome = RunShell(own + "sh ./run");
        EXPECT_EQ(outcome.Errors, "tickethost: " + std::string(said));
        EXPECT_EQ(outcome.Status, 2) << last;
        EXPECT_EQ(Contents("after"), earlier) << last;
    }
}

TEST_F(HostFiles, EarlierResultsStayWhereTheUserMayNotWrite) {
    const std::string user = geteuid() == 0 ? "setpriv --reuid 65534 --regid 65534 --clear-groups " : "";
    const Files earlier = MakeEarlierResults("out");
    WritePages("one.json", 1);
    if (RunShell(user + "\"$TOOL\" convert one.json").Status != 0)
        GTEST_SKIP() << "another user of this machine can't run the tool: " << Read("errors");
    fs::permissions(folder_ / "out", fs::perms{0555});
    const Outcome outcome = RunShell(user + "\"$TOOL\" convert --format json --out out one.json");
    fs::permissions(folder_ / "out", fs::perms{0755});
    EXPECT_EQ(outcome.Errors, "tickethost: out: Permission denied\n");
    EXPECT_TRUE(outcome.Status == 2 && outcome.Output.empty()) << outcome.Output;
    EXPECT_EQ(Contents("out"), earlier);
}

TEST_F(HostFiles, AStandardOutputThatTakesNoMoreIsAnError) {
    Write("good.xml", "<a/>");
    for (const char* arguments : {"--help", "tables", "tables --format json", "convert good.xml",
                                  "convert --format json good.xml", "passphrase <good.xml"}) {
        const Outcome outcome = Run(arguments, "/dev/full");
        EXPECT_EQ(outcome.Errors, "tickethost: standard output: No space left on device\n") << arguments;
        EXPECT_EQ(outcome.Status, 2) << arguments;
    }
}

// Opening a pipe waits for somebody who writes to it, and some devices never end.
TEST_F(HostFiles, OnlyRegularFilesOfSensibleSizeAreRead) {
    ASSERT_EQ(mkfifo((folder_ / "pipe.xml").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", folder_ / "zero.xml");
    Write("large.xml", "");
    fs::resize_file(folder_ / "large.xml", (std::uintmax_t{1} << 30) + 1);
    Write("pipe.json", R"({"calls":[{"level":0,"ticket":"pipe.xml"}]})");
    const std::string limit = SANITIZED ? "" : "ulimit -v 500000; ";  // KiB, half of what is too large
    const char* const inputs[][2] = {
        {"convert pipe.xml", "pipe.xml: not a regular file\n"},
        {"convert pipe.json", "pipe.xml: not a regular file\n"},
        {"convert zero.xml", "zero.xml: not a regular file\n"},
        {"convert large.xml", "large.xml: larger than 1 GiB\n"},
        {"passphrase --check-file zero.xml", "zero.xml: not a regular file\n"},
    };
    for (const auto& [arguments, said] : inputs) {
        const Outcome outcome = RunShell(limit + "\"$TOOL\" " + arguments);
        EXPECT_EQ(outcome.Errors, "tickethost: " + std::string(said)) << arguments;
        EXPECT_EQ(outcome.Status, 2) << arguments;
    }
}

}  // namespace
}  // namespace TicketHost
