#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Host/compare/CompareJobs.h"
#include "Host/jobs/JobRunner.h"

namespace TicketHost {

// Properties as DescribeValue shows them; absent: gone.
using ShownProperties = std::map<std::string, std::optional<std::string>>;

// What a call did, without what stood there before.
struct CallRecord {
    CallName Name;
    std::string Error;  // empty: none
    bool WritesPjl = false;
    Platform::WideText Pjl;
    Platform::WideText Data;     // what came to it
    bool ReplacesData = false;   // rather than go on with what was there
    ShownProperties Properties;  // those it changed
    std::shared_ptr<const Platform::WideText> Ticket;
};

// Makes records of the calls of one job, in their order. Tickets of one text share it.
class CallRecorder {
public:
    // Begins with these properties, and gives them all.
    ShownProperties Begin(const PipelineProperties& initial);
    CallRecord Record(const CallResult& result);

private:
    std::shared_ptr<const Platform::WideText> Share(const Platform::WideText& ticket);

    PipelineProperties previous_;
    std::map<std::u16string, std::shared_ptr<const Platform::WideText>, std::less<>> tickets_;
};

}  // namespace TicketHost
