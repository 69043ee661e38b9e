#pragma once

#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Host/tickets/PrintTicket.h"

namespace TicketHost {

// All names that the module reads, as rows: of a ticket, of the settings in it, of the property bags. A name
// that isn't here counts for nothing. Words come from the module's own tables.

// What a value must be.
enum class Form {
    Any,
    Words,      // one of the words; others count for nothing
    MediaSize,  // one of the words, whatever its prefix
    Switch,     // one of the words; others count as "On"
    OnlyOn,     // one of the words; others count as "Off"
    Number,     // an integer
    PageList,   // pages, as "1,3-5"
};

using WordList = std::vector<std::string>;
using WordsFunction = const WordList& (*)();  // lists are made at their first use

struct Values {
    Form Kind = Form::Any;
    WordsFunction Words = nullptr;
    std::int64_t Lowest = std::numeric_limits<std::int32_t>::min();
    std::int64_t Highest = std::numeric_limits<std::int32_t>::max();
};

// The levels of conversion, as a set.
enum Level : unsigned { NoLevel = 0, AtJob = 1, AtDocument = 2, AtPage = 4, AtAll = 7 };

// A feature or a parameter that is a child of the ticket's root.
struct ItemRow {
    ItemKind Kind;
    std::string_view Prefix;  // "psk" or "ns0000": the namespace, and the literal prefix where that counts
    std::string_view Name;
    unsigned ReadAt;             // the levels at which it is looked for by its namespace
    unsigned FoundAt;            // the levels at which it is looked for by its literal prefix
    std::string_view Otherwise;  // what doesn't happen there with another prefix
    Values Allowed = {};

    std::string FullName() const { return std::string(Prefix) + ":" + std::string(Name); }
};
std::span<const ItemRow> ItemRows();

// A member of "features" or "paraminits".
struct SettingRow {
    std::string_view Name;
    Values Allowed = {};
    bool FillsCommand = false;  // its text goes into a command as it stands
};
std::span<const SettingRow> SettingRows();
const SettingRow* FindSetting(std::string_view name);

// A key of an element of the setting "PerPagePageDetails" or, not InEntry, of "PerPageListDetails".
struct PerPageRow {
    std::string_view Name;
    bool InEntry;
    std::string_view Otherwise;  // what any other value than the words does
    Values Allowed = {};
};
std::span<const PerPageRow> PerPageRows();

// What the values of properties must be; those that aren't here may be anything.
struct PropertyRow {
    std::string_view Name;  // KnownProperties.h
    Values Allowed;
};
std::span<const PropertyRow> PropertyRows();

// Names that the published Print Schema has, whether or not the module reads them. Those of parameters are
// complete only with names that begin with that of a feature, such as "PageScalingOffsetWidth".
std::span<const std::string_view> PublishedFeatures();
std::span<const std::string_view> PublishedParameters();
// The namespaces of later editions of its keywords.
std::span<const std::string_view> LaterKeywordsNamespaces();

}  // namespace TicketHost
