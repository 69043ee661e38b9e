#include "Host/tickets/Settings.h"

#include <json/reader.h>
#include <json/writer.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <span>

namespace TicketHost {
namespace {

using Platform::XmlElement;

constexpr std::size_t mostPieces = 1000;  // that three digits can name
constexpr std::string_view vendorPrefix = "ns0000:";

// The text of an element with all below it, as a query's node gives it.
std::string WholeText(const XmlElement& element) {
    std::string text = element.Text;
    for (const XmlElement& child : element.Children) text += WholeText(child);
    return text;
}

std::int64_t NumberOf(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\v\f"), text.size()));
    if (text.starts_with('+')) text.remove_prefix(1);
    std::int64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

std::string NameOfPiece(const SettingsSeries& series, std::size_t index) {
    const std::string digits = std::to_string(index);
    return std::string(series.Piece) + std::string(3 - digits.size(), '0') + digits;
}

// The index of a piece by its parameter's local name, if it is one of the series.
std::optional<std::size_t> IndexOf(const SettingsSeries& series, std::string_view local) {
    if (!local.starts_with(series.Piece) || local.size() != series.Piece.size() + 3) return std::nullopt;
    std::size_t index = mostPieces;
    std::from_chars(local.data() + series.Piece.size(), local.data() + local.size(), index);
    if (index >= mostPieces || NameOfPiece(series, index) != local) return std::nullopt;
    return index;
}

// Of several with one index the first counts.
void AddPieces(const std::vector<TicketItem>& items, TicketSettings& settings) {
    std::vector<const TicketItem*> found(mostPieces);
    for (const TicketItem& item : items) {
        if (item.Kind != ItemKind::Parameter || item.Space != DevmodeNamespace) continue;
        const auto index = IndexOf(*settings.Series, item.Local);
        if (index && found[*index] == nullptr) found[*index] = &item;
    }
    for (std::size_t index = 0; index < mostPieces; ++index) {
        if (found[index] == nullptr) continue;
        settings.Pieces.push_back({index, found[index]->Value, found[index]->Path, found[index]->Line});
        if (IsCounted(settings, settings.Pieces.back())) settings.Text += found[index]->Value;
    }
}

const XmlElement* FindCount(const XmlElement& root, const SettingsSeries& series) {
    const std::string name = std::string(vendorPrefix).append(series.Count);
    const auto isIt = [&](const XmlElement& element) {
        const auto hasName = [&](const Platform::XmlAttribute& attribute) {
            return attribute.Name.Local == "name" && attribute.Name.Namespace.empty() &&
                   attribute.Value == name;
        };
        return element.Name.Local == "ParameterInit" && element.Name.Namespace == FrameworkNamespace &&
               std::ranges::any_of(element.Attributes, hasName);
    };
    const auto found = std::ranges::find_if(root.Children, isIt);
    return found == root.Children.end() ? nullptr : &*found;
}

}  // namespace

std::vector<TicketSettings> ReadSettings(const XmlElement& root) {
    std::vector<TicketSettings> all;
    if (!IsPrintTicket(root)) return all;
    const std::vector<TicketItem> items = ItemsOf(root);
    for (const SettingsSeries& series : AllSettingsSeries) {
        const XmlElement* count = FindCount(root, series);
        if (count == nullptr) continue;
        TicketSettings settings;
        settings.Series = &series;
        settings.CountText = WholeText(*count);
        settings.Count = NumberOf(settings.CountText);
        settings.CountPath = "/*[1]/*[" + std::to_string(count - root.Children.data() + 1) + "]";
        settings.Line = count->Line;
        AddPieces(items, settings);
        static_cast<SettingsJson&>(settings) = ReadSettingsJson(settings.Text);
        all.push_back(std::move(settings));
    }
    return all;
}

PiecePlace PlaceInPieces(const TicketSettings& settings, std::size_t byte) {
    const SettingsPiece* piece = &settings.Pieces.front();
    for (const SettingsPiece& next : std::span(settings.Pieces).subspan(1)) {
        if (!IsCounted(settings, next) || byte < piece->Text.size()) break;
        byte -= piece->Text.size();
        piece = &next;
    }
    return {*piece, byte};
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
// Of the library's two readers this is also the one that says where a fault stands.
SettingsJson ReadSettingsJson(const std::string& text) {
    SettingsJson json;
    json.IsWellFormed = text.empty();
    if (json.IsWellFormed) return json;
    try {
        Json::Reader reader;
        json.IsWellFormed = reader.parse(text.data(), text.data() + text.size(), json.Values, false);
        const auto errors = reader.getStructuredErrors();
        if (json.IsWellFormed || errors.empty()) return json;
        json.FaultAt = static_cast<std::size_t>(errors.front().offset_start);
        json.FaultCause = errors.front().message;
    } catch (const Json::Exception& error) {
        json.FaultCause = error.what();
    }
    return json;
}
#pragma GCC diagnostic pop

std::string WriteSettings(const Json::Value& values) {
    Json::StreamWriterBuilder builder;
    builder["emitUTF8"] = true;
    builder["indentation"] = "";
    return Json::writeString(builder, values);
}

}  // namespace TicketHost
