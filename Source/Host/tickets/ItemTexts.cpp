#include "Host/tickets/ItemTexts.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "Host/ground/Texts.h"

namespace TicketHost {
namespace {

// How the names of what the keywords measure in micrometres end. Scales are lengths by name alone.
constexpr std::array<std::string_view, 11> lengthEndings = {
    "MediaSizeWidth", "MediaSizeHeight", "ImageableSizeWidth", "ImageableSizeHeight", "OriginWidth",
    "OriginHeight",   "ExtentWidth",     "ExtentHeight",       "OffsetWidth",         "OffsetHeight",
    "Gutter"};

constexpr std::string_view widthName = "MediaSizeWidth", heightName = "MediaSizeHeight";

bool IsLength(const TicketItem& item) {
    const auto endsSo = [&](std::string_view ending) { return item.Local.ends_with(ending); };
    return item.Space == KeywordsNamespace && std::ranges::any_of(lengthEndings, endsSo);
}

// Micrometres as millimetres; nothing for a text that is no such number.
std::optional<std::string> Millimetres(std::string_view text) {
    if (text.empty() || text.find_first_not_of("0123456789") != text.npos) return std::nullopt;
    std::string digits(text.size() < 4 ? 4 - text.size() : 0, '0');
    digits += text;
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 4));
    digits.insert(digits.size() - 3, ".");
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.ends_with('.')) digits.pop_back();
    return digits;
}

std::string Quoted(std::string_view text) { return '"' + Visible(text) + '"'; }

std::string AsText(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const bool hasEnds =
        !text.empty() && blanks.find(text.front()) == blanks.npos && blanks.find(text.back()) == blanks.npos;
    return hasEnds ? Visible(text) : Quoted(text);
}

const TicketItem* FindParameter(const TicketItem& root, std::string_view reference) {
    const std::string_view local = reference.substr(reference.find(':') + 1);
    return FindItem(root.Items, ItemKind::Parameter, KeywordsNamespace, local);
}

const TicketItem* FindScored(const TicketItem& option, std::string_view local) {
    return FindItem(option.Items, ItemKind::ScoredProperty, KeywordsNamespace, local);
}

std::optional<std::string> LengthOf(const TicketItem& option, std::string_view local,
                                    const TicketItem& root) {
    const TicketItem* item = FindScored(option, local);
    if (item != nullptr && !item->Reference.empty()) item = FindParameter(root, item->Reference);
    return item == nullptr ? std::nullopt : Millimetres(item->Value);
}

// What the keywords call a size of one's own says nothing without its size.
std::string OptionText(const TicketItem& option, const TicketItem& root) {
    if (option.Local != "CustomMediaSize" || option.Space != KeywordsNamespace) return AsText(option.Local);
    const auto width = LengthOf(option, widthName, root), height = LengthOf(option, heightName, root);
    return width && height ? "Custom " + *width + " x " + *height + " mm" : option.Local;
}

std::string Head(const TicketItem& item, const TicketItem& root) {
    if (item.Kind == ItemKind::Option) return OptionText(item, root);
    if (item.Kind == ItemKind::Feature) {
        const TicketItem* option = ChosenOption(item);
        return option == nullptr ? "no option" : Summary(*option, root);
    }
    if (!item.Reference.empty()) return "of " + item.Reference.substr(item.Reference.find(':') + 1);
    const bool isBlank = item.Value.find_first_not_of(" \r\n\t") == item.Value.npos;
    return isBlank && item.Kind != ItemKind::Parameter ? "" : ShownValue(item);
}

// The published names of sizes imply them.
bool IsImplied(const TicketItem& owner, const std::string& said, const TicketItem& item) {
    return owner.Kind == ItemKind::Option && owner.Space == KeywordsNamespace && said != "CustomMediaSize" &&
           item.Space == KeywordsNamespace && (item.Local == widthName || item.Local == heightName);
}

}  // namespace

std::string ShownValue(const TicketItem& item) {
    const std::optional<std::string> length = IsLength(item) ? Millimetres(item.Value) : std::nullopt;
    return length ? *length + " mm" : AsText(item.Value);
}

std::pair<std::string, std::string> ShownValues(const TicketItem& before, const TicketItem& after) {
    std::pair<std::string, std::string> shown = {ShownValue(before), ShownValue(after)};
    if (shown.first == shown.second) shown = {Quoted(before.Value), Quoted(after.Value)};
    return shown;
}

std::pair<std::string, std::string> ShownNames(const std::string& before, const std::string& after) {
    const auto local = [](const std::string& name) {
        return name.starts_with('{') ? name.substr(name.find('}') + 1) : name;
    };
    std::pair<std::string, std::string> shown = {AsText(local(before)), AsText(local(after))};
    if (shown.first == shown.second) shown = {Quoted(before), Quoted(after)};
    return shown;
}

std::string Summary(const TicketItem& item, const TicketItem& root) {
    std::string text = Head(item, root);
    const TicketItem* chosen = item.Kind == ItemKind::Feature ? ChosenOption(item) : nullptr;
    std::string rest;
    for (const TicketItem& inner : item.Items) {
        if (&inner == chosen || IsImplied(item, text, inner)) continue;
        const bool isOption = inner.Kind == ItemKind::Option;
        const std::string said = Summary(inner, root);
        rest += rest.empty() ? "" : ", ";
        rest += isOption ? "option " : Visible(inner.Local) + (said.empty() ? "" : " ");
        rest += said;
    }
    if (rest.empty()) return text;
    return text.empty() ? rest : text + " (" + rest + ")";
}

}  // namespace TicketHost
