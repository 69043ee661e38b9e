#include <utility>

#include "Host/explain/ExplainOutput.h"
#include "Host/ground/Json.h"

namespace TicketHost {
namespace {

constexpr const char* kindsOfLines[] = {"error", "PJL", "DATA", "property", "ticket"};

constexpr const char* kindsOfItems[] = {"feature",        "option",   "scored property", "property",
                                        "parameter",      "element",  "series",          "setting",
                                        "per-page entry", "pipeline", "driver",          "queue"};

class JsonExplanation {
public:
    JsonExplanation(std::ostream& out, const Explanation& explanation)
        : out_(out), json_(out), explanation_(explanation) {}

    void Write() {
        out_ << "{\n  \"job\": ";
        json_.Write(explanation_.Job);
        out_ << ",\n  \"callCount\": " << explanation_.CallCount
             << ",\n  \"narrowed\": " << (explanation_.IsNarrowed ? "true" : "false") << ",\n  \"calls\": ";
        WriteList(explanation_.Calls, "    ", [&](const ExplainedCall& call) { WriteCall(call); });
        out_ << ",\n  \"items\": ";
        const std::vector<bool> withEffect = ItemsWithEffect(explanation_);
        std::size_t at = 0;
        WriteList(explanation_.Items, "    ",
                  [&](const SourceItem& item) { WriteItem(item, withEffect[at++]); });
        out_ << "\n}\n";
    }

private:
    // An element a line.
    template <typename List, typename Work>
    void WriteList(const List& list, const std::string& indent, const Work& write) {
        const char* separator = "\n";
        out_ << "[";
        for (const auto& each : list) {
            out_ << separator << indent;
            write(each);
            separator = ",\n";
        }
        out_ << (list.empty() ? "]" : "\n" + indent.substr(2) + "]");
    }

    void WriteText(const char* name, const std::string& text) {
        out_ << "\"" << name << "\": ";
        json_.Write(text);
    }
    void WriteInstead(const std::optional<std::string>& instead) {
        out_ << ", \"instead\": ";
        if (instead)
            json_.Write(*instead);
        else
            out_ << "null";
    }
    void WriteIndex(std::size_t index) {
        if (index == NoIndex)
            out_ << "null";
        else
            out_ << index;
    }
    void WriteIndices(const std::vector<std::size_t>& indices) {
        const char* separator = "";
        out_ << "[";
        for (const std::size_t index : indices) out_ << std::exchange(separator, ", ") << index;
        out_ << "]";
    }

    void WriteCall(const ExplainedCall& call) {
        out_ << "{\"call\": " << call.Number << ", \"level\": " << call.Level << ", ";
        WriteText("ticket", call.Ticket);
        out_ << ", \"lines\": ";
        WriteList(call.Lines, "      ", [&](const ExplainedLine& line) { WriteLine(line); });
        out_ << "}";
    }

    void WriteLine(const ExplainedLine& line) {
        out_ << "{\"kind\": \"" << kindsOfLines[static_cast<int>(line.Kind)] << "\", ";
        WriteText("text", line.Text);
        out_ << ", \"causes\": [";
        const char* separator = "";
        for (const Cause& cause : line.Causes) {
            out_ << std::exchange(separator, ", ") << "{\"items\": ";
            WriteIndices(cause.Items);
            WriteInstead(cause.Instead);
            out_ << "}";
        }
        out_ << "], \"subjects\": ";
        WriteIndices(line.Subjects);
        out_ << "}";
    }

    void WriteItem(const SourceItem& item, bool hasEffect) {
        out_ << "{\"kind\": \"" << kindsOfItems[static_cast<int>(item.Kind)] << "\", ";
        WriteText("name", item.Name);
        out_ << ", ";
        WriteText("value", item.Value);
        out_ << ", ";
        WriteText("label", item.Label);
        out_ << ", ";
        WriteText("file", item.File);
        out_ << ", \"line\": " << item.Line << ", \"in\": ";
        WriteIndex(item.Parent);
        out_ << ", \"tried\": " << (item.Tried ? "true" : "false")
             << ", \"hasEffect\": " << (hasEffect ? "true" : "false") << ", \"effects\": ";
        WriteList(item.Effects, "      ", [&](const Effect& effect) { WriteEffect(effect); });
        out_ << ", \"hiddenBy\": ";
        WriteIndices(item.HiddenBy);
        out_ << "}";
    }

    void WriteEffect(const Effect& effect) {
        out_ << "{\"call\": " << explanation_.Calls[effect.Call].Number << ", \"kind\": \""
             << kindsOfLines[static_cast<int>(effect.Kind)] << "\", \"line\": ";
        WriteIndex(effect.Line);
        WriteInstead(effect.Instead);
        out_ << "}";
    }

    std::ostream& out_;
    JsonWriter json_;
    const Explanation& explanation_;
};

}  // namespace

void WriteExplanationAsJson(std::ostream& out, const Explanation& explanation) {
    JsonExplanation(out, explanation).Write();
}

}  // namespace TicketHost
