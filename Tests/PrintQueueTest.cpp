#include "Platform/PrintQueue.h"

#include <cups/cups.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <tuple>
#include <vector>

#include "Platform/KeptAnswers.h"

namespace DeviceSpecificModule::Platform {
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
        fs::create_directory(folder_ + "/ssl");
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
    const int first = AddJob("two", "First");
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

    // The first encrypted connection lets the scheduler make a key, which may take long.
    http_t* const encrypted =
        httpConnect2(socket_.c_str(), 0, nullptr, AF_UNSPEC, HTTP_ENCRYPTION_REQUIRED, 1, 30000, nullptr);
    EXPECT_NE(encrypted, nullptr);
    httpClose(encrypted);
    cupsSetEncryption(HTTP_ENCRYPTION_REQUIRED);
    EXPECT_EQ(FirstDocumentName(u"two"), u"First");
    cupsSetEncryption(HTTP_ENCRYPTION_IF_REQUESTED);

    const char* const convert =
        "'" TICKETHOST "' convert --pipeline PrinterName=two '" SAMPLES_DIR "/tickets/job.xml'";
    EXPECT_EQ(std::system((convert + " | grep -q '@PJL SET JOBNAME = \"First\"'"s).c_str()), 0);

    {
        const Platform::KeptAnswers kept;
        EXPECT_EQ(FirstDocumentName(u"two"), u"First");
        EXPECT_EQ(FirstDocumentName(u"empty"), std::nullopt);
        AddJob("empty", "New");
        EXPECT_EQ(cupsCancelJob2(connection_, "two", first, 0), IPP_STATUS_OK) << cupsLastErrorString();
        EXPECT_EQ(std::async(std::launch::async, FirstDocumentName, u"two").get(), u"First");
        EXPECT_EQ(FirstDocumentName(u"empty"), std::nullopt);
        EXPECT_EQ(FirstDocumentName(u"odd"), u"Pr\u00FCfung \"A4\" \u65E5\u672C \U0001F600\nline 2");
    }
    EXPECT_EQ(FirstDocumentName(u"empty"), u"New");
    std::future<std::optional<std::u16string>> answers[4];
    for (auto& answer : answers) answer = std::async(std::launch::async, FirstDocumentName, u"two");
    for (auto& answer : answers) EXPECT_EQ(answer.get(), u"Second");
}

// What a service says, whatever it is asked: the start, then the rest for ever.
struct Service {
    const char* Name;
    std::string Start, Again = {};
    std::optional<std::u16string> Result = {};
    std::chrono::milliseconds AtMost = 20s;
    std::chrono::milliseconds Pause = 0ms;  // behind each rest or, without one, each byte of the start
    bool Asked = true;                      // waits for the whole request
    bool Closes = false;                    // with all said; else when the caller is done
    http_encryption_t Encryption = HTTP_ENCRYPTION_IF_REQUESTED;
};

std::string Times(std::size_t count, std::string_view text) {
    std::string result;
    while (count-- > 0) result += text;
    return result;
}

// The answer that a printer gives for a job of this name, and the start of it behind which attributes may
// follow without an end.
std::string HttpAnswer(const std::string& body, const std::string& fields = "") {
    return "HTTP/1.1 200 OK\r\n" + fields +
           "Content-Type: application/ipp\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" +
           body;
}
const std::string ippStart =
    "\x01\x01\0\0\0\0\0\x01"  // version, status, request
    "\x01\x47\0\x12"
    "attributes-charset\0\x05"
    "utf-8"
    "\x48\0\x1b"
    "attributes-natural-language\0\x02"
    "en"
    "\x02\x21\0\x06"
    "job-id\0\x04\0\0\0\x07"s;
const std::string ippAnswer = ippStart + "\x42\0\x08job-name\0\x05Title\x03"s;
const std::string upgrade = "HTTP/1.1 101 Switching Protocols\r\n";
const std::string endlessBody = "HTTP/1.1 200 OK\r\nContent-Length: 2000000000\r\n\r\n";
const std::string longName = endlessBody + ippStart + "\x44\x70\0"s;  // of 28,672 bytes

class ListeningService {
public:
    explicit ListeningService(const std::string& path) {
        sockaddr_un address{AF_UNIX, {}};
        EXPECT_LT(path.copy(address.sun_path, sizeof address.sun_path), sizeof address.sun_path);
        EXPECT_EQ(bind(listening_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(listening_, 1), 0);
        constexpr timeval patience{20, 0};
        EXPECT_EQ(setsockopt(listening_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience), 0);
    }
    ~ListeningService() { close(listening_); }

    // Serves one caller until `isDone`; gives how many bytes were taken.
    template <class IsDone>
    std::size_t Serve(const Service& service, IsDone isDone) const {
        const int caller = accept(listening_, nullptr, nullptr);
        if (service.Asked) ReadRequest(caller);
        std::size_t taken = 0;
        const auto say = [&](const std::string& text) {
            for (std::size_t said = 0; said < text.size() && !isDone();) {
                const ssize_t count =
                    send(caller, &text[said], text.size() - said, MSG_NOSIGNAL | MSG_DONTWAIT);
                if (count < 0 && errno != EAGAIN) return false;
                if (count < 0) std::this_thread::sleep_for(1ms);
                if (count > 0) said += static_cast<std::size_t>(count);
                if (count > 0) taken += static_cast<std::size_t>(count);
            }
            std::this_thread::sleep_for(service.Pause);
            return true;
        };
        const bool slowly = service.Pause > 0ms && service.Again.empty();
        const std::size_t piece = slowly ? 1 : service.Start.size();
        for (std::size_t said = 0; said < service.Start.size(); said += piece)
            say(service.Start.substr(said, piece));
        while (!isDone() && !service.Again.empty() && say(service.Again)) continue;
        while (!isDone() && !service.Closes) std::this_thread::sleep_for(1ms);
        close(caller);
        return taken;
    }

private:
    // To the end of the last attribute.
    static void ReadRequest(int caller) {
        std::string request;
        for (char byte = 0; !request.ends_with("job-name\x03"); request += byte)
            if (recv(caller, &byte, 1, 0) != 1) return;
        const std::string user = cupsUser();
        EXPECT_NE(request.find("requesting-user-name\0"s + static_cast<char>(user.size()) + user),
                  request.npos);
    }

    const int listening_ = socket(AF_UNIX, SOCK_STREAM, 0);
};

// All at once, each on a socket of its own.
TEST_F(PrintQueueTest, NoServiceHoldsACallForLongOrSendsWithoutEnd) {
    constexpr auto silent = 4500ms;  // at most: less than what one that talks gets
    const std::string goOn = "HTTP/1.1 100 Continue\r\n\r\n", ok = "HTTP/1.1 200 OK\r\n";
    const std::string much = Times(2000, "X: " + std::string(95, 'x') + "\r\n");  // 200,000 bytes
    const std::vector<Service> services = {
        {.Name = "silent", .Start = "", .AtMost = silent, .Asked = false},
        {.Name = "silent within the headers", .Start = ok, .AtMost = silent},
        {.Name = "silent within the answer", .Start = HttpAnswer(ippAnswer).substr(0, 130), .AtMost = silent},
        {.Name = "silent behind an upgrade", .Start = upgrade + "\r\n", .AtMost = silent},
        {.Name = "closes at once", .Start = "", .AtMost = silent, .Asked = false, .Closes = true},
        {.Name = "closes within the headers", .Start = ok, .AtMost = silent, .Closes = true},
        {.Name = "closes within the answer",
         .Start = HttpAnswer(ippAnswer).substr(0, 130),
         .AtMost = silent,
         .Closes = true},
        {.Name = "nonsense", .Start = "\x01\x02nonsense\n\n", .AtMost = silent},
        {.Name = "nonsense for an answer", .Start = HttpAnswer("nonsense, quite long"), .AtMost = silent},
        {.Name = "an error",
         .Start = "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n",
         .AtMost = silent},
        {.Name = "an error instead of encryption",
         .Start = "HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\n\r\n",
         .AtMost = silent,
         .Asked = false,
         .Encryption = HTTP_ENCRYPTION_REQUIRED},
        {.Name = "a header byte now and then", .Start = ok + "X: ", .Again = "x", .Pause = 100ms},
        {.Name = "a body byte now and then", .Start = longName, .Again = "x", .Pause = 100ms},
        {.Name = "go on, now and then", .Start = "", .Again = goOn, .Pause = 100ms},
        {.Name = "a byte now and then before encryption",
         .Start = upgrade,
         .Again = "x",
         .Pause = 100ms,
         .Asked = false,
         .Encryption = HTTP_ENCRYPTION_REQUIRED},
        {.Name = "headers without end",
         .Start = ok,
         .Again = "WWW-Authenticate: " + std::string(9000, 'x') + "\r\n"},
        {.Name = "a body without end",
         .Start = endlessBody + ippStart,
         .Again = Times(1000, "\x44\0\x01z\0\x02zz"s)},
        {.Name = "go on for ever", .Start = "", .Again = Times(1000, goOn)},
        {.Name = "right", .Start = HttpAnswer(ippAnswer), .Result = u"Title"},
        {.Name = "a job without a name", .Start = HttpAnswer(ippStart + "\x03"), .Result = u""},
        {.Name = "right, then closed", .Start = HttpAnswer(ippAnswer), .Result = u"Title", .Closes = true},
        // 177 bytes: longer than a service may be silent.
        {.Name = "right in pieces", .Start = HttpAnswer(ippAnswer), .Result = u"Title", .Pause = 13ms},
        {.Name = "right behind much", .Start = HttpAnswer(ippAnswer, much), .Result = u"Title"},
        {.Name = "right behind going on",
         .Start = Times(9, goOn) + HttpAnswer(ippAnswer),
         .Result = u"Title"},
    };
    const auto ask = [&](std::size_t index) {
        const Service& service = services[index];
        const std::string path = socket_ + std::to_string(index);
        const ListeningService listening(path);
        auto asked = std::async(std::launch::async, [&] {
            cupsSetServer(path.c_str());
            cupsSetEncryption(service.Encryption);
            return FirstDocumentName(u"two");
        });
        const auto start = std::chrono::steady_clock::now();
        const std::size_t taken = listening.Serve(service, [&] {
            return asked.wait_for(0ms) == std::future_status::ready ||
                   std::chrono::steady_clock::now() - start > 30s;
        });
        EXPECT_EQ(asked.get(), service.Result) << service.Name;
        EXPECT_LT(std::chrono::steady_clock::now() - start, service.AtMost) << service.Name;
        EXPECT_LT(taken, 1'500'000u) << service.Name;
    };
    std::vector<std::future<void>> done;
    for (std::size_t index = 0; index < services.size(); ++index)
        done.push_back(std::async(std::launch::async, ask, index));
    for (auto& each : done) each.get();
    EXPECT_EQ(FirstDocumentName(u"two"), std::nullopt) << "where no service is";
}

// A question takes some files. However many are left there is an answer or none, and nothing else.
TEST_F(PrintQueueTest, WithoutFilesLeftThereIsNoName) {
    ASSERT_NO_FATAL_FAILURE(StartScheduler());
    AddJob("two", "First");
    EXPECT_EQ(FirstDocumentName(u"two"), u"First");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const int next = dup(httpGetFd(connection_));
    close(next);
    std::ignore = std::generic_category().message(EMFILE);  // a sanitizer looks at a class once, by a pipe
    rlim_t left = 0;
    for (std::optional<std::u16string> name; !name && left < 20; ++left) {
        rlimit limit = before;
        limit.rlim_cur = static_cast<rlim_t>(next) + left;
        ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
        name = FirstDocumentName(u"two");
        setrlimit(RLIMIT_NOFILE, &before);
        EXPECT_TRUE(!name || *name == u"First") << left;
    }
    EXPECT_TRUE(left > 3 && left < 20) << left;
}

// Who else keeps answers changes nothing for one who does already.
TEST(KeptAnswersTest, LastAsLongAsAnybodyKeepsThem) {
    EXPECT_EQ(KeptAnswers::CurrentTime(), 0u);
    auto first = std::make_unique<KeptAnswers>();
    const auto time = KeptAnswers::CurrentTime();
    EXPECT_NE(time, 0u);
    auto second = std::make_unique<KeptAnswers>();
    EXPECT_EQ(KeptAnswers::CurrentTime(), time);
    first.reset();
    EXPECT_EQ(KeptAnswers::CurrentTime(), time);
    second.reset();
    EXPECT_EQ(KeptAnswers::CurrentTime(), 0u);
    EXPECT_GT((first = std::make_unique<KeptAnswers>(), KeptAnswers::CurrentTime()), time);
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
}  // namespace DeviceSpecificModule::Platform
