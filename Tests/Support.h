#pragma once

#include <memory>
#include <string>

#include "Cases.h"
#include "Host/jobs/OptionTableSet.h"
#include "conversion/PTConverter.h"
#include "devicespecific/DeviceSpecificModule.h"
#include "devicespecific/platform/MemoryBags.h"

namespace DeviceSpecificModule {

// A ticket of these children of the root, with all namespaces of a real one bound; `attributes` goes to the
// root.
TicketDocument MakeTicket(const std::string& children, const std::string& attributes = "");
// A document of exactly this XML.
TicketDocument MakeDocument(const std::string& xml);

// Children for tickets. Names carry their prefix.
std::string Feature(const std::string& name, const std::string& option, const std::string& inside = "");
std::string Parameter(const std::string& name, const std::string& value);
// Custom property text of the job level: one piece, or cut in two at a place.
std::string Settings(const std::string& json, std::size_t cut = std::string::npos);

// Children from a list of short forms: "F name option" is a feature, "P name value" a parameter, anything
// else XML.
std::string Children(const Json::Value& forms);

// A job's settings as the stages read them.
SharedJson MakeSettings(const std::string& json);

// A job header with what differs between runs and machines written as {DATE}, {COMPUTER} and {TIME}, where it
// has the form that it must have.
std::string SteadyPjl(const std::string& pjl);

// Of what a process returned at its end the exit status, or a signal's number below zero.
int EndOf(int status);

// What a shell's command prints, in no language. The test fails when the command does, unless its end is
// asked for.
std::string OutputOf(const std::string& command, int* end = nullptr);

// A host of the module in memory.
class TestHost {
public:
    explicit TestHost(Platform::PipelineProperties pipeline = {}, bool withTables = true);

    std::int32_t Run(std::int32_t level, const TicketDocument& ticket);
    // The text of a pipeline property; "(null)" for a null one, "(absent)" where there is none, "(other)"
    // else.
    std::string Property(std::u16string_view name) const;
    std::string Data() const { return Property(u"DATA"); }

    std::shared_ptr<Platform::MemoryPipelineBag> Bag;
    TicketHost::OptionTableSet TableSet;
    OptionTables Tables;
    bool WithTables;
    PTConverter Snapshot;
};

}  // namespace DeviceSpecificModule
