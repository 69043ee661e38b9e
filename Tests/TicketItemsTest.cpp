#include <gtest/gtest.h>

#include <json/json.h>

#include <sstream>

#include "Cases.h"
#include "Host/tickets/Settings.h"
#include "Host/tickets/TicketEdits.h"
#include "Support.h"
#include "ticket/CustomProperties.h"
#include "ticket/TicketNamespaces.h"

namespace TicketHost {
namespace {

namespace Module = DeviceSpecificModule;

using Platform::XmlElement;

XmlElement Root(std::string_view xml) {
    Platform::ParseError error;
    const auto root = Platform::ReadXml(xml, error);
    EXPECT_TRUE(root) << error.Reason << "\n" << xml;
    return root.value_or(XmlElement());
}

// A line for each item: kind, name, where its namespace ends, value, reference, path and line.
void Describe(const std::vector<TicketItem>& items, std::ostream& out) {
    constexpr const char* kinds[] = {"feature", "option", "scored", "property", "parameter", "other"};
    for (const TicketItem& item : items) {
        out << kinds[static_cast<int>(item.Kind)] << " " << item.Name << " [" << item.Local << " in "
            << item.Space.substr(item.Space.rfind('/') + 1) << "] '" << item.Value << "' '" << item.Reference
            << "' " << item.Path << " :" << item.Line << "\n";
        Describe(item.Items, out);
    }
}

TEST(TicketItems, SayWhatStandsInATicketAndWhere) {
    const std::string ticket =
        "<p:PrintTicket xmlns:p='" FRAMEWORK_NAMESPACE "' xmlns:k='" KEYWORDS_NAMESPACE
        "' version='1'>\n"
        "<p:Feature name='k:PageMediaSize'><!-- none of it -->\n"
        "<p:Option name='k:Custom'>\n"
        "<p:ScoredProperty name='k:Width'><p:Value> 1<![CDATA[0]]></p:Value></p:ScoredProperty>"
        "<p:ScoredProperty name='k:Height'><p:ParameterRef name='k:H'/></p:ScoredProperty>\n"
        "</p:Option></p:Feature>\n"
        "<p:ParameterInit name='v:H' xmlns:v='urn:x/v'><p:Value>&lt;7</p:Value></p:ParameterInit>\n"
        "<Feature name='k:NotTheSchemas'>text</Feature><p:Feature name='unbound:F'/><p:Feature/>"
        "</p:PrintTicket>";
    std::ostringstream lines;
    Describe(ItemsOf(Root(ticket)), lines);
    EXPECT_EQ(lines.str(),
              "feature k:PageMediaSize [PageMediaSize in printschemakeywords] '' '' /*[1]/*[1] :2\n"
              "option k:Custom [Custom in printschemakeywords] '' '' /*[1]/*[1]/*[1] :3\n"
              "scored k:Width [Width in printschemakeywords] ' 10' '' /*[1]/*[1]/*[1]/*[1] :4\n"
              "scored k:Height [Height in printschemakeywords] '' 'k:H' /*[1]/*[1]/*[1]/*[2] :4\n"
              "parameter v:H [H in v] '<7' '' /*[1]/*[2] :6\n"
              "other Feature [Feature in ] 'text' '' /*[1]/*[3] :7\n"
              "feature unbound:F [F in ] '' '' /*[1]/*[4] :7\n"
              "feature  [ in ] '' '' /*[1]/*[5] :7\n");
    EXPECT_TRUE(ItemsOf(Root("<PrintTicket><Feature name='k:F'/></PrintTicket>")).empty());
}

// What is put in counts for the module, and nothing else of the series does.
TEST(TicketItems, SettingsThatArePutInAreThoseThatTheModuleReads) {
    for (const Json::Value& each : Module::ReadCases("host/settings.json")) {
        const Module::TicketDocument ticket =
            Module::MakeTicket(each["children"].asString(), each["attributes"].asString());
        const XmlElement root = Root(Module::Narrow(ticket->xml()));
        Json::Value values;
        values["features"]["Text"] = "a<b&c \"\xC3\xA9";
        EXPECT_TRUE(PutSettings(*ticket, root, AllSettingsSeries[0], values)) << each;
        ticket->setProperty(u"SelectionNamespaces", Module::SelectionNamespaces);
        Module::SharedJson read;
        Module::ReadCustomProperties(ticket, read);
        EXPECT_TRUE(read && *read == values) << each << Module::Narrow(ticket->xml());

        const std::vector<TicketSettings> before = ReadSettings(root);
        std::ostringstream said;
        for (const TicketSettings& settings : before) {
            said << settings.Series->Scope << " " << settings.Count << " of";
            for (const SettingsPiece& piece : settings.Pieces)
                said << " " << piece.Index << (IsCounted(settings, piece) ? "" : "!");
            said << ": " << (settings.IsWellFormed ? WriteSettings(settings.Values) : settings.FaultCause);
            if (!settings.IsWellFormed)
                said << " at " << settings.FaultAt << " in "
                     << PlaceInPieces(settings, settings.FaultAt).Piece.Index;
            said << ";";
        }
        EXPECT_EQ(said.str(), each["reads"].asString()) << each;
    }
}

}  // namespace
}  // namespace TicketHost
