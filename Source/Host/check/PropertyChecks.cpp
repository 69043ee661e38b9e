#include "Host/check/PropertyChecks.h"

#include <algorithm>

#include "Host/check/ValueChecks.h"
#include "Host/check/Vocabulary.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/KnownProperties.h"
#include "Host/jobs/OptionTableSet.h"
#include "devicespecific/platform/Identities.h"

namespace TicketHost {
namespace {

constexpr const char* bagNames[] = {"pipeline", "driver", "queue"};

class BagChecker {
public:
    BagChecker(const Job& job, Bag bag, Findings& findings) : job_(job), bag_(bag), findings_(findings) {}

    template <typename Value>
    void Check(std::u16string_view wideName, const Value& value) {
        name_ = ToUtf8(wideName);
        const KnownProperty* row = Find();
        if (row == nullptr) return CheckUnknown();
        const auto* text = std::get_if<Platform::WideText>(&value);
        const auto* number = std::get_if<std::int32_t>(&value);
        CheckType(*row, text != nullptr     ? PropertyType::Text
                        : number != nullptr ? PropertyType::Number
                                            : PropertyType::Other);
        const std::string said = text != nullptr     ? ToUtf8(*text)
                                 : number != nullptr ? std::to_string(*number)
                                                     : "";
        if (!said.empty()) CheckValue(said);
    }

private:
    std::string KnownName(const KnownProperty& row) const {
        const bool isMap = row.In == Bag::Driver;
        return std::string(row.Name) + (isMap ? ToUtf8(FindText(job_.Settings.Pipeline, u"Series")) : "");
    }
    const KnownProperty* Find() const;
    void CheckUnknown();
    void CheckValue(const std::string& value);
    void CheckType(const KnownProperty& row, PropertyType type);
    void Warn(const std::string& text, const std::string& hint) {
        findings_.push_back({FindingKind::Warning, job_.Name,
                             std::string(bagNames[static_cast<int>(bag_)]) + "." + name_, 0, text, hint});
    }

    const Job& job_;
    Bag bag_;
    Findings& findings_;
    std::string name_;
};

const KnownProperty* BagChecker::Find() const {
    for (const KnownProperty& row : KnownProperties())
        if (row.In == bag_ && KnownName(row) == name_) return &row;
    return nullptr;
}

void BagChecker::CheckUnknown() {
    std::vector<std::string> names;
    for (const KnownProperty& row : KnownProperties())
        if (row.In == bag_) names.push_back(KnownName(row));
    Warn("no such property is ever read", HintOf(name_, names));
}

void BagChecker::CheckType(const KnownProperty& row, PropertyType type) {
    if (type == row.Type || row.Type == PropertyType::Other) return;
    Warn(std::string("is read as a ") + (row.Type == PropertyType::Text ? "text" : "number") +
             " and counts as none",
         "");
}

void BagChecker::CheckValue(const std::string& value) {
    for (const PropertyRow& row : PropertyRows())
        if (row.Name == name_)
            if (const auto fault = FaultOf(row.Allowed, value))
                Warn(Quoted(value) + " " + fault->Text, fault->Hint);
}

// Which lines of the pages each table gives.
constexpr std::string_view tableLines[] = {"size", "medium", "tray", "one-sided mode", "two-sided mode"};
static_assert(std::size(tableLines) == OptionTableNames.size());

void CheckTables(const Job& job, Findings& findings) {
    const auto& tables = job.Settings.Tables;
    if (!tables) {
        findings.push_back(
            {FindingKind::Warning, job.Name, "tables", 0,
             "without tables no page gets a line but its number, and documents stay as they are",
             "leave \"tables\" away for all of them"});
        return;
    }
    for (std::size_t at = 0; at < OptionTableNames.size(); ++at)
        if (std::ranges::find(*tables, OptionTableNames[at]) == tables->end())
            findings.push_back({FindingKind::Warning, job.Name, "tables", 0,
                                "without " + std::string(OptionTableNames[at]) +
                                    " no page gets a line for its " + std::string(tableLines[at]),
                                ""});
}

// The name goes into the header between quotes, and without them.
void CheckUser(const Job& job, Findings& findings) {
    const auto found = job.Settings.Pipeline.find(u"UserSecurityToken");
    if (found == job.Settings.Pipeline.end()) return;
    const auto* token = std::get_if<Platform::TokenHandle>(&found->second);
    if (token == nullptr) return;
    const std::string name = ToUtf8(Platform::GetNameOfUser(*token));
    const std::string harm = HarmInHeader(name);
    if (!harm.empty())
        findings.push_back({FindingKind::Warning, job.Name, "pipeline.UserSecurityToken", 0,
                            "the user's name " + Quoted(name) + " " + harm, ""});
}

}  // namespace

void CheckProperties(const Job& job, Findings& findings) {
    BagChecker pipeline(job, Bag::Pipeline, findings), driver(job, Bag::Driver, findings),
        queue(job, Bag::Queue, findings);
    for (const auto& [name, value] : job.Settings.Pipeline) pipeline.Check(name, value);
    for (const auto& [name, value] : job.Settings.Driver) driver.Check(name, value);
    for (const auto& [name, value] : job.Settings.Queue) queue.Check(name, value);
    CheckUser(job, findings);
    CheckTables(job, findings);
}

}  // namespace TicketHost
