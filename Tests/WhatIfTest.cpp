#include <gtest/gtest.h>
#include <json/writer.h>

#include "Host/ground/Errors.h"
#include "Host/ground/Json.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/Job.h"
#include "Host/tickets/TicketChanges.h"
#include "HostTool.h"
#include "Platform/PrintQueue.h"
#include "Support.h"
#include "devicespecific/platform/Identities.h"

namespace TicketHost {
namespace {

namespace Module = DeviceSpecificModule;

using Platform::WideText;

Job JobOf(const Json::Value& tickets) {
    Job job{"job.json", {}, {}};
    for (const Json::Value& each : tickets) {
        const auto document = each.isMember("xml") ? Module::MakeDocument(each["xml"].asString())
                                                   : Module::MakeTicket(Module::Children(each["before"]),
                                                                        each["attributes"].asString());
        const std::string name = "ticket " + std::to_string(job.Calls.size() + 1);
        const auto ticket = std::make_shared<const Ticket>(Ticket{name, document->xml()});
        job.Calls.push_back({each["level"].asInt(), ticket});
    }
    return job;
}

// Makes a job what arguments say of it. Empty, or the error.
std::string Apply(const Json::Value& arguments, Job& job) {
    try {
        ApplyArguments(arguments, job);
        return "";
    } catch (const InputError& error) {
        return error.what();
    }
}

// Each ticket is afterwards what its case says, or untouched where that says nothing.
TEST(WhatIf, OptionsMakeTheTicketsThatTheySay) {
    for (const Json::Value& each : Module::ReadCases("host/what-if.json")) {
        Job job = JobOf(each[1]);
        const Job before = job;
        EXPECT_EQ(Apply(each[0], job), each[2].asString()) << each[0];
        if (each.size() > 2) continue;
        for (Json::ArrayIndex at = 0; at < each[1].size(); ++at) {
            const Ticket& ticket = *job.Calls[at].Source;
            const Json::Value& after = each[1][at]["after"];
            EXPECT_EQ(&ticket == before.Calls[at].Source.get(), after.isNull()) << each[0] << at;
            if (after.isNull()) continue;
            for (const TicketChange& change : CompareTickets(
                     Module::MakeTicket(Module::Children(after))->xml(), LoadTicket(ticket)->xml()))
                ADD_FAILURE() << each[0] << ticket.Name << ": " << LineOf(change);
        }
    }
}

TEST(WhatIf, CallsThatShareATicketStillDo) {
    Job job = JobOf(Module::ReadCases("host/what-if.json")[3][1]);
    job.Calls[2] = job.Calls[1];
    Apply(Module::ReadCases("host/what-if.json")[3][0], job);
    EXPECT_EQ(job.Calls[1].Source, job.Calls[2].Source);
}

TEST(WhatIf, UsersOfANameHaveATokenOfTheirOwn) {
    const auto mia = Platform::GetTokenOfUserName(WideText(u"mia"));
    EXPECT_EQ(mia, Platform::GetTokenOfUserName(WideText(u"mia")));
    EXPECT_NE(mia, Platform::GetTokenOfUserName(WideText(u"")));
    EXPECT_EQ(Module::Narrow(Platform::GetNameOfUser(mia)), "mia");
    for (const std::uint32_t id : {0u, 1u, 4294967295u}) {
        EXPECT_FALSE(Platform::IsOfUserName(Platform::GetTokenOfUser(id)));
        EXPECT_EQ(Platform::GetIdOfUser(Platform::GetTokenOfUser(id)), id);
    }
    EXPECT_TRUE(Platform::IsOfUserName(mia));
    EXPECT_EQ(DescribeValue(mia), "user \"mia\"");
}

TEST(WhatIf, ADocumentsNameHoldsForItsThreadUntilItEnds) {
    WideText name(u"as it was");
    const WideText own(u"own");
    Platform::SetDocumentNameOfThread(&own);
    EXPECT_TRUE(Platform::GetFirstDocumentName(WideText(u"any"), name) && name == own);
    Platform::SetDocumentNameOfThread(nullptr);
    name = WideText(u"as it was");
    EXPECT_FALSE(Platform::GetFirstDocumentName(WideText(u""), name));
    EXPECT_EQ(Module::Narrow(name), "as it was");
}

// Neither a queue nor an account of the name.
TEST_F(HostTool, ConvertsForANameAndADocumentThatNobodyKnows) {
    const std::string job = " '" SAMPLES_DIR "/tickets/job.xml'";
    const Outcome outcome =
        Run("convert --format json --user 'no such user' --job-name 'a \"b\"' --level job" + job);
    const Json::Value call = ReadJson("output", outcome.Output)["calls"][0];
    const std::string pjl = call["properties"]["PJL"].asString();
    for (const char* line : {"@PJL SET LOGINUSER = \"no such user\"\r\n", "ITEM = 3,no such user\r\n",
                             "@PJL SET JOBNAME = \"a \"b\"\"\r\n@PJL JOB NAME = \"a \"b\"\"\r\n"})
        EXPECT_NE(pjl.find(line), pjl.npos) << pjl;
    EXPECT_EQ(call["properties"]["UserSecurityToken"].asString(), "no such user");
    EXPECT_EQ(call["properties"]["PrinterName"].asString(), "");
    const Outcome refused = Run("convert --unset Nothing" + job);
    EXPECT_EQ(refused.Errors,
              "tickethost: --unset Nothing: " SAMPLES_DIR "/tickets/job.xml has no such setting\n");
    EXPECT_EQ(refused.Status, 2);
}

}  // namespace
}  // namespace TicketHost
