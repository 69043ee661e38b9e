#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <set>
#include <sstream>

#include "Cases.h"
#include "Host/explain/Explain.h"
#include "Host/explain/ExplainOutput.h"
#include "Host/ground/Json.h"
#include "HostTool.h"
#include "Support.h"

namespace TicketHost {
namespace {

namespace Module = DeviceSpecificModule;
using Names = std::set<std::string>;

// Where an item stands and how it is called there; of a setting its name alone.
std::string NameOf(const SourceItem& item) {
    const bool isSetting = item.Kind == SourceKind::Setting || item.Kind == SourceKind::PageEntry;
    return std::filesystem::path(item.File).stem().string() + " " + (isSetting ? item.Name : item.Label);
}

std::string NameOf(const Explanation& all, const ExplainedCall& call, const ExplainedLine& line) {
    constexpr const char* kinds[] = {"error", "PJL", "data", "property", "ticket"};
    EXPECT_FALSE(all.Calls.empty());
    return std::to_string(call.Number) + " " + kinds[static_cast<int>(line.Kind)] + ": " + line.Text;
}

Json::Value EffectsOf(const Explanation& all, const SourceItem& item) {
    Json::Value said(Json::arrayValue);
    for (const Effect& effect : item.Effects) {
        const ExplainedCall& call = all.Calls[effect.Call];
        const ExplainedLine none{effect.Kind, "nothing", {}, {}};
        said.append(NameOf(all, call, effect.Line == NoIndex ? none : call.Lines[effect.Line]) +
                    (effect.Instead ? "; else " + *effect.Instead : ""));
    }
    return said;
}

Json::Value NamesOf(const Explanation& all, const std::vector<std::size_t>& items) {
    Json::Value names(Json::arrayValue);
    for (const std::size_t item : items) names.append(NameOf(all.Items[item]));
    return names;
}

// What was found of a job in the form of the table: effects, sets and hidden items by name, and the names of
// items without any.
Json::Value TableOf(const Explanation& all) {
    Json::Value table;
    const std::vector<bool> withEffect = ItemsWithEffect(all);
    for (std::size_t at = 0; at < all.Items.size(); ++at) {
        const SourceItem& item = all.Items[at];
        const std::string name = NameOf(item);
        EXPECT_FALSE(table["effects"].isMember(name)) << name;
        if (!item.Effects.empty()) table["effects"][name] = EffectsOf(all, item);
        if (!item.HiddenBy.empty())
            table["hidden"][name] = NamesOf(all, item.HiddenBy);
        else if (!withEffect[at])
            table["without"].append(name);
    }
    for (const ExplainedCall& call : all.Calls)
        for (const ExplainedLine& line : call.Lines)
            for (const Cause& cause : line.Causes)
                if (cause.Items.size() > 1)
                    table["together"][NameOf(all, call, line)] = NamesOf(all, cause.Items);
    return table;
}

TEST(Explain, EachItemOfTheFullestSampleDoesWhatItShould) {
    const Json::Value expected = Module::ReadCases("host/explain-all-settings.json")[0];
    Json::Value without(Json::arrayValue);
    for (const char* file : {"all-settings", "document-report", "page-text"})
        for (const Json::Value& name : expected["without"][file])
            without.append(file + (" " + name.asString()));
    const Json::Value found = TableOf(Explain(ReadJob(SAMPLES_DIR "/all-settings.json"), {}));
    Names missing, surplus;
    for (const Json::Value& name : without) missing.insert(name.asString());
    EXPECT_EQ(missing.size(), without.size()) << "a name stands twice in the table";
    for (const Json::Value& name : found["without"])
        if (missing.erase(name.asString()) == 0) surplus.insert(name.asString());
    EXPECT_EQ(missing, Names()) << "have an effect, or aren't there";
    EXPECT_EQ(surplus, Names()) << "have no effect";
    for (const char* what : {"effects", "together", "hidden"}) {
        for (const std::string& name : found[what].getMemberNames())
            EXPECT_EQ(found[what][name], expected[what][name])
                << name << " in host/explain-all-settings.json";
        EXPECT_EQ(found[what].size(), expected[what].size()) << what << " in host/explain-all-settings.json";
    }
}

// A job of one call, whose lines follow from the items that are there and from the clock.
class MadeUpJob final : public Conversions {
public:
    using Items = std::function<bool(const std::string&)>;
    using Lines = std::function<std::string(const Items& has, const std::string& time)>;

    struct Clock {
        int Seconds, Runs;  // goes on by so many seconds in so many runs
    };

    MadeUpJob(const std::vector<SourceItem>& items, Lines lines, Clock clock)
        : items_(items), lines_(std::move(lines)), clock_(clock) {}

    Trial Run(const ItemSet& without, std::size_t, const Trial* known) const override {
        const Items has = [&](const std::string& name) {
            for (std::size_t at = 0; at < items_.size(); ++at)
                if (items_[at].Name == name) return IsThere(without, at);
            return false;
        };
        TrialOutcome outcome;
        outcome.ChangesPjl = true;
        outcome.Pjl = Module::Wide(lines_(has, TimeAt(runs_++ * clock_.Seconds / clock_.Runs)));
        if (known != nullptr && AreSame(known->at(0), outcome)) return {};
        return {{0, outcome}};
    }

private:
    bool IsThere(const ItemSet& without, std::size_t item) const {
        for (; item != NoIndex; item = items_[item].Parent)
            if (std::ranges::find(without, item) != without.end()) return false;
        return true;
    }

    // From ten seconds to the end of 31 days of 24 hours on, day by day and second by second.
    static std::string TimeAt(int passed) {
        const int second = 31 * 86400 - 10 + passed;
        char text[100];
        std::snprintf(text, sizeof text, "%03d %02d:%02d:%02d", second / 86400, second / 3600 % 24,
                      second / 60 % 60, second % 60);
        return text;
    }

    const std::vector<SourceItem>& items_;
    const Lines lines_;
    const Clock clock_;
    mutable std::atomic<int> runs_ = 0;
};

// "LINE: CAUSE | CAUSE", a line by what stands ahead of "=", and "ITEM < HIDER" of what is hidden.
std::string Describe(const Explanation& all) {
    std::string said;
    const auto join = [&](const std::vector<std::size_t>& items) {
        std::string text;
        for (const std::size_t item : items) text += (text.empty() ? "" : "+") + all.Items[item].Name;
        return text;
    };
    for (const ExplainedLine& line : all.Calls[0].Lines) {
        said += line.Text.substr(0, line.Text.find('=')) + ":";
        for (const Cause& cause : line.Causes)
            said += (&cause == line.Causes.data() ? " " : " | ") + join(cause.Items);
        said += "; ";
    }
    for (const SourceItem& item : all.Items)
        if (!item.HiddenBy.empty()) said += item.Name + " < " + join(item.HiddenBy) + "; ";
    return said;
}

struct MadeUpCase {
    std::vector<std::pair<std::string, std::size_t>> Items;  // names, and what they stand in
    MadeUpJob::Lines Lines;
    std::string Expected;
};

// However the clock ticks, and whichever of the two threads is ahead.
TEST(Explain, CausesAreFoundWheneverTheClockTicks) {
    using Has = const MadeUpJob::Items&;
    using Time = const std::string&;
    const auto some = [](bool is, const std::string& line) { return is ? line + "\r\n" : ""; };
    const std::vector<std::pair<std::string, std::size_t>> abc = {{"a", NoIndex},
                                                                  {"b", NoIndex},
                                                                  {"c", NoIndex}},
                                                           inner = {{"f", NoIndex}, {"o", 0}, {"p", 0}};
    const MadeUpCase cases[] = {
        {abc, [&](Has has, Time) { return some(has("a"), "A") + some(true, "own"); }, "A: a; own:; "},
        {abc, [&](Has has, Time) { return some(has("a") && has("b"), "A"); }, "A: a | b; "},
        {abc, [&](Has has, Time) { return some(has("a") || has("c"), "A"); }, "A: a+c; "},
        {abc, [&](Has has, Time) { return some(has("a") || has("b") || has("c"), "A"); }, "A: a+b+c; "},
        {abc, [&](Has has, Time) { return has("a")   ? "X=1"
                                          : has("b") ? "X=2"
                                                     : ""; }, "X: a; b < a; "},
        {inner, [&](Has has, Time) { return some(has("f"), "A"); }, "A: f; "},
        {inner, [&](Has has, Time) { return some(has("p"), "A"); }, "A: p; "},
        {inner, [&](Has has, Time) { return some(has("o") || has("p"), "A"); }, "A: o+p; "},
        {abc, [&](Has, Time time) { return "T=" + time; }, "T:; "},
        {abc, [&](Has, Time time) { return "T=" + time.substr(0, 9); }, "T:; "},  // to the minute
        {abc, [&](Has, Time time) { return "T=" + time.substr(0, 3); }, "T:; "},  // to the day
        {abc, [&](Has has, Time time) { return some(has("b"), "T=" + time) + "U=1"; }, "T: b; U:; "},
        {abc, [&](Has has, Time time) { return some(has("a") || has("b"), "T=" + time); }, "T: a+b; "},
        {abc, [&](Has has, Time time) { return "T=" + time + (has("c") ? " of mia" : " of"); }, "T: c; "},
        {abc, [&](Has has, Time time) { return some(has("a"), "S=" + time) + some(has("b"), "T=" + time); },
         "S: a; T: b; "},
    };
    for (const MadeUpJob::Clock clock : {MadeUpJob::Clock{0, 1}, {1, 5}, {1, 3}, {1, 2}, {1, 1}, {7, 1}}) {
        for (const MadeUpCase& each : cases) {
            Explanation all{"job", 1, {{1, 2, "ticket", 0, {}}}, {}};
            for (const auto& [name, outer] : each.Items) {
                all.Items.push_back({SourceKind::Feature, name, "", name, "ticket", 1, outer, 1, 0});
            }
            Explain(MadeUpJob(all.Items, each.Lines, clock), {}, {}, all);
            EXPECT_EQ(Describe(all), each.Expected)
                << clock.Seconds << " seconds in " << clock.Runs << " runs, case " << &each - cases;
        }
    }
}

// A ticket with an item a line, from line 2 on. Beside the forms of Children: "S Job JSON" is a series.
std::string TicketText(const Json::Value& forms) {
    std::string children;
    for (const Json::Value& form : forms) {
        Json::Value one(Json::arrayValue);
        std::string text = form.asString();
        if (text.starts_with("S ")) {
            const std::string level = text.substr(2, text.find(' ', 2) - 2);
            const std::string name = level == "Doc" ? "Document" : level;
            one.append("P ns0000:" + level + "XR" + level + "CustomCount 1");
            text = "P ns0000:" + name + "XR" + name + "CustomProperties000 " +
                   text.substr(text.find(' ', 2) + 1);
        }
        one.append(text);
        children += "\n" + Module::Children(one);
    }
    std::string ticket = Module::Narrow(Module::MakeTicket(children)->xml());
    return ticket.substr(ticket.find("<psf:"));
}

TEST_F(HostTool, ExplainsJobs) {
    for (const Json::Value& each : Module::ReadCases("host/explain.json")) {
        for (const std::string& name : each["tickets"].getMemberNames())
            Write(name, TicketText(each["tickets"][name]));
        Json::Value manifest;
        for (const Json::Value& call : each["calls"]) {
            Json::Value made;
            made["level"] = call[0];
            made["ticket"] = call[1];
            manifest["calls"].append(made);
        }
        Write("job.json", manifest.toStyledString());
        std::string output;
        for (const Json::Value& line : each["output"]) output += line.asString() + "\n";
        const Outcome outcome = Run("explain " + each["run"].asString());
        EXPECT_EQ(outcome.Output, output) << each["about"];
        EXPECT_EQ(outcome.Errors, each["errors"].asString()) << each["about"];
        EXPECT_EQ(outcome.Status, each["status"].asInt()) << each["about"];
    }
}

// What JSON says is what the text says, as strict JSON.
TEST_F(HostTool, ExplainsJobsAsJson) {
    Json::Value forms(Json::arrayValue);
    forms.append("S Job {\"features\": {\"TonerSave\": \"Off\", \"Layout\": \"Off\"}}");
    Write("job.xml", TicketText(forms));
    const Json::Value said = ReadJson("output", Run("explain --line ECONOMODE --format json job.xml").Output);
    EXPECT_TRUE(said["narrowed"].asBool() && said["callCount"] == 1 && said["calls"].size() == 1) << said;
    const Json::Value& line = said["calls"][0]["lines"][0];
    EXPECT_EQ(line["text"], "@PJL SET ECONOMODE = OFF");
    const Json::Value& item = said["items"][line["causes"][0]["items"][0].asUInt()];
    EXPECT_TRUE(item["name"] == "TonerSave" && item["kind"] == "setting" && item["value"] == "Off") << item;
    EXPECT_TRUE(item["line"] == 2 && item["file"] == "job.xml" && item["hasEffect"].asBool()) << item;
    EXPECT_TRUE(item["effects"][0]["call"] == 1 && item["effects"][0]["line"] == 0) << item;
    EXPECT_EQ(said["items"][item["in"].asUInt()]["name"], "job settings");
}

}  // namespace
}  // namespace TicketHost
