#include "Platform/PrintQueue.h"

#include <cups/cups.h>

#include <memory>
#include <string>

#include "Platform/CodePages.h"

namespace Platform {
namespace {

constexpr int timeoutMilliseconds = 2000;  // without a byte

struct HttpCloser {
    void operator()(http_t* connection) const { httpClose(connection); }
};
struct IppDeleter {
    void operator()(ipp_t* message) const { ippDelete(message); }
};
using Connection = std::unique_ptr<http_t, HttpCloser>;
using Message = std::unique_ptr<ipp_t, IppDeleter>;

int GiveUp(http_t*, void*) { return 0; }

Connection Connect() {
    Connection connection(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                       timeoutMilliseconds, nullptr));
    if (connection) httpSetTimeout(connection.get(), timeoutMilliseconds / 1000.0, GiveUp, nullptr);
    return connection;
}

// Asks for the name of the first job that is not finished; null for a queue whose name no address can hold.
Message NewRequest(const std::string& queue) {
    // Without a name the address would mean all queues, and what stands behind a zero character would be
    // lost.
    if (queue.empty() || queue.find('\0') != queue.npos) return nullptr;
    char address[HTTP_MAX_URI];
    if (httpAssembleURIf(HTTP_URI_CODING_ALL, address, sizeof address, "ipp", nullptr, "localhost", 0,
                         "/printers/%s", queue.c_str()) != HTTP_URI_STATUS_OK)
        return nullptr;
    Message request(ippNewRequest(IPP_OP_GET_JOBS));
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, address);
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "which-jobs", nullptr, "not-completed");
    ippAddInteger(request.get(), IPP_TAG_OPERATION, IPP_TAG_INTEGER, "limit", 1);
    static const char* const wanted[] = {"job-id", "job-name"};
    ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", 2, nullptr,
                  wanted);
    return request;
}

// One request, sent once. By hand, because the library's own way to do it would answer a service that wants
// to know who asks with a question for a password on the terminal, and would try again and again where none
// answers.
Message Exchange(http_t* connection, ipp_t* request) {
    httpClearFields(connection);
    httpSetField(connection, HTTP_FIELD_CONTENT_TYPE, "application/ipp");
    httpSetLength(connection, ippLength(request));
    if (httpPost(connection, "/") != 0 || ippWrite(connection, request) != IPP_STATE_DATA) return nullptr;
    http_status_t status = HTTP_STATUS_CONTINUE;
    while (status == HTTP_STATUS_CONTINUE) status = httpUpdate(connection);
    if (status != HTTP_STATUS_OK) return nullptr;
    Message answer(ippNew());
    if (ippRead(connection, answer.get()) != IPP_STATE_DATA) return nullptr;
    return answer;
}

}  // namespace

bool GetFirstDocumentName(const WideText& queue, WideText& name) {
    std::string queueName;
    if (!ConvertFromWide(CodePage::Utf8, queue.View(), queueName)) return false;
    const Message request = NewRequest(queueName);
    const Connection connection = request ? Connect() : nullptr;
    if (!connection) return false;
    const Message answer = Exchange(connection.get(), request.get());
    if (!answer || ippGetStatusCode(answer.get()) > IPP_STATUS_OK_CONFLICTING ||
        ippFindAttribute(answer.get(), "job-id", IPP_TAG_INTEGER) == nullptr)
        return false;
    ipp_attribute_t* attribute = ippFindAttribute(answer.get(), "job-name", IPP_TAG_NAME);
    const char* text = attribute == nullptr ? nullptr : ippGetString(attribute, 0, nullptr);
    return ConvertToWide(CodePage::Utf8, text == nullptr ? "" : text, name);
}

}  // namespace Platform
