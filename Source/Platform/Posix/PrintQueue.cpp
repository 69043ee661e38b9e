#include "Platform/PrintQueue.h"

#include <memory>
#include <string>

#include "Platform/CodePages.h"
#include "Platform/Posix/Cups.h"

namespace Platform {
namespace {

constexpr int timeoutMilliseconds = 2000;  // without a byte

// Only what the library made is freed, so it is there.
struct HttpCloser {
    void operator()(http_t* connection) const { FindCups()->httpClose(connection); }
};
struct IppDeleter {
    void operator()(ipp_t* message) const { FindCups()->ippDelete(message); }
};
using Connection = std::unique_ptr<http_t, HttpCloser>;
using Message = std::unique_ptr<ipp_t, IppDeleter>;

int GiveUp(http_t*, void*) { return 0; }

Connection Connect(const Cups& cups) {
    Connection connection(cups.httpConnect2(cups.cupsServer(), cups.ippPort(), nullptr, AF_UNSPEC,
                                            cups.cupsEncryption(), 1, timeoutMilliseconds, nullptr));
    if (connection) cups.httpSetTimeout(connection.get(), timeoutMilliseconds / 1000.0, GiveUp, nullptr);
    return connection;
}

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

}  // namespace

bool GetFirstDocumentName(const WideText& queue, WideText& name) {
    std::string queueName;
    if (!ConvertFromWide(CodePage::Utf8, queue.View(), queueName)) return false;
    if (queueName.empty()) return false;  // the address would mean all queues
    const Cups* const cups = FindCups();
    if (cups == nullptr) return false;
    const Message request = NewRequest(*cups, queueName);
    if (!request) return false;
    const Connection connection = Connect(*cups);
    if (!connection) return false;
    const Message answer = Exchange(*cups, connection.get(), request.get());
    if (!answer || cups->ippGetStatusCode(answer.get()) > IPP_STATUS_OK_CONFLICTING ||
        cups->ippFindAttribute(answer.get(), "job-id", IPP_TAG_INTEGER) == nullptr)
        return false;
    ipp_attribute_t* attribute = cups->ippFindAttribute(answer.get(), "job-name", IPP_TAG_NAME);
    const char* text = attribute == nullptr ? nullptr : cups->ippGetString(attribute, 0, nullptr);
    return ConvertToWide(CodePage::Utf8, text == nullptr ? "" : text, name);
}

}  // namespace Platform
