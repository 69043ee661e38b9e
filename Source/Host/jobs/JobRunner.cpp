#include "Host/jobs/JobRunner.h"

#include <json/value.h>

#include <stdexcept>

#include "Host/ground/Texts.h"
#include "Host/jobs/OptionTableSet.h"
#include "Platform/Clock.h"
#include "Platform/PrintQueue.h"
#include "devicespecific/DeviceSpecificModule.h"
#include "devicespecific/platform/ResultError.h"

namespace TicketHost {
namespace {

// To be called where an exception is handled.
CallError DescribeCurrentError() {
    try {
        throw;
    } catch (const Platform::ResultError& error) {
        return {"ResultError", error.Code(), error.what()};
    } catch (const Json::Exception& error) {
        return {"JsonError", {}, error.what()};
    } catch (const std::out_of_range& error) {
        return {"std::out_of_range", {}, error.what()};
    } catch (const std::invalid_argument& error) {
        return {"std::invalid_argument", {}, error.what()};
    } catch (const std::length_error& error) {
        return {"std::length_error", {}, error.what()};
    } catch (const std::exception& error) {
        return {"std::exception", {}, error.what()};
    }
}

// The module asks for the document's name where the job has a printer, be it one without a name.
void RequirePrinter(PipelineProperties& properties) {
    if (FindText(properties, u"PrinterName").IsNull()) properties[u"PrinterName"] = Platform::WideText(u"");
}

// A manifest may set the properties of the two bags itself, to null for instance: so it shows what the module
// makes of a host that supplies no bag.
PipelineProperties InitialProperties(const JobSettings& settings) {
    PipelineProperties properties = settings.Pipeline;
    const auto add = [&properties](const char16_t* name, const PrinterProperties& printer) {
        const std::shared_ptr<Platform::IPrinterPropertyBag> bag =
            std::make_shared<MemoryPrinterBag>(printer);
        properties.try_emplace(name, bag);
    };
    add(u"DriverPropertyBag", settings.Driver);
    add(u"QueuePropertyBag", settings.Queue);
    if (settings.DocumentName) RequirePrinter(properties);
    return properties;
}

// What the platform says on this thread while it lives.
class PlatformScope {
public:
    explicit PlatformScope(const JobSettings& settings) {
        if (settings.DocumentName) Platform::SetDocumentNameOfThread(&*settings.DocumentName);
        if (settings.Seconds) Platform::SetSystemSecondsOfThread(settings.Seconds);
    }
    PlatformScope(const PlatformScope&) = delete;
    PlatformScope& operator=(const PlatformScope&) = delete;
    ~PlatformScope() {
        Platform::SetDocumentNameOfThread(nullptr);
        Platform::SetSystemSecondsOfThread(std::nullopt);
    }
};

// All that lives from a job's first call to its last.
class JobRun {
public:
    explicit JobRun(const JobSettings& settings)
        : Bag(std::make_shared<MemoryPipelineBag>(InitialProperties(settings))), settings_(settings) {
        if (settings.Tables) tables_.emplace(*settings.Tables);
        if (settings.Snapshot) snapshot_ = DeviceSpecificModule::CreatePTConverterClassPointer();
    }
    JobRun(const JobRun&) = delete;
    JobRun& operator=(const JobRun&) = delete;
    ~JobRun() { DeviceSpecificModule::DestroyPTConverterClassPointer(snapshot_); }

    CallResult Run(const Call& call, std::size_t number) {
        const Platform::TicketDocument ticket = LoadTicket(*call.Source);
        CallResult result{number, call, 0, {}, ticket->xml(), {}, Bag->Properties()};
        try {
            const PlatformScope scope(settings_);
            const OptionTables* tables = tables_ ? tables_->Record() : nullptr;
            result.Status = DeviceSpecificModule::ProcessDrvPT(Bag, ticket, call.Level, tables, snapshot_);
        } catch (const std::exception&) {
            result.Error = DescribeCurrentError();
        }
        result.TicketAfter = ticket->xml();
        return result;
    }

    const std::shared_ptr<MemoryPipelineBag> Bag;

private:
    const JobSettings& settings_;
    std::optional<OptionTableSet> tables_;
    DeviceSpecificModule::PTConverter* snapshot_ = nullptr;
};

}  // namespace

void ResultSink::Begin(const Job&, const PipelineProperties&) {}

void ResultSink::End(const PipelineProperties&) {}

void SinkList::Begin(const Job& job, const PipelineProperties& initial) {
    for (const auto& sink : sinks_) sink->Begin(job, initial);
}

void SinkList::Take(const CallResult& result) {
    for (const auto& sink : sinks_) sink->Take(result);
}

void SinkList::End(const PipelineProperties& final) {
    for (const auto& sink : sinks_) sink->End(final);
}

bool RunJob(const Job& job, bool keepGoing, ResultSink& sink) {
    JobRun run(job.Settings);
    sink.Begin(job, run.Bag->Properties());
    bool succeeded = true;
    for (std::size_t index = 0; index < job.Calls.size() && (succeeded || keepGoing); ++index) {
        const CallResult result = run.Run(job.Calls[index], index + 1);
        if (result.Error) succeeded = false;
        sink.Take(result);
    }
    sink.End(run.Bag->Properties());
    return succeeded;
}

}  // namespace TicketHost
