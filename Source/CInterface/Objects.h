#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "CInterface/Bags.h"
#include "CInterface/Tables.h"
#include "devicespecific/DeviceSpecificModule.h"
#include "devicespecific/platform/TicketDocument.h"

// What stands behind the interface's pointers.

namespace DeviceSpecificModule::CInterface {

struct DestroySnapshot {
    void operator()(PTConverter* snapshot) const { DestroyPTConverterClassPointer(snapshot); }
};

struct Job {
    Tables Options;
    std::shared_ptr<JobPrinterBag> Driver = std::make_shared<JobPrinterBag>();
    std::shared_ptr<JobPrinterBag> Queue = std::make_shared<JobPrinterBag>();
    std::shared_ptr<JobPipelineBag> Pipeline = std::make_shared<JobPipelineBag>(PrinterBags());
    std::unique_ptr<PTConverter, DestroySnapshot> Snapshot{CreatePTConverterClassPointer()};
    std::string Room;  // of the text given back last

    // The properties of the pipeline that refer to the other two.
    PipelineProperties PrinterBags() const;
};

struct Ticket {
    Platform::TicketDocument Document;
    std::string Room;  // of the text given back last
};

class Result {
public:
    void Hold(JobPipelineBag::State properties) noexcept { properties_ = std::move(properties); }

    // Null behind the last. What is made for the first to ask stays.
    struct Entry {
        std::string Name;
        const PropertyValue* Property = nullptr;
        std::optional<DsmValue> Value = std::nullopt;
        std::string Room = {};
    };
    const Entry* At(std::size_t index);
    const Entry* Find(std::u16string_view name);

private:
    JobPipelineBag::State properties_;
    std::vector<Entry> entries_;  // in the order of the properties; none until somebody asks
};

}  // namespace DeviceSpecificModule::CInterface

struct DsmJob : DeviceSpecificModule::CInterface::Job {};
struct DsmTicket : DeviceSpecificModule::CInterface::Ticket {};
struct DsmResult : DeviceSpecificModule::CInterface::Result {};
