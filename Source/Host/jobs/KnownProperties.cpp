#include "Host/jobs/KnownProperties.h"

#include <algorithm>

namespace TicketHost {
namespace {

constexpr KnownProperty knownProperties[] = {
    {Bag::Pipeline, "Series", PropertyType::Text},
    {Bag::Pipeline, "DriverPropertyBag", PropertyType::Other},
    {Bag::Pipeline, "QueuePropertyBag", PropertyType::Other},
    {Bag::Pipeline, "UserSecurityToken", PropertyType::Other},
    {Bag::Pipeline, "PrinterName", PropertyType::Text},
    {Bag::Pipeline, "EncryptionID", PropertyType::Text},
    {Bag::Pipeline, "PAPER_SIZE", PropertyType::Text},
    {Bag::Pipeline, "CUSTOM_PAPER_SIZE_WIDTH", PropertyType::Text},
    {Bag::Pipeline, "CUSTOM_PAPER_SIZE_HEIGHT", PropertyType::Text},
    {Bag::Pipeline, "PageOrientation", PropertyType::Text},
    {Bag::Pipeline, "JobDuplexAllDocumentsContiguously", PropertyType::Text},
    {Bag::Driver, "CommandMap_", PropertyType::Text},
    {Bag::Queue, "encryptionPassphrase", PropertyType::Text},
    {Bag::Queue, "encryptionPassphrase_Flag", PropertyType::Number},
};

}  // namespace

std::span<const KnownProperty> KnownProperties() { return knownProperties; }

bool IsPropertyRead(Bag bag, std::string_view name) {
    return std::ranges::any_of(knownProperties, [&](const KnownProperty& known) {
        return known.In == bag && (bag == Bag::Driver ? name.starts_with(known.Name) : name == known.Name);
    });
}

std::vector<std::string_view> PropertiesRead(Bag bag) {
    std::vector<std::string_view> names;
    for (const KnownProperty& known : knownProperties)
        if (known.In == bag) names.push_back(known.Name);
    return names;
}

}  // namespace TicketHost
