#include "Platform/PrintQueue.h"

#include <cups/cups.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <optional>
#include <thread>

namespace Platform {
namespace {

namespace fs = std::filesystem;
using namespace std::literals;

// Nothing where the platform gives no name.
std::optional<std::u16string> FirstDocumentName(std::u16string_view queue) {
    WideText name(u"as it was");
    if (GetFirstDocumentName(WideText(queue), name)) return std::u16string(name.View());
    EXPECT_TRUE(name == u"as it was");
    return std::nullopt;
}

// A folder of the test's own, gone at the end with all that is in it, and the socket of a print service
// there.
class PrintQueueTest : public testing::Test {
protected:
    // CUPS remembers for each thread what it once read of the environment; here it is told to forget.
    void SetUp() override {
        ASSERT_NE(mkdtemp(folder_.data()), nullptr) << folder_;
        socket_ = folder_ + "/socket";
        setenv("CUPS_SERVER", socket_.c_str(), 1);
        cupsSetServer(nullptr);
    }

    void TearDown() override {
        httpClose(connection_);
        if (scheduler_ > 0 && kill(scheduler_, SIGTERM) == 0) waitpid(scheduler_, nullptr, 0);
        fs::remove_all(folder_);
    }

    // The scheduler's files are all in the folder, where it writes too.
    void StartScheduler() {
        ASSERT_EQ(access("/usr/sbin/cupsd", X_OK), 0) << "there is no CUPS scheduler: install cups-daemon";
        fs::copy(TEST_DATA_DIR "/platform/cups", folder_);
        const std::string configuration = folder_ + "/cupsd.conf", files = folder_ + "/cups-files.conf";
        std::ofstream(configuration, std::ios::app) << "Listen " << socket_ << '\n';
        std::ofstream(files, std::ios::app) << "ServerRoot " << folder_ << '\n';
        for (const char* kind : {"StateDir", "CacheDir", "RequestRoot", "AccessLog", "PageLog"})
            std::ofstream(files, std::ios::app) << kind << ' ' << folder_ << '/' << kind << '\n';
        scheduler_ = fork();
        if (scheduler_ == 0) {
            prctl(PR_SET_PDEATHSIG, SIGTERM);  // for a test that doesn't come to its end
            execl("/usr/sbin/cupsd", "cupsd", "-f", "-c", configuration.c_str(), "-s", files.c_str(),
                  nullptr);
            _exit(127);
        }
        for (int attempt = 0; attempt < 200 && connection_ == nullptr; ++attempt) {
            std::this_thread::sleep_for(50ms);
            connection_ =
                httpConnect2(socket_.c_str(), 0, nullptr, AF_UNSPEC, HTTP_ENCRYPTION_NEVER, 1, 1000, nullptr);
        }
        ASSERT_NE(connection_, nullptr) << "cupsd doesn't answer";
    }

    int AddJob(const char* queue, const std::string& title) {
        const int job = cupsCreateJob(connection_, queue, title.c_str(), 0, nullptr);
        EXPECT_GT(job, 0) << queue << ": " << cupsLastErrorString();
        return job;
    }

    std::string folder_ = (fs::temp_directory_path() / "queue-XXXXXX").string(), socket_;
    pid_t scheduler_ = 0;
    http_t* connection_ = nullptr;
};

TEST_F(PrintQueueTest, TheFirstUnfinishedJobGivesTheName) {
    ASSERT_NO_FATAL_FAILURE(StartScheduler());
    AddJob("other", "On another queue");
    const int finished = AddJob("two", "Finished");
    AddJob("two", "First");
    AddJob("two", "Second");
    EXPECT_EQ(cupsCancelJob2(connection_, "two", finished, 0), IPP_STATUS_OK) << cupsLastErrorString();
    AddJob("odd", "Pr\u00FCfung \"A4\" \u65E5\u672C \U0001F600\nline 2");
    AddJob("long", std::string(300, 'x'));
    for (const char* name : {"x?y", "100%s", "B\u00FCro", "closed"}) AddJob(name, "Job of "s + name);

    const auto prompt = [](const char*, http_t*, const char*, const char*, void*) -> const char* {
        ADD_FAILURE() << "nobody may be asked for a password";
        return nullptr;
    };
    cupsSetPasswordCB2(prompt, nullptr);
    EXPECT_EQ(FirstDocumentName(u"odd"), u"Pr\u00FCfung \"A4\" \u65E5\u672C \U0001F600\nline 2");
    EXPECT_EQ(FirstDocumentName(u"long"), std::u16string(300, u'x'));
    for (const std::u16string name : {u"x?y", u"100%s", u"B\u00FCro"})
        EXPECT_EQ(FirstDocumentName(name), u"Job of " + name);
    for (const std::u16string& name :
         {u"closed"s, u"empty"s, u"unknown"s, u""s, u"two "s, u"tw%6F"s, u"/"s, u"two/"s, u"two?"s, u"two#"s,
          u"two\0"s, u"\xD800"s, std::u16string(2000, u'a')})
        EXPECT_EQ(FirstDocumentName(name), std::nullopt) << testing::PrintToString(name);

    const char* const convert =
        TICKETHOST " convert --pipeline PrinterName=two " SAMPLES_DIR "/tickets/job.xml";
    EXPECT_EQ(std::system((convert + " | grep -q '@PJL SET JOBNAME = \"First\"'"s).c_str()), 0);

    std::future<std::optional<std::u16string>> answers[4];
    for (auto& answer : answers) answer = std::async(std::launch::async, FirstDocumentName, u"two");
    for (auto& answer : answers) EXPECT_EQ(answer.get(), u"First");
}

// A service that is missing, one that is silent, and one that falls silent within its answer.
TEST_F(PrintQueueTest, ServicesThatDoNotAnswerGiveNoName) {
    EXPECT_EQ(FirstDocumentName(u"two"), std::nullopt);

    sockaddr_un address{AF_UNIX, {}};
    ASSERT_LT(socket_.copy(address.sun_path, sizeof address.sun_path), sizeof address.sun_path);
    const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listening, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(listening, 1), 0);
    for (const std::string& start : {""s, "HTTP/1.1 200 OK\r\n"s}) {
        auto asked = std::async(std::launch::async, FirstDocumentName, u"two");
        const int service = accept(listening, nullptr, nullptr);
        send(service, start.data(), start.size(), MSG_NOSIGNAL);
        EXPECT_EQ(asked.get(), std::nullopt)
            << start;  // by giving up, since this service stays open until then
        close(service);
    }
    close(listening);
}

// The loader's log of a job in a process of its own tells which libraries it loads.
TEST_F(PrintQueueTest, TheLibraryIsLoadedWhenAQueueIsAskedFirst) {
    const std::string job = SAMPLES_DIR "/tickets/job.xml", tool = TICKETHOST " convert ";
    const std::string initialised = "grep -q 'calling init: .*/" CUPS_SONAME "' " + folder_ + "/log.*";
    const auto run = [&](const std::string& arguments) {
        return std::system(("rm -f " + folder_ + "/log.*; LD_DEBUG=libs LD_DEBUG_OUTPUT=" + folder_ +
                            "/log " + tool + arguments + job + " >" + folder_ + "/result")
                               .c_str());
    };
    EXPECT_EQ(run(""), 0);
    EXPECT_EQ(std::system(("grep -q 'calling init' " + folder_ + "/log.*").c_str()), 0) << "the log is none";
    EXPECT_NE(std::system(initialised.c_str()), 0);
    EXPECT_EQ(run("--pipeline PrinterName= "), 0);
    EXPECT_NE(std::system(initialised.c_str()), 0);
    EXPECT_EQ(run("--pipeline PrinterName=two "), 0);
    EXPECT_EQ(std::system(initialised.c_str()), 0);
}

// The loader finds one that is no library, and one without the functions.
TEST_F(PrintQueueTest, WithoutTheLibraryThereIsNoName) {
    const std::string library = folder_ + "/" CUPS_SONAME;
    const std::string job = "LD_LIBRARY_PATH=" + folder_ +
                            " " TICKETHOST " convert --pipeline PrinterName=two " SAMPLES_DIR
                            "/tickets/job.xml | grep -q '@PJL SET JOBNAME = \"\"'";
    ASSERT_NO_FATAL_FAILURE(StartScheduler());
    AddJob("two", "First");
    std::ofstream(library) << "no library";
    EXPECT_EQ(std::system(job.c_str()), 0);
    fs::copy_file(MODULE_FILE, library, fs::copy_options::overwrite_existing);
    EXPECT_EQ(std::system(job.c_str()), 0);
    fs::remove(library);
    EXPECT_NE(std::system(job.c_str()), 0) << "the name is there with the library";
}

}  // namespace
}  // namespace Platform
