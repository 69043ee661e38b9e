#include "Host/PropertyTexts.h"

#include "Host/Texts.h"

namespace TicketHost {
namespace {

using Platform::WideText;

bool AreSame(std::monostate, std::monostate) { return true; }
bool AreSame(const WideText& left, const WideText& right) {
    return left.IsNull() == right.IsNull() && left.Length() == right.Length() && BeginsWith(left, right);
}
bool AreSame(std::int32_t left, std::int32_t right) { return left == right; }
bool AreSame(Platform::TokenHandle left, Platform::TokenHandle right) { return left.UserId == right.UserId; }
bool AreSame(Platform::BareReference left, Platform::BareReference right) {
    return left.Address == right.Address;
}
bool AreSame(const std::shared_ptr<Platform::IPrinterPropertyBag>& left,
             const std::shared_ptr<Platform::IPrinterPropertyBag>& right) {
    return left == right;
}

struct Describe {
    std::string operator()(std::monostate) const { return "null"; }
    std::string operator()(const WideText& text) const {
        return text.IsNull() ? "null" : '"' + Visible(ToUtf8(text)) + '"';
    }
    std::string operator()(std::int32_t number) const { return std::to_string(number); }
    std::string operator()(Platform::TokenHandle token) const {
        return "user " + std::to_string(token.UserId);
    }
    std::string operator()(Platform::BareReference reference) const {
        return reference.Address == nullptr ? "reference to nothing" : "reference to OptionTables";
    }
    std::string operator()(const std::shared_ptr<Platform::IPrinterPropertyBag>& bag) const {
        return bag ? "printer bag" : "no printer bag";
    }
};

}  // namespace

bool AreSame(const Platform::PropertyValue& left, const Platform::PropertyValue& right) {
    if (left.index() != right.index()) return false;
    return std::visit(
        [&right](const auto& value) {
            return AreSame(value, std::get<std::remove_cvref_t<decltype(value)>>(right));
        },
        left);
}

std::string DescribeValue(const Platform::PropertyValue& value) { return std::visit(Describe(), value); }

WideText FindText(const PipelineProperties& properties, std::u16string_view name) {
    const auto found = properties.find(name);
    const WideText* text = found == properties.end() ? nullptr : std::get_if<WideText>(&found->second);
    return text == nullptr ? WideText() : *text;
}

bool BeginsWith(const WideText& text, const WideText& beginning) {
    if (text.Length() < beginning.Length()) return false;
    return text.View().data() == beginning.View().data() || text.View().starts_with(beginning.View());
}

std::vector<std::string> SplitCommandLines(std::u16string_view text) {
    const std::string bytes = ToUtf8(text);
    std::vector<std::string> lines;
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::size_t end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        const char* mark = end == rest.npos ? "<no line end>" : line.ends_with('\r') ? "" : "<LF>";
        if (*mark == '\0') line.remove_suffix(1);
        lines.push_back(Visible(line) + mark);
        rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    }
    return lines;
}

}  // namespace TicketHost
