#include "Host.h"

#include <stdexcept>
#include <utility>
#include <variant>
#include <vector>

#include "Clock.h"

namespace Benchmarks {
namespace {

using namespace DeviceSpecificModule;

// The series' command map and the key table's ids, as in the sample that has all settings. No "PrinterName":
// whether a print scheduler answers is no matter of the module's speed.
Platform::PipelineProperties JobProperties() {
    const std::shared_ptr<Platform::IPrinterPropertyBag> driver =
        std::make_shared<Platform::MemoryPrinterBag>(
            Platform::PrinterProperties{{u"CommandMap_Sample", Platform::WideText(u"{}")}});
    const std::shared_ptr<Platform::IPrinterPropertyBag> queue = std::make_shared<Platform::MemoryPrinterBag>(
        Platform::PrinterProperties{{u"encryptionPassphrase_Flag", 0}});
    return {{u"Series", Platform::WideText(u"Sample")},
            {u"EncryptionID", Platform::WideText(u"[1,2]")},
            {u"DriverPropertyBag", driver},
            {u"QueuePropertyBag", queue}};
}

std::vector<std::string> AllTables() {
    return {TicketHost::OptionTableNames.begin(), TicketHost::OptionTableNames.end()};
}

}  // namespace

Platform::TicketDocument Load(const std::string& ticket) {
    Platform::ParseError error;
    Platform::TicketDocument document = Platform::LoadTicketDocument(std::string_view(ticket), error);
    if (!document) throw std::runtime_error("the module refuses a ticket: " + error.Reason);
    return document;
}

Host::Host()
    : bag_(std::make_shared<Platform::MemoryPipelineBag>(JobProperties())),
      tables_(AllTables()),
      snapshot_(nullptr, DestroyPTConverterClassPointer) {}

void Host::StartJob(const std::string& ticket) {
    snapshot_.reset(CreatePTConverterClassPointer());
    twin_ = Load(ticket);
    kept_ = Load(ticket);
    Convert(JobLevel, kept_);
}

double Host::SecondsOfCallAlone(std::int32_t level, const std::string& ticket) {
    Platform::TicketDocument document = Load(ticket);
    const double seconds = CpuSeconds([&] { Convert(level, document); });
    kept_ = std::move(document);
    return seconds;
}

double Host::SecondsOfCall(std::int32_t level, const std::string& ticket) {
    Platform::TicketDocument twin = Load(ticket);
    std::swap(twin_, twin);
    const double untouched = CpuSeconds([&] { twin.reset(); });
    Platform::TicketDocument document = Load(ticket);
    return CpuSeconds([&] { Convert(level, std::move(document)); }) - untouched;
}

void Host::Convert(std::int32_t level, Platform::TicketDocument ticket) {
    ProcessDrvPT(bag_, std::move(ticket), level, tables_.Record(), snapshot_.get());
}

void Host::Expect(std::u16string_view property, std::u16string_view text) const {
    if (Text(property).View().find(text) != std::u16string_view::npos) return;
    throw std::runtime_error("a call did not do what is to be measured");
}

Platform::WideText Host::Text(std::u16string_view property) const {
    Platform::PropertyValue value;
    bag_->GetProperty(property, value);
    const auto* text = std::get_if<Platform::WideText>(&value);
    return text == nullptr ? Platform::WideText() : *text;
}

double Host::SecondsOfJobCall(const std::string& ticket) {
    Platform::TicketDocument twin = Load(ticket);
    const double untouched = CpuSeconds([&] { twin.reset(); });
    Platform::TicketDocument document = Load(ticket);
    return CpuSeconds([&] {
               snapshot_.reset(CreatePTConverterClassPointer());
               Convert(JobLevel, std::move(document));
               snapshot_.reset();
           }) -
           untouched;
}

}  // namespace Benchmarks
