#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Contract.h"
#include "conversion/PTConverter.h"
#include "devicespecific/DeviceSpecificModule.h"
#include "devicespecific/platform/MemoryBags.h"

namespace Fuzz {

using DeviceSpecificModule::OptionTables;
using DeviceSpecificModule::PTConverter;

// A host's copies of all option tables, made once.
const OptionTables& HostTables();

// A host of the module: one bag and one snapshot for a series of calls. It asks no print queue and no user
// database.
class JobRun {
public:
    explicit JobRun(Platform::PipelineProperties pipeline = {}, Platform::PrinterProperties queue = {});

    // Makes a call and holds it to its contract: what it may throw, a snapshot untouched by a throw, "PJL", a
    // ticket that loads again, sizes. `inputSize` is in bytes, of all that the job consists of. Gives the
    // error, or "".
    std::string Call(std::int32_t level, const TicketDocument& ticket, std::size_t inputSize);

    // The text of a pipeline property; empty where there is none.
    WideText Property(std::u16string_view name) const;
    // All that can be seen of the run so far.
    std::string Everything() const;

    std::shared_ptr<Platform::MemoryPipelineBag> Bag;
    PTConverter Snapshot;
    const OptionTables* Tables = &HostTables();

private:
    void RequireSizes(const TicketDocument& ticket, std::size_t inputSize) const;

    std::size_t calls_ = 0;
};

// Runs a function that gives a text, for some inputs twice, and requires that both times give the same,
// unless the clock moved on between them.
void RequireSameTwice(std::string_view input, std::string (*run)(std::string_view input));

}  // namespace Fuzz
