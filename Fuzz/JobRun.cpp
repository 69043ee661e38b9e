#include "JobRun.h"

#include <vector>

#include "Host/ground/Texts.h"
#include "Host/jobs/OptionTableSet.h"
#include "PjlContract.h"
#include "Platform/Clock.h"

namespace Fuzz {
namespace {

using DeviceSpecificModule::JobLevel;
using DeviceSpecificModule::SharedJson;

Platform::PipelineProperties WithBags(Platform::PipelineProperties pipeline,
                                      Platform::PrinterProperties queue) {
    pipeline.erase(u"PrinterName");
    pipeline.erase(u"UserSecurityToken");
    const std::shared_ptr<Platform::IPrinterPropertyBag> bag =
        std::make_shared<Platform::MemoryPrinterBag>(std::move(queue));
    pipeline.try_emplace(u"QueuePropertyBag", bag);
    return pipeline;
}

// A snapshot with copies of its own of all that it refers to.
struct DeepCopy {
    explicit DeepCopy(const PTConverter& snapshot)
        : Members(snapshot),
          Pjl(snapshot.PjlText.View()),
          Data(snapshot.DataText.View()),
          Settings(ValueOf(snapshot.CustomProperties)),
          Map(ValueOf(snapshot.CommandMap)) {}

    static Json::Value ValueOf(const SharedJson& json) { return json ? *json : Json::Value(); }

    bool IsEqual(const PTConverter& now) const {
        return now.Pipeline == Members.Pipeline && now.Driver == Members.Driver &&
               now.Queue == Members.Queue && now.Ticket == Members.Ticket && now.PjlText == Pjl &&
               now.DataText == Data && now.PjlText.IsNull() == Members.PjlText.IsNull() &&
               now.DataText.IsNull() == Members.DataText.IsNull() &&
               now.CustomProperties == Members.CustomProperties &&
               ValueOf(now.CustomProperties) == Settings && now.CommandMap == Members.CommandMap &&
               ValueOf(now.CommandMap) == Map && now.PageCount == Members.PageCount &&
               now.SecretIsHexText == Members.SecretIsHexText && now.Tables == Members.Tables;
    }

    PTConverter Members;
    std::u16string Pjl;
    std::u16string Data;
    Json::Value Settings;
    Json::Value Map;
};

}  // namespace

const OptionTables& HostTables() {
    static const std::vector<std::string> names(TicketHost::OptionTableNames.begin(),
                                                TicketHost::OptionTableNames.end());
    static const TicketHost::OptionTableSet tables(names);
    return *tables.Record();
}

JobRun::JobRun(Platform::PipelineProperties pipeline, Platform::PrinterProperties queue)
    : Bag(std::make_shared<Platform::MemoryPipelineBag>(WithBags(std::move(pipeline), std::move(queue)))) {}

std::string JobRun::Call(std::int32_t level, const TicketDocument& ticket, std::size_t inputSize) {
    const DeepCopy before(Snapshot);
    ++calls_;
    const std::string error = ErrorOf([&] {
        const std::int32_t status = DeviceSpecificModule::ProcessDrvPT(Bag, ticket, level, Tables, &Snapshot);
        Require(status == 1, "a call that returns gives 1");
    });
    if (!error.empty()) Require(before.IsEqual(Snapshot), "a throw leaves the snapshot", error);
    if (error.empty() && level == JobLevel) {
        RequirePjl(Property(u"PJL").View(), *this);
        Require(Property(u"DATA") == Snapshot.DataText, "a job call publishes the data so far");
    }
    RequireReloads(ticket);
    RequireSizes(ticket, inputSize);
    return error;
}

// A character of the input becomes at most six of a ticket ("&quot;"). A value stands at most twice in a
// header, once in a fragment, and once in the data lines of each call.
void JobRun::RequireSizes(const TicketDocument& ticket, std::size_t inputSize) const {
    const std::size_t fixed = 8000 * calls_;
    Require(ticket->xml().Length() <= fixed + (6 + calls_) * inputSize, "a ticket's size is bounded");
    Require(Property(u"PJL").Length() <= 4000 + 4 * inputSize, "the size of PJL is bounded");
    Require(Property(u"DATA").Length() <= fixed + 2 * calls_ * inputSize, "the size of DATA is bounded");
}

WideText JobRun::Property(std::u16string_view name) const {
    return TicketHost::FindText(Bag->Properties(), name);
}

std::string JobRun::Everything() const {
    std::string all;
    for (const auto& [name, value] : Bag->Properties()) {
        const auto* text = std::get_if<WideText>(&value);
        if (text != nullptr)
            all += Narrow(name) + (text->IsNull() ? " null\n" : "=" + Narrow(text->View()) + "\n");
    }
    if (Snapshot.Ticket) all += Narrow(Snapshot.Ticket->xml().View());
    return all + std::to_string(Snapshot.PageCount) + Narrow(Snapshot.PjlText.View());
}

void RequireSameTwice(std::string_view input, std::string (*run)(std::string_view input)) {
    const std::int64_t begin = Platform::GetSystemSeconds();
    const std::string first = run(input);
    if (!RunsTwice(input)) return;
    const std::string second = run(input);
    if (Platform::GetSystemSeconds() != begin) return;
    Require(first == second, "a second run gives the same bytes", first + "\n----\n" + second);
}

}  // namespace Fuzz
