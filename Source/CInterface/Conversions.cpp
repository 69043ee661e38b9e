#include <iterator>

#include "CInterface/Objects.h"
#include "devicespecific/platform/CodePages.h"

namespace DeviceSpecificModule::CInterface {
namespace {

// Makes UTF-8 the calling thread's code page while it lives.
class Utf8Thread {
public:
    Utf8Thread() : name_(Platform::GetThreadCodePage()) { Platform::SetThreadCodePage("UTF-8"); }
    Utf8Thread(const Utf8Thread&) = delete;
    Utf8Thread& operator=(const Utf8Thread&) = delete;
    ~Utf8Thread() { Platform::SetThreadCodePage(name_); }

private:
    std::string name_;
};

Platform::TicketDocument Load(std::string_view bytes) {
    Platform::ParseError error;
    Platform::TicketDocument document = Platform::LoadTicketDocument(bytes, error);
    if (document) return document;
    Refusal refusal(DSM_BAD_TICKET, error.Reason);
    refusal.Error.Line = error.Line;
    refusal.Error.Column = error.Column;
    throw refusal;
}

void Convert(const Job& job, std::int32_t level, const Platform::TicketDocument& ticket) {
    const Utf8Thread utf8;
    const JobPipelineBag::State before = job.Pipeline->Keep();
    try {
        ProcessDrvPT(job.Pipeline, ticket, level, job.Options.Record(), job.Snapshot.get());
    } catch (...) {
        job.Pipeline->PutBack(before);
        throw;
    }
}

void Give(const Result::Entry* entry, const char** name, DsmValue* value) {
    if (name != nullptr) *name = entry != nullptr ? entry->Name.c_str() : nullptr;
    *value = entry != nullptr ? *entry->Value : DsmValue{};
}

}  // namespace

const Result::Entry* Result::At(std::size_t index) {
    if (index >= properties_->size()) return nullptr;
    if (entries_.empty()) {
        std::vector<Entry> entries;
        entries.reserve(properties_->size());
        for (const auto& [name, property] : *properties_) entries.push_back({Utf8Of(name), &property});
        entries_ = std::move(entries);
    }
    Entry& entry = entries_[index];
    if (!entry.Value) entry.Value = ValueOf(*entry.Property, entry.Room);
    return &entry;
}

const Result::Entry* Result::Find(std::u16string_view name) {
    return At(static_cast<std::size_t>(std::distance(properties_->begin(), properties_->find(name))));
}

}  // namespace DeviceSpecificModule::CInterface

using namespace DeviceSpecificModule::CInterface;

DsmStatus DsmLoadTicket(const char* bytes, size_t length, DsmTicket** ticket, DsmError* error) {
    return Guarded(error, [=] {
        Require(ticket, "ticket");
        *ticket = nullptr;
        Require(bytes, "bytes");
        auto made = std::make_unique<DsmTicket>();
        made->Document = Load({bytes, length});
        *ticket = made.release();
    });
}

void DsmFreeTicket(DsmTicket* ticket) { delete ticket; }

DsmStatus DsmGetTicketXml(DsmTicket* ticket, DsmValue* xml, DsmError* error) {
    return Guarded(error, [=] {
        Require(xml, "xml");
        *xml = {};
        Require(ticket, "ticket");
        *xml = ValueOf(ticket->Document->xml(), ticket->Room);
    });
}

DsmStatus DsmConvert(DsmJob* job, int32_t level, DsmTicket* ticket, DsmResult** result, DsmError* error) {
    return Guarded(error, [=] {
        if (result != nullptr) *result = nullptr;
        Require(job, "job");
        Require(ticket, "ticket");
        // Made ahead of the conversion, behind which nothing may fail.
        auto made = result != nullptr ? std::make_unique<DsmResult>() : nullptr;
        Convert(*job, level, ticket->Document);
        if (!made) return;
        made->Hold(job->Pipeline->Keep());
        *result = made.release();
    });
}

DsmStatus DsmGetProperty(DsmResult* result, const char* name, DsmValue* value, DsmError* error) {
    return Guarded(error, [=] {
        Require(value, "value");
        *value = {};
        Require(result, "result");
        Give(result->Find(NameOf(name).View()), nullptr, value);
    });
}

DsmStatus DsmGetPropertyAt(DsmResult* result, size_t index, const char** name, DsmValue* value,
                           DsmError* error) {
    return Guarded(error, [=] {
        if (name != nullptr) *name = nullptr;
        Require(value, "value");
        *value = {};
        Require(result, "result");
        Give(result->At(index), name, value);
    });
}

void DsmFreeResult(DsmResult* result) { delete result; }
