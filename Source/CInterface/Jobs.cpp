#include <span>

#include "CInterface/Objects.h"

namespace DeviceSpecificModule::CInterface {
namespace {

[[noreturn]] void RefuseNumber(const char* what, std::int32_t number) {
    throw Refusal(DSM_BAD_ARGUMENT, std::string("no ") + what + " " + std::to_string(number));
}

}  // namespace

PipelineProperties Job::PrinterBags() const {
    using Bag = std::shared_ptr<Platform::IPrinterPropertyBag>;
    return {{u"DriverPropertyBag", Bag(Driver)}, {u"QueuePropertyBag", Bag(Queue)}};
}

}  // namespace DeviceSpecificModule::CInterface

using namespace DeviceSpecificModule::CInterface;

DsmStatus DsmNewJob(DsmJob** job, DsmError* error) {
    return Guarded(error, [job] {
        Require(job, "job");
        *job = nullptr;
        *job = std::make_unique<DsmJob>().release();
    });
}

void DsmFreeJob(DsmJob* job) { delete job; }

DsmStatus DsmSetProperty(DsmJob* job, int32_t bag, const char* name, const DsmValue* value, DsmError* error) {
    return Guarded(error, [=] {
        Require(job, "job");
        Require(value, "value");
        const WideText text = NameOf(name);
        const PropertyValue property = PropertyOf(*value);
        const bool isAbsent = value->Type == DSM_ABSENT;
        if (!isAbsent && property.index() == 0)
            throw Refusal(DSM_BAD_ARGUMENT, "a bag can't hold this value");
        const auto set = [&](auto& to) { to.Set(text.View(), isAbsent ? nullptr : &property); };
        if (bag == DSM_PIPELINE) return set(*job->Pipeline);
        if (bag == DSM_DRIVER) return set(*job->Driver);
        if (bag == DSM_QUEUE) return set(*job->Queue);
        RefuseNumber("bag", bag);
    });
}

DsmStatus DsmUseBag(DsmJob* job, int32_t bag, const DsmBag* functions, DsmError* error) {
    return Guarded(error, [=] {
        Require(job, "job");
        Require(functions, "functions");
        Require(reinterpret_cast<const void*>(functions->Get), "Get");
        if (bag == DSM_PIPELINE) return job->Pipeline->Use(*functions, job->PrinterBags());
        if (bag == DSM_DRIVER) return job->Driver->Use(*functions);
        if (bag == DSM_QUEUE) return job->Queue->Use(*functions);
        RefuseNumber("bag", bag);
    });
}

DsmStatus DsmUseTables(DsmJob* job, const char* const* names, size_t count, DsmError* error) {
    return Guarded(error, [=] {
        Require(job, "job");
        if (names == nullptr) return job->Options.UseNone();
        job->Options.Use(std::span(names, count));
    });
}

DsmStatus DsmGetField(DsmJob* job, const char* table, size_t row, int32_t field, DsmValue* value,
                      DsmError* error) {
    return Guarded(error, [=] {
        Require(value, "value");
        *value = {};
        Require(job, "job");
        const WideText* text = job->Options.FindField(table, row, field);
        if (text != nullptr) *value = ValueOf(*text, job->Room);
    });
}

DsmStatus DsmSetField(DsmJob* job, const char* table, size_t row, int32_t field, const DsmValue* value,
                      DsmError* error) {
    return Guarded(error, [=] {
        Require(job, "job");
        Require(value, "value");
        WideText* text = job->Options.FindField(table, row, field);
        if (text == nullptr) throw Refusal(DSM_BAD_ARGUMENT, "no row " + std::to_string(row));
        if (value->Type != DSM_TEXT) throw Refusal(DSM_BAD_ARGUMENT, "a field holds texts alone");
        *text = TextOf(value->Text, value->Length);
    });
}
