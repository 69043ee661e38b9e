#include <gtest/gtest.h>
#include <json/json.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "Host/capabilities/Capabilities.h"
#include "Host/check/JobChecks.h"
#include "Host/check/Vocabulary.h"
#include "HostTool.h"
#include "Support.h"
#include "ticket/TicketQueries.h"

namespace TicketHost {
namespace {

namespace Module = DeviceSpecificModule;
using Platform::XmlElement;

// The document as another tool reads it.
XmlElement Device() {
    Platform::ParseError error;
    return Platform::ReadXml(Platform::WriteXml(DescribeDevice()), error).value();
}

std::string NameOf(const XmlElement& element) { return AttributeOf(element, "name"); }
std::string Local(const std::string& name) { return name.substr(name.find(':') + 1); }

// The properties of an option or a parameter: their names with type and value, or the parameter meant.
std::string PropertiesOf(const XmlElement& element) {
    std::ostringstream out;
    for (const XmlElement& property : element.Children) {
        const XmlElement& value = property.Children.at(0);
        out << Local(NameOf(property)) << " " << Local(AttributeOf(value, "type")) << " " << value.Text
            << NameOf(value) << "; ";
    }
    return out.str();
}

// What the published framework lets stand in an element: attributes, children and how many of these.
const struct Rule {
    std::string_view Element;
    std::set<std::string> Attributes, Children;
    std::size_t Least, Most;
} rules[] = {
    {"PrintCapabilities", {"version"}, {"Feature", "ParameterDef", "Property"}, 1, 1000},
    {"Feature", {"name"}, {"Feature", "Option", "Property"}, 2, 1000},
    {"Option", {"name", "constrained"}, {"ScoredProperty", "Property"}, 0, 1000},
    {"ScoredProperty", {"name"}, {"Value", "ParameterRef"}, 1, 1},
    {"Property", {"name"}, {"Value"}, 1, 1},
    {"ParameterDef", {"name"}, {"Property"}, 7, 7},
    {"ParameterRef", {"name"}, {}, 0, 0},
    {"Value", {"type"}, {}, 0, 0},
};

bool IsBoundName(const XmlElement& root, const std::string& name) {
    const std::string prefix = name.substr(0, name.size() - Local(name).size());
    const auto binds = [&](const auto& space) { return space.Prefix + ":" == prefix; };
    const bool isName =
        Local(name).find_first_not_of("0123456789") == 0 &&
        std::ranges::none_of(Local(name), [](char c) { return !std::isalnum(c) && c != '_'; });
    return isName && std::ranges::count_if(root.Namespaces, binds) == 1;
}

bool IsRightValue(const XmlElement& root, const std::string& type, const std::string& text) {
    if (type == "xsd:integer") return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
    return type == "xsd:string" || (type == "xsd:QName" && IsBoundName(root, text));
}

void ExpectRules(const XmlElement& root, const XmlElement& element) {
    SCOPED_TRACE(element.Name.Local + " " + NameOf(element));
    const auto rule = std::ranges::find(rules, std::string_view(element.Name.Local), &Rule::Element);
    ASSERT_NE(rule, std::end(rules));
    std::set<std::string> attributes, names;
    for (const auto& attribute : element.Attributes) attributes.insert(attribute.Name.Local);
    EXPECT_TRUE(element.Name.Namespace == FrameworkNamespace && attributes == rule->Attributes);
    EXPECT_TRUE(!attributes.contains("name") || IsBoundName(root, NameOf(element)));
    EXPECT_TRUE(element.Children.size() >= rule->Least && element.Children.size() <= rule->Most);
    EXPECT_TRUE(rule->Element != "Option" || AttributeOf(element, "constrained") == "psk:None");
    EXPECT_TRUE(rule->Element != "Value" || IsRightValue(root, AttributeOf(element, "type"), element.Text));
    EXPECT_TRUE(rule->Element != "ParameterRef" ||
                std::ranges::count(root.Children, NameOf(element), NameOf) == 1);
    for (const XmlElement& child : element.Children) {
        EXPECT_TRUE(rule->Children.contains(child.Name.Local)) << child.Name.Local;
        EXPECT_TRUE(names.insert(NameOf(child)).second) << NameOf(child) << " twice";
        ExpectRules(root, child);
    }
}

TEST(Capabilities, HoldEachFeatureAndParameterByTheRulesOfTheSchema) {
    const XmlElement device = Device();
    EXPECT_EQ(device.Name.Local + AttributeOf(device, "version"), "PrintCapabilities1");
    ExpectRules(device, device);
    const Json::Value cases = Module::ReadCases("host/capabilities.json");
    ASSERT_EQ(device.Children.size(), cases.size());
    auto child = device.Children.begin();
    for (const Json::Value& each : cases) {
        SCOPED_TRACE(NameOf(*child));
        XmlElement shown = *child++;
        EXPECT_EQ(NameOf(shown), each["name"].asString());
        if (each["options"].isInt()) {
            EXPECT_EQ(static_cast<int>(shown.Children.size()), 1 + each["options"].asInt())
                << "other options than Tests/Data/host/capabilities.json counts";
            const auto one = std::ranges::find(shown.Children, each["one"].asString(), NameOf);
            ASSERT_NE(one, shown.Children.end());
            shown.Children = XmlElement(*one).Children;
        }
        EXPECT_EQ(PropertiesOf(shown), each["holds"].asString());
    }
    for (const ItemRow& row : ItemRows())  // of which any value counts, none can be listed
        EXPECT_EQ(std::ranges::count(device.Children, row.FullName(), NameOf), row.Allowed.Kind != Form::Any);
}

// A ticket that chooses one option of the document, or none, with the parameters that it must have. The job's
// settings leave the size to the tickets.
std::string TicketWith(const XmlElement& device, const XmlElement& feature, const XmlElement* option,
                       Level level) {
    const char* const settings = R"({"features":{"OutPSize":"UsePaperSize"}})";
    XmlElement root = RootOfFragment(level == AtJob ? Module::Settings(settings) : "");
    root.Namespaces = device.Namespaces;
    const std::string inside = option == nullptr ? "" : PropertiesOf(*option);
    if (option != nullptr) {
        root.Children.push_back(feature);
        root.Children.back().Children = {*option};
        root.Children.back().Children[0].Attributes.pop_back();  // what a ticket doesn't say
    }
    for (XmlElement parameter : device.Children) {
        if (parameter.Name.Local != "ParameterDef") continue;
        const bool isNeeded = PropertiesOf(parameter).ends_with("psk:Unconditional; ") ||
                              inside.find(" " + NameOf(parameter) + ";") != inside.npos;
        if (!isNeeded) continue;
        parameter.Name.Local = "ParameterInit";
        parameter.Children = XmlElement(parameter.Children.at(2)).Children;  // the default
        root.Children.push_back(parameter);
    }
    return Platform::WriteXml(root);
}

// The data line by the option's row in the feature's table; none without a table.
std::string LineOfRow(const std::string& feature, const std::string& option) {
    if (!IsOptionTableName(feature)) return "";
    for (const OptionRecord& row : CopyOptionTable(feature))
        for (const std::string& keyword : {option, Local(option)})
            if (row.Keyword == Module::Wide(keyword)) return Module::Narrow(row.DataCommand);
    ADD_FAILURE() << "no row of " << feature << " for " << option;
    return "";
}

// What comes of a job's ticket, and of another below a plain job as a document's and a page's.
struct Results {
    std::string Pjl, Data, PageData, Size;

    Results(const std::string& plain, const std::string& ticket, const std::string& other) {
        Module::TestHost job, below;
        job.Run(Module::JobLevel, Module::MakeDocument(ticket));
        Pjl = Module::SteadyPjl(job.Property(u"PJL"));
        Data = job.Data();
        const Module::TicketDocument document = Module::MakeDocument(other);
        below.Run(Module::JobLevel, Module::MakeDocument(plain));
        below.Run(Module::DocumentLevel, document);
        below.Run(Module::PageLevel, Module::MakeDocument(other));
        PageData = below.Data();
        Size = Local(Module::Narrow(Module::GetFeatureOptionName(document, u"PageMediaSize")));
    }
};

// What a text is without what an option adds to it.
std::string Without(std::string text, const std::string& added) {
    const std::size_t place = text.find(added);
    EXPECT_NE(place, text.npos) << text << " lacks " << added;
    return place == text.npos ? text : text.erase(place, added.size());
}

std::string WarningsOf(const std::string& ticket, const std::string& other, unsigned levels) {
    Job job{"job", {}, {{Module::JobLevel, MakeTicket({"job's ticket", ticket}, "")}}};
    job.Settings.Tables.emplace(OptionTableNames.begin(), OptionTableNames.end());
    const auto below = MakeTicket({"other ticket", other}, "");
    if ((levels & AtDocument) != 0) job.Calls.push_back({Module::DocumentLevel, below});
    if ((levels & AtPage) != 0) job.Calls.push_back({Module::PageLevel, below});
    const Findings findings = CheckJob(job);
    std::ostringstream out;
    if (CountWarnings(findings) > 0) WriteFindingsAsText(out, findings);
    return out.str();
}

TEST(Capabilities, EachOptionConvertsToWhatItsRowSays) {
    const XmlElement device = Device();
    const std::string plain = TicketWith(device, {}, nullptr, AtJob);
    const Results base(plain, plain, TicketWith(device, {}, nullptr, AtPage));
    EXPECT_EQ(base.Data + base.PageData, "\r\nPage_0\r\n\r\nPage_0\r\nPage_1\r\n");
    for (const Json::Value& each : Module::ReadCases("host/capabilities.json")) {
        const std::string name = each["name"].asString();
        const unsigned levels = std::ranges::find(ItemRows(), name, &ItemRow::FullName)->ReadAt;
        const XmlElement& feature = *std::ranges::find(device.Children, name, NameOf);
        std::size_t special = 0;
        for (const XmlElement& option : feature.Children) {
            if (option.Name.Local != "Option") continue;
            SCOPED_TRACE(name + " " + NameOf(option));
            const Json::Value& data = each["data"][NameOf(option)];
            special += data.isString();
            const std::string line =
                data.isString() ? data.asString() : LineOfRow(Local(name), NameOf(option));
            const std::string ticket = TicketWith(device, feature, &option, AtJob);
            const std::string other = TicketWith(device, feature, &option, AtPage);
            const Results results(plain, ticket, other);
            EXPECT_EQ(Without(results.Pjl, each["pjl"][NameOf(option)].asString()), base.Pjl);
            EXPECT_EQ(Without(results.Data, line), base.Data);
            EXPECT_EQ(Without(results.PageData, (levels & AtPage) != 0 ? line : ""), base.PageData);
            EXPECT_EQ(results.Size, (levels & AtDocument) != 0 ? Local(NameOf(option)) : "(null)");
            EXPECT_EQ(WarningsOf(ticket, other, levels), "");
        }
        EXPECT_EQ(special, each["data"].size()) << name;
    }
}

using CapabilitiesVerb = HostTool;

TEST_F(CapabilitiesVerb, WritesTheDocumentWhichIsNoTicket) {
    EXPECT_EQ(Run("capabilities", "device.xml").Status, 0);
    EXPECT_EQ(Read("device.xml"), Platform::WriteXml(DescribeDevice()));
    const std::string said = Run("check --strict device.xml").Output;
    EXPECT_EQ(said.find("device.xml:2: not a Print Ticket but a PrintCapabilities document"), 0U) << said;
    EXPECT_EQ(Run("capabilities device.xml").Errors,
              "tickethost: device.xml: one argument too many (tickethost help capabilities tells more)\n");
    EXPECT_EQ(Run("capabilties").Errors,
              "tickethost: capabilties: unknown verb; did you mean capabilities?\n");
}

}  // namespace
}  // namespace TicketHost
