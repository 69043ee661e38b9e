#include "conversion/JsonState.h"

#include <json/reader.h>

#include <string>

#include "conversion/TextOperations.h"

namespace DeviceSpecificModule {
namespace {

// Null when there is no such member; throws for a value that can't have members.
const Json::Value* FindMember(const Json::Value& value, std::string_view key) {
    return value.find(key.data(), key.data() + key.size());
}

WideText TextOf(const Json::Value& value) {
    return value.isNull() ? WideText(u"") : WideFromNarrow(value.asCString());
}

WideText TextOfParameter(const Json::Value& value) {
    return value.isNumeric() ? WideText(DecimalText(value.asInt())) : TextOf(value);
}

}  // namespace

std::shared_ptr<Json::Value> CopyDocument(const SharedJson& document) {
    auto copy = Platform::WithOneMemoryError([] { return std::make_shared<Json::Value>(); });
    if (document) *copy = *document;
    return copy;
}

bool ParseJsonText(const WideText& text, Json::Value& value) {
    if (text.IsNull()) return false;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    // The newer reader has no mode with this one's rules for malformed documents.
    Json::Reader reader;
#pragma GCC diagnostic pop
    return reader.parse(NarrowFromWide(text.View()), value, false);
}

void MergeCustomProperties(Json::Value& target, const Json::Value& source) {
    for (const char* key : {"features", "paraminits"}) {
        const Json::Value* members = FindMember(source, key);
        if (members == nullptr || members->isNull()) continue;
        for (const std::string& name : members->getMemberNames()) target[key][name] = (*members)[name];
    }
}

WideText LookupCustomProperty(const SharedJson& properties, std::u16string_view key) {
    if (!properties) return WideText(u"");
    const std::string name = NarrowFromWide(key);
    const Json::Value* features = FindMember(*properties, "features");
    if (const Json::Value* value = features == nullptr ? nullptr : FindMember(*features, name))
        return TextOf(*value);
    const Json::Value* parameters = FindMember(*properties, "paraminits");
    if (const Json::Value* value = parameters == nullptr ? nullptr : FindMember(*parameters, name))
        return TextOfParameter(*value);
    return WideText(u"");
}

void LoadCommandMap(const DriverBag& bag, SharedJson& map, const WideText& series) {
    WideText text;
    if (bag) bag->GetString(WideText::Join({u"CommandMap_", series.View()}).View(), text);
    if (text.IsNull()) return;
    auto loaded = CopyDocument(map);
    ParseJsonText(text, *loaded);
    map = std::move(loaded);
}

}  // namespace DeviceSpecificModule
