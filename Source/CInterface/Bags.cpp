#include "CInterface/Bags.h"

#include <utility>

namespace DeviceSpecificModule::CInterface {
namespace {

// Sets or, without a value, removes.
void Change(PipelineProperties& properties, std::u16string_view name, const PropertyValue* value) {
    if (value != nullptr)
        properties.insert_or_assign(std::u16string(name), *value);
    else if (const auto found = properties.find(name); found != properties.end())
        properties.erase(found);
}

bool Find(const PipelineProperties& properties, std::u16string_view name, PropertyValue& value) {
    const auto found = properties.find(name);
    if (found == properties.end()) return false;
    value = found->second;
    return true;
}

bool IsPrinterBag(const PropertyValue& value) {
    return std::holds_alternative<std::shared_ptr<Platform::IPrinterPropertyBag>>(value);
}

bool IsForPrinterBag(const PropertyValue& value) {
    const auto* text = std::get_if<WideText>(&value);
    return text != nullptr ? !text->IsNull() : std::holds_alternative<std::int32_t>(value);
}

[[noreturn]] void RefuseOwnBag() { throw Refusal(DSM_BAD_ARGUMENT, "the bag is the host's own"); }

// What a function of a bag answered.
bool IsDone(std::int32_t answer, const std::string& name) {
    if (answer >= 0) return answer > 0;
    throw Refusal(DSM_BAG_FAILED, "the host's bag failed at \"" + name + "\"",
                  static_cast<std::uint32_t>(answer));
}

}  // namespace

bool HostBag::Get(std::u16string_view name, PropertyValue& value) const {
    if (name.find(u'\0') != name.npos) return false;
    const std::string bytes = Utf8Of(name);
    DsmValue given{};
    if (!IsDone(functions_.Get(functions_.Context, bytes.c_str(), &given), bytes)) return false;
    PropertyValue property = PropertyOf(given);
    if (property.index() == 0) return false;
    value = std::move(property);
    return true;
}

bool HostBag::Put(std::u16string_view name, const DsmValue& value) const {
    if (functions_.Set == nullptr) return false;
    const std::string bytes = Utf8Of(name);
    return IsDone(functions_.Set(functions_.Context, bytes.c_str(), &value), bytes);
}

bool HostBag::Set(std::u16string_view name, const PropertyValue& value) const {
    std::string room;
    return Put(name, ValueOf(value, room));
}

bool HostBag::Remove(std::u16string_view name) const { return Put(name, DsmValue{}); }

void JobPrinterBag::Set(std::u16string_view name, const PropertyValue* value) {
    if (host_) RefuseOwnBag();
    if (value != nullptr && !IsForPrinterBag(*value))
        throw Refusal(DSM_BAD_ARGUMENT, "this bag holds texts and integers alone");
    Change(held_, name, value);
}

template <typename Type>
bool JobPrinterBag::Get(std::u16string_view name, Type& value) const {
    PropertyValue property;
    if (!(host_ ? host_->Get(name, property) : Find(held_, name, property))) return false;
    const Type* typed = std::get_if<Type>(&property);
    if (typed == nullptr) return false;
    value = *typed;
    return true;
}

bool JobPrinterBag::GetString(std::u16string_view name, WideText& value) const { return Get(name, value); }

bool JobPrinterBag::GetInt32(std::u16string_view name, std::int32_t& value) const { return Get(name, value); }

JobPipelineBag::JobPipelineBag(PipelineProperties bags)
    : held_(std::make_shared<PipelineProperties>(std::move(bags))) {}

void JobPipelineBag::Set(std::u16string_view name, const PropertyValue* value) {
    if (host_) RefuseOwnBag();
    Change(Changeable(), name, value);
}

void JobPipelineBag::Use(const DsmBag& functions, PipelineProperties bags) {
    PutBack(std::make_shared<PipelineProperties>(std::move(bags)));
    host_.emplace(functions);
}

JobPipelineBag::State JobPipelineBag::Keep() noexcept {
    own_ = nullptr;
    return held_;
}

void JobPipelineBag::PutBack(const State& state) noexcept {
    held_ = state;
    own_ = nullptr;
}

PipelineProperties& JobPipelineBag::Changeable() {
    if (own_ == nullptr) {
        auto copy = std::make_shared<PipelineProperties>(*held_);
        own_ = copy.get();
        held_ = std::move(copy);
    }
    return *own_;
}

// The host has no reference to the printer bags to give.
bool JobPipelineBag::GetProperty(std::u16string_view name, PropertyValue& value) const {
    const auto found = held_->find(name);
    const bool isHere = found != held_->end() && (!host_ || IsPrinterBag(found->second));
    if (!isHere) return host_ && host_->Get(name, value);
    value = found->second;
    return true;
}

bool JobPipelineBag::AddProperty(std::u16string_view name, const PropertyValue& value) {
    const bool isNew = Changeable().try_emplace(std::u16string(name), value).second;
    return host_ ? host_->Set(name, value) : isNew;
}

bool JobPipelineBag::DeleteProperty(std::u16string_view name) {
    const bool isThere = held_->find(name) != held_->end();
    if (isThere) Change(Changeable(), name, nullptr);
    return host_ ? host_->Remove(name) : isThere;
}

}  // namespace DeviceSpecificModule::CInterface
