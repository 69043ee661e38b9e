#include "Host/report/HtmlReport.h"

#include <utility>

#include "Host/check/JobChecks.h"
#include "Host/ground/Texts.h"
#include "Host/report/CallSection.h"
#include "Host/report/ReportStyle.h"
#include "Host/report/ReportWords.h"
#include "Host/report/SheetSection.h"
#include "Host/report/WarningSection.h"
#include "devicespecific/DeviceSpecificModule.h"

namespace TicketHost {
namespace {

constexpr std::size_t mostFailures = 50;  // that the top of the page names

std::vector<std::string> TextsOf(const std::vector<DataLine>& lines) {
    std::vector<std::string> texts;
    texts.reserve(lines.size());
    for (const DataLine& line : lines) texts.push_back(line.Text);
    return texts;
}

std::string TablesOf(const JobSettings& settings) {
    if (!settings.Tables) return "no OptionTables record";
    std::string names;
    for (const std::string& name : *settings.Tables) names += (names.empty() ? "" : ", ") + name;
    return names.empty() ? "none" : names;
}

void WriteHead(HtmlWriter& html, const std::string& title) {
    const auto head = html.In("head");
    html.PutEmpty("meta", {{"charset", "utf-8"}});
    html.PutEmpty("meta", {{"http-equiv", "Content-Security-Policy"},
                           {"content", "default-src 'none'; style-src 'unsafe-inline'"}});
    html.PutEmpty("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
    html.Put("title", title);
    html.PutStyle(ReportStyle);
}

std::string FileNameOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == path.npos ? path : path.substr(slash + 1);
}

void WriteNavigation(HtmlWriter& html, bool explains) {
    const auto navigation = html.In("nav", {{"aria-label", "This page"}});
    const auto list = html.In("ul");
    constexpr struct {
        HtmlName Name;
        std::string_view Title;
        bool Explains = false;
    } places[] = {{"sheets", "Sheets"},
                  {"header", "Header"},
                  {"calls", "Calls"},
                  {"items", "Items", true},
                  {"without", "Without effect", true},
                  {"host", "From the host"}};
    for (const auto& [name, title, onlyExplaining] : places) {
        if (onlyExplaining && !explains) continue;
        const auto item = html.In("li");
        html.PutLink({name}, title);
    }
}

void WriteBag(HtmlWriter& html, std::string_view bag, const auto& properties) {
    for (const auto& [name, value] : properties) {
        const auto row = html.In("tr");
        html.Put("th", {{"scope", "row"}}, ToUtf8(name));
        const auto describe = [](const auto& each) { return DescribeValue(each); };
        html.Put("td", std::visit(describe, value));
        html.Put("td", bag);
    }
}

}  // namespace

void HtmlReport::Begin(const Job& job, const PipelineProperties& initial) {
    name_ = job.Name;
    settings_ = job.Settings;
    findings_ = CheckJob(job);
    calls_ = job.Calls.size();
    previous_ = initial;
}

void HtmlReport::Take(const CallResult& result) {
    ++made_;
    const CallTickets tickets = ReadCallTickets(result);
    CallReport outcome = ReportOf(result, tickets, previous_);
    if (result.Error && ++failed_ <= mostFailures)
        failures_.push_back({result.Number, result.Made.Source->Name, outcome.Error});
    if (result.Made.Level == DeviceSpecificModule::DocumentLevel)
        ++documents_;
    else
        TakePage(result, tickets, outcome);
    accounts_.Add(result, std::move(outcome));
    previous_ = result.Properties;
}

// The job's own page is of interest where there is no other.
void HtmlReport::TakePage(const CallResult& result, const CallTickets& tickets, const CallReport& outcome) {
    const bool isJob = result.Made.Level == DeviceSpecificModule::JobLevel;
    SheetPage page{isJob ? 0 : ++pages_, result.Number, {}};
    page.Facts = ReadPageFacts(TextsOf(outcome.Data), tickets.ItemsAfter, result.Properties);
    page.Facts.Failed = result.Error.has_value();
    if (!isJob && page.Facts.IsDoubtful()) ++doubtful_;
    if (!isJob) return sheets_.Add(std::move(page));
    if (FindSetting(outcome.Settings, "Booklet") == "On") {
        isBooklet_ = true;
        sheets_.KeepPagesApart();
    }
    job_ = std::move(page);
}

void HtmlReport::End(const PipelineProperties&) {
    if (pages_ == 0 && job_) sheets_.Add(*job_);
    sheets_.End();
    HtmlWriter html(out_);
    html.WriteDocumentType();
    const auto root = html.In("html", {{"xmlns", "http://www.w3.org/1999/xhtml"}, {"lang", "en"}});
    WriteHead(html, FileNameOf(name_) + (explanation_ != nullptr ? ", explained" : ", converted"));
    const auto body = html.In("body");
    {
        const auto link = html.InLink({"sheets"}, {{"class", "skip"}});
        html.Text("Skip to the sheets");
    }
    WriteTop(html);
    WriteMain(html);
}

void HtmlReport::WriteMain(HtmlWriter& html) const {
    const auto main = html.In("main");
    WriteSheetSection(html, sheets_, accounts_, isBooklet_);
    std::optional<ExplanationWriter> explanation;
    if (explanation_ != nullptr) explanation.emplace(html, *explanation_);
    if (explanation)
        explanation->WriteHeader();
    else
        WriteHeaderSection(html, accounts_);
    WriteWarningSection(html, findings_);
    WriteCallSection(html, accounts_, explanation ? &*explanation : nullptr);
    if (explanation) explanation->WriteItems();
    WriteSettings(html);
}

void HtmlReport::WriteTop(HtmlWriter& html) const {
    const auto header = html.In("header");
    html.Put("h1", FileNameOf(name_));
    if (FileNameOf(name_) != name_) html.Put("p", {{"class", "path"}}, name_);
    html.Put("p", {{"class", "summary"}},
             CountOf(calls_, "call") + ": " + CountOf(made_ - documents_ - pages_, "job") + ", " +
                 CountOf(documents_, "document") + ", " + CountOf(pages_, "page"));
    WriteVerdict(html);
    WriteNavigation(html, explanation_ != nullptr);
}

void HtmlReport::WriteVerdict(HtmlWriter& html) const {
    const auto verdict = html.In("div", {{"class", failed_ > 0 ? "verdict failed" : "verdict"}});
    if (failed_ > 0)
        WriteFailures(html);
    else
        html.Put("p", calls_ == 0 ? "The job has no calls." : "Every call returned.");
    if (made_ < calls_)
        html.Put("p", "Calls not made: " + std::to_string(calls_ - made_) + "; --keep-going makes them.");
    if (explanation_ != nullptr && explanation_->IsNarrowed)
        html.Put("p", "Only what was asked for is explained.");
    if (!findings_.empty()) {
        const auto line = html.In("p");
        html.PutLink({"warnings"}, CountsOf(findings_));
        html.Text(" in what the job asks for.");
    }
    if (doubtful_ > 0)
        html.Put("p", {{"class", "doubt"}},
                 CountOf(doubtful_, "page") + " without a data line for size, medium or bin.");
}

void HtmlReport::WriteFailures(HtmlWriter& html) const {
    html.Put("p", {{"class", "bad"}}, CountOf(failed_, "call") + " failed.");
    {
        const auto list = html.In("ul");
        for (const Failure& failure : failures_) {
            const auto item = html.In("li");
            accounts_.PutLink(html, failure.Call, "Call " + std::to_string(failure.Call));
            html.Text(", " + failure.Source + ": " + failure.Message);
        }
    }
    if (failed_ > failures_.size())
        html.Put("p", "And " + std::to_string(failed_ - failures_.size()) + " more.");
}

void HtmlReport::WriteSettings(HtmlWriter& html) const {
    const auto section = html.In("section", {{"aria-labelledby", "host"}});
    html.Put("h2", {{"id", "host"}, {"tabindex", "-1"}}, "From the host");
    html.Put("p", {{"class", "quiet"}}, "Option tables: " + TablesOf(settings_));
    if (!settings_.Snapshot)
        html.Put("p", {{"class", "doubt"}}, "No snapshot: each call starts from nothing.");
    if (settings_.Pipeline.empty() && settings_.Driver.empty() && settings_.Queue.empty()) return;
    const auto scroll = html.In("div", {{"class", "scroll"}});
    const auto table = html.In("table");
    {
        const auto head = html.In("thead");
        const auto row = html.In("tr");
        for (const char* title : {"Property", "Value before the first call", "Bag"})
            html.Put("th", {{"scope", "col"}}, title);
    }
    const auto rows = html.In("tbody");
    WriteBag(html, "pipeline", settings_.Pipeline);
    WriteBag(html, "driver", settings_.Driver);
    WriteBag(html, "queue", settings_.Queue);
}

}  // namespace TicketHost
