#include <gtest/gtest.h>
#include <json/writer.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include "HostTool.h"
#include "Support.h"

namespace DeviceSpecificModule {
namespace {

TEST(PassphraseVerb, WrapsAndChecksWhatComesIn) {
    for (const Json::Value& row : ReadCases("secrets/passphrases.json")) {
        int status = -1;
        const std::string command =
            "(" + row[0].asString() + ") | '" TICKETHOST "' passphrase " + row[1].asString() + " 2>&1";
        EXPECT_EQ(OutputOf(command, &status), row[3].asString()) << row;
        EXPECT_EQ(status, row[2].asInt()) << row;
    }
}

using PassphraseFile = TicketHost::HostTool;

// What the file holds, the exit status for "abc" on the standard input, what is shown.
TEST_F(PassphraseFile, IsCheckedAsATextIs) {
    const std::string abc = ReadCases("secrets/passphrases.json")[0][3].asString().substr(0, 32);
    const char* const noStored =
        "tickethost: stored.txt: not a stored passphrase, which is 32 hexadecimal digits or a multiple of "
        "that\n";
    const std::tuple<std::string, int, std::string> rows[] = {
        {abc, 0, "matches\n"},
        {abc + "\n", 0, "matches\n"},
        {abc + "\r\n", 0, "matches\n"},
        {"2" + abc.substr(1), 1, "does not match\n"},
        {abc + "\n\n", 2, noStored},
        {" " + abc, 2, noStored},
        {"", 2, noStored},
    };
    Write("given.txt", "abc");
    for (const auto& [stored, status, shown] : rows) {
        Write("stored.txt", stored);
        const Outcome outcome = RunShell("\"$TOOL\" passphrase --check-file stored.txt <given.txt");
        EXPECT_EQ(outcome.Output + outcome.Errors, shown) << stored;
        EXPECT_EQ(outcome.Status, status) << stored;
    }
    EXPECT_EQ(Run("passphrase --check-file none.txt").Errors,
              "tickethost: none.txt: No such file or directory\n");
    EXPECT_EQ(
        Run("passphrase --check-file stored.txt --check " + abc).Errors,
        "tickethost: --check: not together with --check-file (tickethost help passphrase tells more)\n");
}

// What to wait for, and what to type then: unseen, so echo must be off.
using Steps = std::vector<std::pair<const char*, std::string>>;

// A command at a terminal: how it ends, and what it shows after the steps. Echo must be on again by then.
std::pair<int, std::string> RunAtTerminal(const char* command, const Steps& steps) {
    alarm(60);  // rather than wait for ever
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        // What was ignored where the tests were started would be ignored here too.
        for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP}) signal(number, SIG_DFL);
        execl("/bin/sh", "sh", "-mc", command, nullptr);
        _exit(99);
    }
    const auto echoes = [&] {
        termios mode{};
        EXPECT_EQ(tcgetattr(terminal, &mode), 0);
        return (mode.c_lflag & ECHO) != 0;
    };
    std::string shown;
    char byte = 0;
    for (const auto& [awaited, typed] : steps) {
        while (!shown.ends_with(awaited) && read(terminal, &byte, 1) == 1) shown += byte;
        for (int tries = 0; tries < 1000 && echoes(); ++tries) usleep(10000);
        EXPECT_FALSE(echoes());
        EXPECT_EQ(write(terminal, typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
    }
    shown.clear();
    while (read(terminal, &byte, 1) == 1) shown += byte;
    EXPECT_TRUE(echoes());
    int status = -1;
    waitpid(child, &status, 0);
    close(terminal);
    alarm(0);
    return {EndOf(status), shown};
}

TEST(PassphraseVerb, HidesWhatIsTypedAtATerminal) {
    if (const std::string why = TicketHost::WhyNoTerminal(); !why.empty()) GTEST_SKIP() << why;
    const std::string abc = ReadCases("secrets/passphrases.json")[0][3].asString().substr(0, 32);
    const char *const prompt = "Passphrase: ", *const verb = "exec '" TICKETHOST "' passphrase";
    EXPECT_EQ(RunAtTerminal(verb, {{prompt, "abc\n"}}), std::pair(0, "\r\n" + abc + "\r\n"));
    EXPECT_EQ(RunAtTerminal(verb, {{prompt, std::string(300, 'x') + "\n"}}).first, 2);
    EXPECT_EQ(RunAtTerminal(verb, {{prompt, "\x04"}}).first, 2);  // end of input
    EXPECT_EQ(RunAtTerminal(verb, {{prompt, "ab\x03"}}).first, -SIGINT);
    // Ignored, it takes what was typed before it, no more.
    const std::string ignoring = std::string("trap '' INT; ") + verb;
    EXPECT_EQ(RunAtTerminal(ignoring.c_str(), {{prompt, "xy\003abc\n"}}),
              std::pair(0, "\r\n" + abc + "\r\n"));
    // Stopped, with echo on meanwhile, and continued.
    const char* const stopped = "'" TICKETHOST "' passphrase; stty -a | grep -o ' echo ' && fg";
    EXPECT_EQ(RunAtTerminal(stopped, {{prompt, "ab\x1A"}, {" passphrase\r\n", "abc\n"}}),
              std::pair(0, "\r\n" + abc + "\r\n"));
}

}  // namespace
}  // namespace DeviceSpecificModule
