#include "Support.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "conversion/JsonState.h"
#include "ticket/TicketNamespaces.h"

namespace DeviceSpecificModule {

TicketDocument MakeDocument(const std::string& xml) {
    Platform::ParseError error;
    TicketDocument ticket = Platform::LoadTicketDocument(std::string_view(xml), error);
    if (!ticket) throw std::runtime_error("test ticket: " + error.Reason + " in " + xml);
    ticket->setProperty(u"SelectionNamespaces", SelectionNamespaces);
    return ticket;
}

TicketDocument MakeTicket(const std::string& children, const std::string& attributes) {
    return MakeDocument("<psf:PrintTicket xmlns:psf='" FRAMEWORK_NAMESPACE "' xmlns:psk='" KEYWORDS_NAMESPACE
                        "' xmlns:ns0000='" DEVMODE_NAMESPACE
                        "' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' " +
                        attributes + ">" + children + "</psf:PrintTicket>");
}

std::string Feature(const std::string& name, const std::string& option, const std::string& inside) {
    return "<psf:Feature name='" + name + "'><psf:Option name='" + option + "'>" + inside +
           "</psf:Option></psf:Feature>";
}

std::string Parameter(const std::string& name, const std::string& value) {
    return "<psf:ParameterInit name='" + name + "'><psf:Value>" + value + "</psf:Value></psf:ParameterInit>";
}

std::string Settings(const std::string& json, std::size_t cut) {
    const std::string piece = "ns0000:JobXRJobCustomProperties00";
    if (cut == std::string::npos)
        return Parameter("ns0000:JobXRJobCustomCount", "1") + Parameter(piece + "0", json);
    return Parameter("ns0000:JobXRJobCustomCount", "2") + Parameter(piece + "0", json.substr(0, cut)) +
           Parameter(piece + "1", json.substr(cut));
}

std::string Children(const Json::Value& forms) {
    std::string children;
    for (const Json::Value& each : forms) {
        const std::string form = each.asString();
        const std::size_t blank = form.find(' ', 2);
        if (blank == std::string::npos && (form.starts_with("F ") || form.starts_with("P ")))
            throw std::runtime_error("short form: " + form);
        if (form.starts_with("F "))
            children += Feature(form.substr(2, blank - 2), form.substr(blank + 1));
        else if (form.starts_with("P "))
            children += Parameter(form.substr(2, blank - 2), form.substr(blank + 1));
        else
            children += form;
    }
    return children;
}

SharedJson MakeSettings(const std::string& json) {
    auto value = std::make_shared<Json::Value>();
    if (!ParseJsonText(Wide(json), *value)) throw std::runtime_error("test settings: " + json);
    return value;
}

namespace {

// Whether a text has a shape: "A" stands for a capital, "a" for a small letter, "0" for a digit, else for
// itself.
bool HasShape(std::string_view text, std::string_view shape) {
    const auto fits = [](char unit, char pattern) {
        if (pattern == 'A') return unit >= 'A' && unit <= 'Z';
        if (pattern == 'a') return unit >= 'a' && unit <= 'z';
        if (pattern == '0') return unit >= '0' && unit <= '9';
        return unit == pattern;
    };
    return text.size() == shape.size() && std::equal(text.begin(), text.end(), shape.begin(), fits);
}

struct ChangingValue {
    std::string_view Start, Shape, Name;  // without a shape: any value but an empty one
};

constexpr ChangingValue changingValues[] = {
    {"@PJL PRINTLOG ITEM = 2,", "Aaa,00 Aaa 0000 00:00:00", "{DATE}"},
    {"@PJL PRINTLOG ITEM = 4,", "", "{COMPUTER}"},
    {"@PJL SET JOBTIME = ", "\"00000000000000\"", "\"{TIME}\""},
};

}  // namespace

std::string SteadyPjl(const std::string& pjl) {
    std::string steady = pjl;
    for (const auto& [start, shape, name] : changingValues) {
        const std::size_t line = steady.find(start);
        if (line == steady.npos) continue;
        const std::size_t value = line + start.size();
        const std::size_t length = std::min(steady.find('\r', value), steady.size()) - value;
        const std::string_view text(steady.data() + value, length);
        if (shape.empty() ? !text.empty() : HasShape(text, shape)) steady.replace(value, length, name);
    }
    return steady;
}

namespace {
const std::vector<std::string>& AllTables() {
    static const std::vector<std::string> names(TicketHost::OptionTableNames.begin(),
                                                TicketHost::OptionTableNames.end());
    return names;
}
}  // namespace

int EndOf(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status); }

std::string OutputOf(const std::string& command, int* end) {
    std::FILE* pipe = popen(("export LC_ALL=C; " + command).c_str(), "r");
    std::string output;
    for (int byte = 0; pipe != nullptr && (byte = std::fgetc(pipe)) != EOF;)
        output += static_cast<char>(byte);
    const int ended = pipe == nullptr ? -1 : EndOf(pclose(pipe));
    if (end != nullptr) *end = ended;
    EXPECT_TRUE(pipe != nullptr && (ended == 0 || end != nullptr)) << command;
    return output;
}

TestHost::TestHost(Platform::PipelineProperties pipeline, bool withTables)
    : Bag(std::make_shared<Platform::MemoryPipelineBag>(std::move(pipeline))),
      TableSet(AllTables()),
      Tables(*TableSet.Record()),
      WithTables(withTables) {}

std::int32_t TestHost::Run(std::int32_t level, const TicketDocument& ticket) {
    return ProcessDrvPT(Bag, ticket, level, WithTables ? &Tables : nullptr, &Snapshot);
}

std::string TestHost::Property(std::u16string_view name) const {
    Platform::PropertyValue value;
    if (!Bag->GetProperty(name, value)) return "(absent)";
    const auto* text = std::get_if<WideText>(&value);
    return text == nullptr ? "(other)" : Narrow(*text);
}

}  // namespace DeviceSpecificModule
