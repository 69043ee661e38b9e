#include "Platform/PrintQueue.h"

#include <memory>
#include <new>
#include <optional>
#include <string>
#include <system_error>

#include "AnswerBook.h"
#include "Cups.h"
#include "Relay.h"
#include "devicespecific/platform/CodePages.h"
#include "devicespecific/platform/ResultError.h"

namespace DeviceSpecificModule::Platform {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds connecting = 2s, silence = 2s, total = 5s;
constexpr std::size_t mostBytes = std::size_t{256} * 1024;

// Only what the library made is freed, so it is there.
struct HttpCloser {
    void operator()(http_t* connection) const { FindCups()->httpClose(connection); }
};
struct IppDeleter {
    void operator()(ipp_t* message) const { FindCups()->ippDelete(message); }
};
using Connection = std::unique_ptr<http_t, HttpCloser>;
using Message = std::unique_ptr<ipp_t, IppDeleter>;

// Asks for the name of the first job that is not finished; null for a queue whose name no address can hold.
Message NewRequest(const Cups& cups, const std::string& queue) {
    // What stands behind a zero character would be lost.
    if (queue.find('\0') != queue.npos) return nullptr;
    char address[HTTP_MAX_URI];
    if (cups.httpAssembleURIf(HTTP_URI_CODING_ALL, address, sizeof address, "ipp", nullptr, "localhost", 0,
                              "/printers/%s", queue.c_str()) != HTTP_URI_STATUS_OK)
        return nullptr;
    Message request(cups.ippNewRequest(IPP_OP_GET_JOBS));
    cups.ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, address);
    cups.ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                      cups.cupsUser());
    cups.ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "which-jobs", nullptr,
                      "not-completed");
    cups.ippAddInteger(request.get(), IPP_TAG_OPERATION, IPP_TAG_INTEGER, "limit", 1);
    static const char* const wanted[] = {"job-id", "job-name"};
    cups.ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", 2, nullptr,
                       wanted);
    return request;
}

// One request, sent once. By hand, because the library's own way to do it would answer a service that wants
// to know who asks with a question for a password on the terminal, and would try again and again where none
// answers.
Message Exchange(const Cups& cups, http_t* connection, ipp_t* request) {
    cups.httpClearFields(connection);
    cups.httpSetField(connection, HTTP_FIELD_CONTENT_TYPE, "application/ipp");
    cups.httpSetLength(connection, cups.ippLength(request));
    if (cups.httpPost(connection, "/") != 0 || cups.ippWrite(connection, request) != IPP_STATE_DATA)
        return nullptr;
    http_status_t status = HTTP_STATUS_CONTINUE;
    while (status == HTTP_STATUS_CONTINUE) status = cups.httpUpdate(connection);
    if (status != HTTP_STATUS_OK) return nullptr;
    Message answer(cups.ippNew());
    if (cups.ippRead(connection, answer.get()) != IPP_STATE_DATA) return nullptr;
    return answer;
}

// What the service answers to the request, null when it doesn't within the limits. Encryption that is agreed
// on over a plain connection is part of the exchange; after an error there the library would send the request
// over a new connection, past the limits.
Message Ask(const Cups& cups, ipp_t* request) {
    const auto end = std::chrono::steady_clock::now() + total;
    const http_encryption_t encryption = cups.cupsEncryption();
    const bool upgrades = encryption == HTTP_ENCRYPTION_REQUIRED;
    const Connection connection(cups.httpConnect2(cups.cupsServer(), cups.ippPort(), nullptr, AF_UNSPEC,
                                                  upgrades ? HTTP_ENCRYPTION_IF_REQUESTED : encryption, 1,
                                                  static_cast<int>(connecting.count()), nullptr));
    if (!connection) return nullptr;
    try {
        const Relay relay(cups.httpGetFd(connection.get()), {silence, end, mostBytes});
        if (upgrades && (cups.httpEncryption(connection.get(), encryption) != 0 ||
                         cups.httpGetStatus(connection.get()) >= HTTP_STATUS_BAD_REQUEST))
            return nullptr;
        return Exchange(cups, connection.get(), request);
    } catch (const std::system_error&) {
        return nullptr;  // no thread or file left
    } catch (const std::bad_alloc&) {
        ThrowResult(ResultOutOfMemory);
    }
}

constinit thread_local const WideText* nameOfThread = nullptr;

std::optional<WideText> AskForFirstDocument(const std::string& queue) {
    const Cups* const cups = FindCups();
    if (cups == nullptr) return std::nullopt;
    const Message request = NewRequest(*cups, queue);
    if (!request) return std::nullopt;
    const Message answer = Ask(*cups, request.get());
    if (!answer || cups->ippGetStatusCode(answer.get()) > IPP_STATUS_OK_CONFLICTING ||
        cups->ippFindAttribute(answer.get(), "job-id", IPP_TAG_INTEGER) == nullptr)
        return std::nullopt;
    ipp_attribute_t* attribute = cups->ippFindAttribute(answer.get(), "job-name", IPP_TAG_NAME);
    const char* text = attribute == nullptr ? nullptr : cups->ippGetString(attribute, 0, nullptr);
    WideText name;
    if (!ConvertToWide(CodePage::Utf8, text == nullptr ? "" : text, name)) return std::nullopt;
    return name;
}

}  // namespace

void SetDocumentNameOfThread(const WideText* name) { nameOfThread = name; }

bool GetFirstDocumentName(const WideText& queue, WideText& name) {
    static AnswerBook<std::string, std::optional<WideText>> answers;
    if (nameOfThread != nullptr) {
        name = *nameOfThread;
        return true;
    }
    std::string queueName;
    if (!ConvertFromWide(CodePage::Utf8, queue.View(), queueName)) return false;
    if (queueName.empty()) return false;  // the address would mean all queues
    const auto answer = answers.Get(queueName, [&] { return AskForFirstDocument(queueName); });
    if (answer) name = *answer;
    return answer.has_value();
}

}  // namespace DeviceSpecificModule::Platform
