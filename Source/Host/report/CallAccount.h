#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Host/jobs/JobRunner.h"
#include "Host/report/HtmlWriter.h"
#include "Host/report/TicketRows.h"
#include "Host/tickets/TicketChanges.h"

namespace TicketHost {

// What a page tells of a call. Texts are made visible already, except for names of files.

struct ReportedProperty {
    std::string Name;
    std::optional<std::string> Before, After;  // absent: no such property then

    bool operator==(const ReportedProperty&) const = default;
};

// A user's setting in a job ticket.
struct ReportedSetting {
    std::string Series, Group, Name, Value;

    bool operator==(const ReportedSetting&) const = default;
};

// A line of "DATA". Page markers count as equal, since each has a number of its own.
struct DataLine {
    std::string Text;
    bool IsMarker = false;

    bool operator==(const DataLine& other) const {
        return IsMarker ? other.IsMarker : !other.IsMarker && Text == other.Text;
    }
};

// What came of a call, or alike of several in a row.
struct CallReport {
    std::int32_t Level = 0;
    std::string Error, ErrorCause;             // empty where the call returned
    std::vector<std::string> Pjl;              // where it changed
    std::vector<DataLine> Data;                // that came to it,
    bool IsDataReplaced = false;               // or that are all there is now
    std::vector<ReportedProperty> Properties;  // but for the two above
    std::vector<ReportedSetting> Settings;     // of a job ticket
    std::vector<std::string> SettingFaults;    // where a series is no JSON
    std::vector<TicketChange> TicketChanges;
    std::vector<TicketRow> Ticket;  // after the call

    bool operator==(const CallReport&) const = default;
};

// A call's ticket, read.
struct CallTickets {
    Platform::XmlElement Before, After;
    std::vector<TicketItem> ItemsAfter;
};
CallTickets ReadCallTickets(const CallResult& result);

// `before` are the properties as the call before left them.
CallReport ReportOf(const CallResult& result, const CallTickets& tickets, const PipelineProperties& before);

// Calls in a row of which a page would tell the same, but for their numbers and tickets' names.
struct CallAccount {
    std::size_t First = 0, Last = 0;  // count from 1
    std::string FirstSource, LastSource;
    CallReport What;
};

// The calls of a job, as a page tells of them.
class CallAccounts {
public:
    // More that differ from each other nobody reads.
    static constexpr std::size_t Most = 1000;

    void Add(const CallResult& result, CallReport outcome);

    const std::vector<CallAccount>& All() const { return all_; }
    std::size_t CallsLeftOut() const { return left_; }
    // Writes the text as a link to what is told of a call, plainly where that was left out.
    void PutLink(HtmlWriter& html, std::size_t call, std::string_view text) const;

private:
    std::vector<CallAccount> all_;
    std::size_t left_ = 0;
};

// The value of a setting where one is looked for in the series; empty where none has it.
std::string FindSetting(const std::vector<ReportedSetting>& settings, std::string_view name);

}  // namespace TicketHost
