#include "Host/compare/CallRecord.h"

#include "Host/ground/Texts.h"

namespace TicketHost {
namespace {

constexpr std::u16string_view pjlName = u"PJL", dataName = u"DATA";

// Texts of these two are told by their lines.
bool IsToldByLines(const PipelineProperties& properties, std::u16string_view name) {
    return (name == pjlName || name == dataName) && !FindText(properties, name).IsNull();
}

ShownProperties ChangesOf(const PipelineProperties& before, const PipelineProperties& after) {
    ShownProperties changes;
    for (const auto& [name, value] : after) {
        const auto found = before.find(name);
        const bool isSame = found != before.end() && AreSame(found->second, value);
        if (!isSame) changes[ToUtf8(name)] = IsToldByLines(after, name) ? "a text" : DescribeValue(value);
    }
    for (const auto& [name, value] : before)
        if (!after.contains(name)) changes[ToUtf8(name)] = std::nullopt;
    return changes;
}

void RecordLines(const PipelineProperties& before, const PipelineProperties& after, CallRecord& record) {
    record.Pjl = FindText(after, pjlName);
    record.WritesPjl = !AreSame(record.Pjl, FindText(before, pjlName));
    const Platform::WideText data = FindText(after, dataName), was = FindText(before, dataName);
    record.ReplacesData = !BeginsWith(data, was);
    record.Data = Platform::WideText(data.View().substr(record.ReplacesData ? 0 : was.Length()));
}

}  // namespace

ShownProperties CallRecorder::Begin(const PipelineProperties& initial) {
    previous_ = initial;
    return ChangesOf({}, initial);
}

CallRecord CallRecorder::Record(const CallResult& result) {
    CallRecord record;
    record.Name = {result.Made.Level, result.Made.Source->Name};
    if (result.Error) record.Error = Visible(result.Error->Type + ": " + result.Error->Message);
    RecordLines(previous_, result.Properties, record);
    record.Properties = ChangesOf(previous_, result.Properties);
    record.Ticket = Share(result.TicketAfter);
    previous_ = result.Properties;
    return record;
}

std::shared_ptr<const Platform::WideText> CallRecorder::Share(const Platform::WideText& ticket) {
    const auto found = tickets_.find(ticket.View());
    if (found != tickets_.end()) return found->second;
    auto shared = std::make_shared<const Platform::WideText>(ticket);
    tickets_.emplace(std::u16string(ticket.View()), shared);
    return shared;
}

}  // namespace TicketHost
