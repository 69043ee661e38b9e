#include "FaultRuns.h"

#include <gtest/gtest.h>
#include <json/reader.h>

#include <sstream>
#include <stdexcept>

#include "devicespecific/platform/Identities.h"

namespace DeviceSpecificModule {
namespace {

Json::Value ReadManifest() {
    std::istringstream text(FileText(SAMPLES_DIR "/all-settings.json"));
    Json::Value manifest;
    text >> manifest;
    return manifest;
}

std::u16string Units(const std::string& text) { return std::u16string(Wide(text).View()); }

std::shared_ptr<Platform::MemoryPrinterBag> PrinterBagOf(const Json::Value& members) {
    Platform::PrinterProperties properties;
    for (const std::string& name : members.getMemberNames())
        if (members[name].isInt())
            properties[Units(name)] = members[name].asInt();
        else
            properties[Units(name)] = Wide(members[name].asString());
    return std::make_shared<Platform::MemoryPrinterBag>(std::move(properties));
}

const Json::Value& ValueOf(const SharedJson& document) {
    return document ? *document : Json::Value::nullSingleton();
}

struct ValueText {
    const OptionTables* Tables;

    std::string operator()(const WideText& text) const { return SteadyPjl(Narrow(text)); }
    std::string operator()(std::int32_t number) const { return std::to_string(number); }
    std::string operator()(Platform::BareReference reference) const {
        return reference.Address == Tables ? "the tables" : "another address";
    }
    template <typename Other>
    std::string operator()(const Other&) const {
        return "what the host put there";
    }
};

}  // namespace

std::vector<SampleCall> SampleCalls() {
    std::vector<SampleCall> calls;
    const Json::Value manifest = ReadManifest();
    for (const Json::Value& call : manifest["calls"]) {
        const std::string name = call["ticket"].asString();
        calls.push_back({call["level"].asInt(), name, FileText(SAMPLES_DIR "/" + name)});
    }
    return calls;
}

Platform::PipelineProperties SampleProperties() {
    const Json::Value manifest = ReadManifest();
    Platform::PipelineProperties properties = {
        {u"UserSecurityToken", Platform::GetTokenOfUser(0)},
        {u"DriverPropertyBag", PrinterBagOf(manifest["driver"])},
        {u"QueuePropertyBag", PrinterBagOf(manifest["queue"])},
    };
    for (const std::string& name : manifest["pipeline"].getMemberNames())
        properties[Units(name)] = Wide(manifest["pipeline"][name].asString());
    return properties;
}

std::string Describe(const Platform::PipelineProperties& properties, const TicketDocument& ticket,
                     const OptionTables* tables) {
    std::string text;
    for (const auto& [name, value] : properties)
        text += Narrow(WideText(name)) + " = " + std::visit(ValueText{tables}, value) + "\n";
    return text + Narrow(ticket->xml());
}

SnapshotCopy::SnapshotCopy(const PTConverter& snapshot)
    : before_(snapshot),
      properties_(ValueOf(snapshot.CustomProperties)),
      map_(ValueOf(snapshot.CommandMap)) {}

void SnapshotCopy::ExpectUntouched(const PTConverter& now) const {
    EXPECT_EQ(now.Pipeline, before_.Pipeline);
    EXPECT_EQ(now.Driver, before_.Driver);
    EXPECT_EQ(now.Queue, before_.Queue);
    EXPECT_EQ(now.Ticket, before_.Ticket);
    EXPECT_EQ(now.PjlText, before_.PjlText);
    EXPECT_EQ(now.PjlText.IsNull(), before_.PjlText.IsNull());
    EXPECT_EQ(now.DataText, before_.DataText);
    EXPECT_EQ(now.DataText.IsNull(), before_.DataText.IsNull());
    EXPECT_EQ(now.CustomProperties, before_.CustomProperties);
    EXPECT_EQ(ValueOf(now.CustomProperties), properties_);
    EXPECT_EQ(now.CommandMap, before_.CommandMap);
    EXPECT_EQ(ValueOf(now.CommandMap), map_);
    EXPECT_EQ(now.PageCount, before_.PageCount);
    EXPECT_EQ(now.SecretIsHexText, before_.SecretIsHexText);
    EXPECT_EQ(now.Tables, before_.Tables);
}

CallRun::CallRun(const SampleCall& call, const Platform::PipelineProperties& properties,
                 const PTConverter& snapshot, const OptionTables* tables)
    : Snapshot(snapshot),
      Bag(std::make_shared<Platform::MemoryPipelineBag>(properties)),
      call_(call),
      tables_(tables),
      heldBag_(noFault_.Wrap(Bag)) {}

TicketDocument CallRun::NewTicket() const {
    Platform::ParseError error;
    TicketDocument ticket = Platform::LoadTicketDocument(std::string_view(call_.Ticket), error);
    if (!ticket) throw std::runtime_error(call_.Name + ": " + error.Reason);
    return ticket;
}

void CallRun::Convert(const TicketDocument& ticket) {
    ProcessDrvPT(heldBag_, ticket, call_.Level, tables_, &Snapshot);
}

std::string CallRun::Result(const TicketDocument& ticket) const {
    return Describe(Bag->Properties(), ticket, tables_);
}

}  // namespace DeviceSpecificModule
