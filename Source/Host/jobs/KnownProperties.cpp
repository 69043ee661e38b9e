#include "Host/jobs/KnownProperties.h"

#include <algorithm>

namespace TicketHost {
namespace {

struct KnownProperty {
    Bag In;
    std::string_view Name;
};

constexpr KnownProperty knownProperties[] = {
    {Bag::Pipeline, "Series"},
    {Bag::Pipeline, "DriverPropertyBag"},
    {Bag::Pipeline, "QueuePropertyBag"},
    {Bag::Pipeline, "UserSecurityToken"},
    {Bag::Pipeline, "PrinterName"},
    {Bag::Pipeline, "EncryptionID"},
    {Bag::Pipeline, "PAPER_SIZE"},
    {Bag::Pipeline, "CUSTOM_PAPER_SIZE_WIDTH"},
    {Bag::Pipeline, "CUSTOM_PAPER_SIZE_HEIGHT"},
    {Bag::Pipeline, "PageOrientation"},
    {Bag::Pipeline, "JobDuplexAllDocumentsContiguously"},
    {Bag::Queue, "encryptionPassphrase"},
    {Bag::Queue, "encryptionPassphrase_Flag"},
};

// The driver's property goes by the series, which the pipeline names.
constexpr std::string_view commandMap = "CommandMap_";

}  // namespace

bool IsPropertyRead(Bag bag, std::string_view name) {
    if (bag == Bag::Driver && name.starts_with(commandMap)) return true;
    return std::ranges::any_of(
        knownProperties, [&](const KnownProperty& known) { return known.In == bag && known.Name == name; });
}

std::vector<std::string_view> PropertiesRead(Bag bag) {
    std::vector<std::string_view> names;
    for (const KnownProperty& known : knownProperties)
        if (known.In == bag) names.push_back(known.Name);
    if (bag == Bag::Driver) names.push_back(commandMap);
    return names;
}

}  // namespace TicketHost
