#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <set>
#include <sstream>

#include "Host/ground/Nearest.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/Job.h"
#include "Host/jobs/KnownProperties.h"
#include "Host/jobs/OptionTableSet.h"
#include "HostTool.h"
#include "devicespecific/DeviceSpecificModule.h"

namespace TicketHost {
namespace {

TEST(Nearest, TheNearestNameIsTheOneWithTheFewestSlips) {
    constexpr std::array<std::string_view, 7> names = {"convert",          "tables", "passphrase", "text",
                                                       "TwoSidedLongEdge", "json",   "jsonl"};
    const std::pair<std::string, std::string_view> rows[] = {
        {"convrt", "convert"},    // a letter too few
        {"coonvert", "convert"},  // too many
        {"cinvert", "convert"},   // another one
        {"covnert", "convert"},   // two in each other's place: one slip, where a letter in between makes two
        {"eabltes", "tables"},    // two slips of seven letters
        {"jsno", "json"},         // one slip of json, two of jsonl, which are too many
        {"jsonl", "jsonl"},       // and json is one slip away
        {"josnl", "jsonl"},
        {"jsonx", "json"},       // one slip away from both: the first
        {"CONVERT", "convert"},  // case is no slip
        {"twosidedlongedg", "TwoSidedLongEdge"},
        {"TwoSidedEdge", "TwoSidedLongEdge"},  // four of sixteen
        {"TwoEdge", ""},                       // nine of sixteen
        {"cnovret", "convert"},                // two swaps of seven letters
        {"conv", ""},
        {"", ""},
        {"t", ""},
        {std::string(10'000'000, 't'), ""},
    };
    for (const auto& [word, nearest] : rows)
        EXPECT_EQ(FindNearest(word, names), nearest) << word.substr(0, 20);
    EXPECT_EQ(FindNearest("a", std::array<std::string_view, 1>{"b"}), "");
    EXPECT_EQ(FindNearest("text", {}), "");
    EXPECT_EQ(DidYouMean("Table", names) + DidYouMean("xyz", names), "; did you mean tables?");
}

// What it shows on a terminal of so many columns.
std::string ShownAt(unsigned short columns, const std::string& command) {
    const winsize size{24, columns, 0, 0};
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
        alarm(60);
        execl("/bin/sh", "sh", "-c", ("exec '" TICKETHOST "' " + command).c_str(), nullptr);
        _exit(99);
    }
    std::string shown;
    char byte = 0;
    while (read(terminal, &byte, 1) == 1)
        if (byte != '\r') shown += byte;
    int status = -1;
    waitpid(child, &status, 0);
    close(terminal);
    EXPECT_EQ(status, 0) << command;
    return shown;
}

std::size_t WidestLineOf(const std::string& text) {
    std::size_t widest = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) widest = std::max(widest, CountCharacters(line));
    return widest;
}

class Terminal : public HostTool {
protected:
    void SetUp() override {
        if (const std::string why = WhyNoTerminal(); !why.empty()) GTEST_SKIP() << why;
    }
};

TEST_F(Terminal, HelpOfEachVerbFits) {
    const std::string help = Run("help").Output;
    EXPECT_EQ(help, Run("--help").Output);
    EXPECT_LE(WidestLineOf(help), 80U) << help;
    std::istringstream lines(help.substr(help.find("\nVerbs:\n") + 8));
    int verbs = 0;
    for (std::string line; std::getline(lines, line) && !line.empty(); ++verbs) {
        const std::string verb = line.substr(2, line.find(' ', 2) - 2);
        if (verb.empty()) continue;  // the next line of a description
        const Outcome outcome = Run("help " + verb);
        EXPECT_TRUE(outcome.Status == 0 && outcome.Output == Run(verb + " --format --help --x").Output)
            << verb;
        EXPECT_NE(outcome.Output.find("\nUsage: tickethost " + verb + " [OPTIONS]"), std::string::npos)
            << verb;
        EXPECT_LE(WidestLineOf(outcome.Output), 80U) << outcome.Output;
        const std::string narrow = ShownAt(64, "help " + verb);
        EXPECT_LE(WidestLineOf(narrow.substr(0, narrow.find("\n\n", narrow.find("\nOptions:")))), 64U)
            << verb;
    }
    EXPECT_GE(verbs, 4);
    EXPECT_EQ(Run("--version").Output, "tickethost 0.1.0\n");
}

std::string WithoutSpace(std::string text) {
    std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
    return text;
}

// Nothing is lost where lines break, down to what the widest cell takes; a terminal that doesn't tell its
// width has 80 columns, and a pipe no end.
TEST_F(Terminal, TablesFit) {
    const std::string whole = Run("tables").Output;
    EXPECT_GT(WidestLineOf(whole), 100U);
    for (unsigned short columns = 51; columns < 150; ++columns) {
        const std::string shown = ShownAt(columns, "tables");
        EXPECT_LE(WidestLineOf(shown), columns) << shown;
        EXPECT_EQ(WithoutSpace(shown), WithoutSpace(whole));
    }
    EXPECT_EQ(ShownAt(0, "tables"), ShownAt(80, "tables"));
    EXPECT_EQ(ShownAt(500, "tables"), whole);
}

TEST_F(Terminal, ColoursAreForWhoWantsThem) {
    Write("a.xml", "<a/>");
    const std::string job = "'" + (folder_ / "a.xml").string() + "'";
    const auto hasColours = [](const std::string& shown) { return shown.find('\x1B') != std::string::npos; };
    unsetenv("NO_COLOR");
    EXPECT_TRUE(hasColours(ShownAt(80, "convert " + job)));
    EXPECT_FALSE(hasColours(ShownAt(80, "convert --color never " + job)));
    EXPECT_TRUE(hasColours(Run("convert --color always " + job).Output));
    EXPECT_FALSE(hasColours(Run("convert --color auto " + job).Output));
    setenv("NO_COLOR", "1", 1);
    EXPECT_FALSE(hasColours(ShownAt(80, "convert " + job)));
    EXPECT_TRUE(hasColours(ShownAt(80, "convert --color always " + job)));
    setenv("NO_COLOR", "", 1);
    EXPECT_TRUE(hasColours(ShownAt(80, "convert " + job)));
    unsetenv("NO_COLOR");
}

TEST_F(HostTool, HintsAtPropertiesThatNobodyReads) {
    Write("a.xml", "<a/>");
    const Outcome outcome =
        Run("convert --pipeline PrinterNam=x --pipeline 'A=B=C' --pipeline '[D=E,F=G]' "
            "--pipeline PrinterName=x --driver CommandMap_S=x --driver Series=x "
            "--queue EncryptionPassphrase=x --format json a.xml");
    const std::string none = ": the module reads no such property";
    EXPECT_EQ(outcome.Errors, "tickethost: --pipeline PrinterNam" + none + "; did you mean PrinterName?\n" +
                                  "tickethost: --pipeline A" + none + "\ntickethost: --pipeline [D" + none +
                                  "\ntickethost: --driver Series" + none +
                                  "\ntickethost: --queue EncryptionPassphrase" + none +
                                  "; did you mean encryptionPassphrase?\n");
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_NE(outcome.Output.find("\"A\": \"B=C\""), std::string::npos) << outcome.Output;
    EXPECT_NE(outcome.Output.find("\"[D\": \"E,F=G]\""), std::string::npos) << outcome.Output;
}

// Bags that tell which names they are asked for.
using Names = std::set<std::string>;

class AskedPrinterBag final : public Platform::IPrinterPropertyBag {
public:
    explicit AskedPrinterBag(const PrinterProperties& properties) : bag_(properties) {}
    bool GetString(std::u16string_view name, Platform::WideText& value) const override {
        Asked.insert(ToUtf8(name));
        return bag_.GetString(name, value);
    }
    bool GetInt32(std::u16string_view name, std::int32_t& value) const override {
        Asked.insert(ToUtf8(name));
        return bag_.GetInt32(name, value);
    }
    mutable Names Asked;

private:
    MemoryPrinterBag bag_;
};

class AskedPipelineBag final : public Platform::IPrintPipelinePropertyBag {
public:
    explicit AskedPipelineBag(const PipelineProperties& properties) : bag_(properties) {}
    bool GetProperty(std::u16string_view name, Platform::PropertyValue& value) const override {
        Asked.insert(ToUtf8(name));
        return bag_.GetProperty(name, value);
    }
    bool AddProperty(std::u16string_view name, const Platform::PropertyValue& value) override {
        return bag_.AddProperty(name, value);
    }
    bool DeleteProperty(std::u16string_view name) override { return bag_.DeleteProperty(name); }
    mutable Names Asked;

private:
    MemoryPipelineBag bag_;
};

// What a ticket doesn't say the module looks for in the pipeline, so bare ones come behind each of a sample.
TEST(KnownProperties, AreThoseThatTheModuleReads) {
    Names pipeline, driver, queue;
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLES_DIR)) {
        if (entry.path().extension() != ".json") continue;
        const Job job = ReadJob(entry.path().string());
        const auto bare = std::make_shared<Ticket>(Ticket{"bare", std::string("<a/>")});
        const OptionTableSet tables(*job.Settings.Tables);
        const auto driverBag = std::make_shared<AskedPrinterBag>(job.Settings.Driver);
        const auto queueBag = std::make_shared<AskedPrinterBag>(job.Settings.Queue);
        PipelineProperties properties = job.Settings.Pipeline;
        properties[u"DriverPropertyBag"] = std::shared_ptr<Platform::IPrinterPropertyBag>(driverBag);
        properties[u"QueuePropertyBag"] = std::shared_ptr<Platform::IPrinterPropertyBag>(queueBag);
        const auto bag = std::make_shared<AskedPipelineBag>(properties);
        auto* snapshot = DeviceSpecificModule::CreatePTConverterClassPointer();
        for (const Call& call : job.Calls)
            for (const Call& each : {call, Call{1, bare}, Call{0, bare}})
                DeviceSpecificModule::ProcessDrvPT(bag, LoadTicket(*each.Source), each.Level, tables.Record(),
                                                   snapshot);
        DeviceSpecificModule::DestroyPTConverterClassPointer(snapshot);
        pipeline.merge(bag->Asked);
        driver.merge(driverBag->Asked);
        queue.merge(queueBag->Asked);
    }
    const auto known = [](Bag bag) {
        const std::vector<std::string_view> names = PropertiesRead(bag);
        return Names(names.begin(), names.end());
    };
    EXPECT_EQ(pipeline, known(Bag::Pipeline));
    EXPECT_EQ(queue, known(Bag::Queue));
    EXPECT_FALSE(driver.empty());
    for (const std::string& name : driver) EXPECT_TRUE(IsPropertyRead(Bag::Driver, name)) << name;
}

}  // namespace
}  // namespace TicketHost
