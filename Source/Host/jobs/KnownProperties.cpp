#include "Host/jobs/KnownProperties.h"

#include <algorithm>

namespace TicketHost {
namespace {

constexpr KnownProperty knownProperties[] = {
    {"Series", Bag::Pipeline, PropertyType::Text},
    {"DriverPropertyBag", Bag::Pipeline, PropertyType::Other},
    {"QueuePropertyBag", Bag::Pipeline, PropertyType::Other},
    {"UserSecurityToken", Bag::Pipeline, PropertyType::Other},
    {"PrinterName", Bag::Pipeline, PropertyType::Text},
    {"EncryptionID", Bag::Pipeline, PropertyType::Text},
    {"PAPER_SIZE", Bag::Pipeline, PropertyType::Text},
    {"CUSTOM_PAPER_SIZE_WIDTH", Bag::Pipeline, PropertyType::Text},
    {"CUSTOM_PAPER_SIZE_HEIGHT", Bag::Pipeline, PropertyType::Text},
    {"PageOrientation", Bag::Pipeline, PropertyType::Text},
    {"JobDuplexAllDocumentsContiguously", Bag::Pipeline, PropertyType::Text},
    {"CommandMap_", Bag::Driver, PropertyType::Text},
    {"encryptionPassphrase", Bag::Queue, PropertyType::Text},
    {"encryptionPassphrase_Flag", Bag::Queue, PropertyType::Number},
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
