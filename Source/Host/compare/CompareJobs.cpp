#include "Host/compare/CompareJobs.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "Host/compare/CallRecord.h"
#include "Host/ground/Texts.h"
#include "Host/output/TerminalSinks.h"
#include "Platform/Clock.h"
#include "Platform/KeptAnswers.h"

namespace TicketHost {
namespace {

using TakeRecord = std::function<void(CallRecord)>;

class RecordingSink final : public ResultSink {
public:
    RecordingSink(ShownProperties& initial, TakeRecord take) : initial_(initial), take_(std::move(take)) {}

    void Begin(const Job&, const PipelineProperties& initial) override {
        initial_ = recorder_.Begin(initial);
    }
    void Take(const CallResult& result) override { take_(recorder_.Record(result)); }

private:
    CallRecorder recorder_;
    ShownProperties& initial_;
    TakeRecord take_;
};

void Run(const Job& job, ShownProperties& initial, const TakeRecord& take, std::ostream* progress) {
    SinkList sinks;
    sinks.Add(std::make_unique<RecordingSink>(initial, take));
    if (progress != nullptr) sinks.Add(std::make_unique<ProgressLine>(*progress));
    RunJob(job, true, sinks);
}

// Finds properties that differ since a pair of calls: those whose pair of values isn't what it was.
class PropertyStates {
public:
    // What the jobs begin with, or what two calls changed. The first step's differences are those of the
    // input.
    std::vector<PropertyDifference> Step(const ShownProperties& before, const ShownProperties& after) {
        for (const auto& [name, value] : before) now_[name].first = value;
        for (const auto& [name, value] : after) now_[name].second = value;
        std::vector<PropertyDifference> differences;
        for (const ShownProperties* touched : {&before, &after})
            for (const auto& [name, value] : *touched) Look(name, differences);
        return differences;
    }

private:
    using Pair = std::pair<std::optional<std::string>, std::optional<std::string>>;

    void Look(const std::string& name, std::vector<PropertyDifference>& differences) {
        const Pair& pair = now_[name];
        Pair& told = told_[name];
        if (pair != told && pair.first != pair.second)
            differences.push_back({Visible(name), pair.first, pair.second});
        told = pair;
    }

    std::map<std::string, Pair> now_, told_;
};

std::vector<LineEdit> DiffTexts(const Platform::WideText& before, const Platform::WideText& after) {
    if (before == after) return {};
    return DiffLines(SplitCommandLines(before.View()), SplitCommandLines(after.View()));
}

CallDifference Compare(const CallRecord& before, const CallRecord& after) {
    CallDifference difference;
    difference.Before = before.Name;
    difference.After = after.Name;
    if (before.Error != after.Error) {
        difference.ErrorBefore = before.Error;
        difference.ErrorAfter = after.Error;
    }
    if (before.WritesPjl || after.WritesPjl) difference.Pjl = DiffTexts(before.Pjl, after.Pjl);
    difference.Data = DiffTexts(before.Data, after.Data);
    if (before.ReplacesData != after.ReplacesData)
        difference.Properties.push_back({"DATA", before.ReplacesData ? "replaced" : "went on",
                                         after.ReplacesData ? "replaced" : "went on"});
    difference.Ticket = CompareTickets(*before.Ticket, *after.Ticket);
    return difference;
}

// One job has no call there.
CallDifference OneSided(const CallRecord* before, const CallRecord* after) {
    CallDifference difference;
    if (before != nullptr) difference.Before = before->Name;
    if (after != nullptr) difference.After = after->Name;
    return difference;
}

bool IsDifferent(const CallDifference& difference) {
    return difference.Before.has_value() != difference.After.has_value() ||
           (difference.Before && difference.Before->Level != difference.After->Level) ||
           difference.ErrorBefore != difference.ErrorAfter || !difference.Pjl.empty() ||
           !difference.Data.empty() || !difference.Properties.empty() || !difference.Ticket.empty();
}

// Compares the records of the first job with those of the second one as they come.
class Comparison {
public:
    // The properties that the jobs begin with, the second one's known by the time of its first call.
    Comparison(ShownProperties initialBefore, std::vector<CallRecord> before,
               const ShownProperties& initialAfter, const std::function<void(const CallDifference&)>& take)
        : initialBefore_(std::move(initialBefore)),
          before_(std::move(before)),
          initialAfter_(initialAfter),
          take_(take) {}

    void Next(const CallRecord& after) {
        if (made_ == 0) states_.Step(initialBefore_, initialAfter_);
        const CallRecord* before = made_ < before_.size() ? &before_[made_] : nullptr;
        CallDifference difference = before == nullptr ? OneSided(nullptr, &after) : Compare(*before, after);
        static const ShownProperties none;
        auto properties = states_.Step(before == nullptr ? none : before->Properties, after.Properties);
        std::ranges::move(properties, std::back_inserter(difference.Properties));
        Hand(std::move(difference));
    }

    std::size_t Finish() {
        while (made_ < before_.size()) Hand(OneSided(&before_[made_], nullptr));
        return count_;
    }

private:
    void Hand(CallDifference difference) {
        difference.Number = ++made_;
        if (!IsDifferent(difference)) return;
        ++count_;
        take_(difference);
    }

    ShownProperties initialBefore_;
    std::vector<CallRecord> before_;
    const ShownProperties& initialAfter_;
    const std::function<void(const CallDifference&)>& take_;
    PropertyStates states_;
    std::size_t made_ = 0, count_ = 0;
};

}  // namespace

std::size_t CompareJobs(Job before, Job after, const std::function<void(const CallDifference&)>& take,
                        std::ostream* progress) {
    const Platform::KeptAnswers kept;  // a queue's job may end in between
    before.Settings.Seconds = after.Settings.Seconds = Platform::GetSystemSeconds();
    ShownProperties initialBefore, initialAfter;
    std::vector<CallRecord> records;
    Run(
        before, initialBefore, [&](CallRecord record) { records.push_back(std::move(record)); }, progress);
    Comparison comparison(std::move(initialBefore), std::move(records), initialAfter, take);
    Run(
        after, initialAfter, [&](const CallRecord& record) { comparison.Next(record); }, progress);
    return comparison.Finish();
}

}  // namespace TicketHost
