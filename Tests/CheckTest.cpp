#include <gtest/gtest.h>
#include <json/json.h>

#include <filesystem>
#include <sstream>

#include "Host/check/JobChecks.h"
#include "Host/jobs/Manifest.h"
#include "HostTool.h"
#include "Support.h"
#include "ticket/TicketNamespaces.h"

namespace TicketHost {
namespace {

namespace Module = DeviceSpecificModule;
using Lines = std::vector<std::string>;

// A ticket of a case: XML as it is, or a list of children in their short forms (Support.h), of which
// "S json" stands for settings in one piece.
std::string TicketText(const Json::Value& form) {
    if (form.isString()) return form.asString();
    std::string children;
    for (const Json::Value& each : form) {
        const std::string text = each.asString();
        Json::Value one;
        one.append(each);
        children +=
            (text.starts_with("S ") ? Module::Settings(text.substr(2)) : Module::Children(one)) + "\n";
    }
    return "<psf:PrintTicket xmlns:psf='" FRAMEWORK_NAMESPACE "' xmlns:psk='" KEYWORDS_NAMESPACE
           "' xmlns:ns0000='" DEVMODE_NAMESPACE "' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'>\n" +
           children + "</psf:PrintTicket>";
}

// A case has a ticket, at job level unless it says another one, or a manifest. Places are those in the file.
Lines FindingsOf(const Json::Value& each) {
    Json::Value manifest = each["manifest"];
    if (manifest.isNull()) {
        manifest["calls"][0]["level"] = each.get("level", 2);
        manifest["calls"][0]["ticket"] = each["ticket"];
    }
    for (Json::Value& call : manifest["calls"]) call["ticket"] = TicketText(call["ticket"]);
    const Manifest read = ParseManifest("job", manifest.toStyledString());
    Job job{"job", read.Settings, {}};
    for (const ManifestCall& call : read.Calls)
        job.Calls.push_back({call.Level, MakeTicket({"inline ticket", Module::Wide(call.Ticket)}, "job")});
    std::ostringstream out;
    WriteFindingsAsText(out, CheckJob(job));
    std::istringstream in(out.str());
    Lines lines;
    for (std::string line; std::getline(in, line);) {
        for (const char* place : {"job: ", "calls[0].ticket:"})
            if (line.starts_with(place)) line.erase(0, std::string(place).size());
        lines.push_back(line);
    }
    lines.pop_back();  // how many there are
    return lines;
}

TEST(Check, SaysWhatIsTheMatterAndWhere) {
    for (const Json::Value& each : Module::ReadCases("host/checks.json")) {
        Lines expected;
        for (const Json::Value& line : each["says"]) expected.push_back(line.asString());
        EXPECT_EQ(FindingsOf(each), expected) << each;
    }
}

// The same from the command line: the verb's status and forms, and the line of the verb that converts.
class CheckVerb : public HostTool {};

TEST_F(CheckVerb, ReportsInBothFormsAndByItsStatus) {
    const std::string ticket =
        "<psf:PrintTicket xmlns:psf='" FRAMEWORK_NAMESPACE "' xmlns:psk='" KEYWORDS_NAMESPACE
        "'>\n\n<psf:Feature name='psk:PageOrientation'><psf:Option name='psk:Upright'/></psf:Feature>"
        "<psf:Feature name='psk:PagePoster'/></psf:PrintTicket>";
    Write("odd.xml", ticket);
    Write("good.xml", "<psf:PrintTicket xmlns:psf='" FRAMEWORK_NAMESPACE "'/>");
    Write("page.html", "<!DOCTYPE html>\n<html></html>");
    Write("prefix.xml", "<psf:PrintTicket/>");
    Write("job.json",
          "{\n\"pipeline\": {\n\"Serie\": \"\"},\n\"calls\": [\n{\"level\": 2, \"ticket\": \"odd.xml\"}]}");
    const std::string text =
                          "option \"psk:Upright\" of psk:PageOrientation is unknown to the device; known: "
                          "psk:Landscape, psk:Portrait\n",
                      note = "note: psk:PagePoster counts for nothing: the device has no such thing\n";
    const struct {
        const char* Arguments;
        int Status;
        std::string Output, Errors;
    } cases[] = {
        {"check odd.xml", 0, "odd.xml:3: " + text + "odd.xml:3: " + note + "1 warning and 1 note\n", ""},
        {"check --strict good.xml", 0, "nothing to warn of\n", ""},
        {"check --strict job.json", 1,
         "job.json: pipeline.Serie:3: no such property is ever read; nearest: Series\nodd.xml:3: " + text +
             "odd.xml:3: " + note + "2 warnings and 1 note\n",
         ""},
        {"check --strict --format json odd.xml", 1,
         "{\n  \"warnings\": [\n    {\"file\": \"odd.xml\", \"line\": 3, \"text\": \"option "
         "\\\"psk:Upright\\\" of "
         "psk:PageOrientation is unknown to the device\", \"hint\": \"known: psk:Landscape, "
         "psk:Portrait\"}],\n"
         "  \"notes\": [\n    {\"file\": \"odd.xml\", \"line\": 3, \"text\": \"psk:PagePoster counts for "
         "nothing: the "
         "device has no such thing\"}]\n}\n",
         ""},
        {"check --format json --user 'M\"ia' --job-name 'a\"b' good.xml", 0,
         "{\n  \"warnings\": [\n    {\"file\": \"good.xml\", \"place\": \"pipeline.UserSecurityToken\", "
         "\"text\": \"the "
         "user's name \\\"M\\\"ia\\\" goes into the header as it is, where it ends a line or a quoted "
         "text\"},\n"
         "    {\"file\": \"good.xml\", \"place\": \"pipeline.PrinterName\", \"text\": \"the document's name "
         "\\\"a\\\"b\\\" goes into the header as it is, where it ends a line or a quoted text\"}],\n"
         "  \"notes\": []\n}\n",
         ""},
        {"check page.html", 2, "",
         "tickethost: page.html:1:15: a DOCTYPE is not allowed; this is an HTML page, not a Print Ticket\n"},
        {"check prefix.xml", 2, "",
         "tickethost: prefix.xml:1:17: Namespace prefix psf on PrintTicket is not defined; declare it in the "
         "root, as "
         "xmlns:psf=\"...\"\n"},
    };
    for (const auto& row : cases) {
        const Outcome outcome = Run(row.Arguments);
        EXPECT_EQ(outcome.Status, row.Status) << row.Arguments;
        EXPECT_EQ(outcome.Output, row.Output) << row.Arguments;
        EXPECT_EQ(outcome.Errors, row.Errors) << row.Arguments;
    }
    EXPECT_EQ(Run("convert odd.xml").Errors, "tickethost: 1 warning; tickethost check shows it\n");
    EXPECT_EQ(Run("convert good.xml").Errors, "");
    EXPECT_EQ(Run("convert --format json odd.xml").Errors, "");
}

TEST_F(CheckVerb, HasNothingAgainstTheSamples) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLES_DIR)) {
        if (entry.path().extension() != ".json") continue;
        ++count;
        const Outcome outcome = Run("check --strict " + entry.path().string());
        EXPECT_EQ(outcome.Status, 0) << entry.path() << outcome.Output << outcome.Errors;
    }
    EXPECT_GE(count, 4);
}

}  // namespace
}  // namespace TicketHost
