#pragma once

#include <json/value.h>

#include <cstdint>
#include <memory>

#include "devicespecific/platform/PropertyBags.h"
#include "devicespecific/platform/TicketDocument.h"
#include "devicespecific/platform/WideText.h"

namespace DeviceSpecificModule {

using Platform::DriverBag;
using Platform::PipelineBag;
using Platform::QueueBag;
using Platform::TicketDocument;
using Platform::TicketNode;
using Platform::WideText;

struct OptionTables;

// A JSON document that several converters share. It is never changed in place: whoever changes it puts a
// changed copy in its place. A null pointer stands for the JSON null.
using SharedJson = std::shared_ptr<const Json::Value>;

// The state of a conversion. One lives for each call; another, which the host keeps from call to call,
// carries the state of a job (its role is called ConverterSnapshot). Copying copies all fields and can't
// fail: texts and documents are shared until one of their holders changes its own.
class PTConverter {
public:
    PTConverter() = default;
    PTConverter(const PTConverter&) = default;
    PTConverter& operator=(const PTConverter&) = default;
    virtual ~PTConverter() = default;

    PipelineBag Pipeline;
    DriverBag Driver;       // set by a job-level call alone
    QueueBag Queue;         // set by a job-level call alone
    TicketDocument Ticket;  // of the current call
    WideText PjlText;       // job level: the job's commands; document and page level: ticket fragments
    WideText DataText;      // data lines, growing from call to call
    SharedJson CustomProperties;
    SharedJson CommandMap;  // kept for the device series; nothing reads it
    std::int32_t PageCount = 0;
    std::int32_t SecretIsHexText = 0;      // 1: the copy password is hexadecimal text
    const OptionTables* Tables = nullptr;  // the host's; not owned, may be null
};

}  // namespace DeviceSpecificModule
