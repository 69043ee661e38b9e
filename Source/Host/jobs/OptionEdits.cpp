#include <algorithm>
#include <set>
#include <vector>

#include "Host/ground/Errors.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/EditedTickets.h"
#include "Host/jobs/JobEdits.h"
#include "Host/jobs/OptionTableSet.h"
#include "Host/tickets/PrintTicket.h"
#include "Host/tickets/TicketEdits.h"
#include "devicespecific/DeviceSpecificModule.h"
#include "tables/JobKeywords.h"
#include "tables/OutputKeywords.h"

namespace TicketHost {
namespace {

using DeviceSpecificModule::KeywordCommandTable;
using Platform::XmlName;

// The options that stages know, which stand there with a prefix. The host's own copies know the rest.
constexpr struct {
    std::string_view Feature;
    KeywordCommandTable Table;
} stageOptions[] = {
    {"PageResolution", DeviceSpecificModule::PageResolutionCommandTable},
    {"DocumentCollate", DeviceSpecificModule::DocumentCollateCommandTable},
    {"PageOutputBin", DeviceSpecificModule::PageOutputBinCommandTable},
    {"PageOutputColor", DeviceSpecificModule::PageOutputColorCommandTable},
    {"PageOrientation", DeviceSpecificModule::PageOrientationCommandTable},
    {"DocumentBinding", DeviceSpecificModule::DocumentBindingCommandTable},
    {"JobNUpAllDocumentsContiguously", DeviceSpecificModule::JobNUpAllDocumentsContiguouslyCommandTable},
};

std::u16string KeywordOf(const OptionRecord& row) {
    const std::u16string_view prefix = row.NamespacePrefix.View(), keyword = row.Keyword.View();
    return prefix == u"psk" || prefix == u"ns0000" ? std::u16string(prefix).append(u":").append(keyword)
                                                   : std::u16string(keyword);
}

std::set<std::u16string> KnownOptions(std::string_view feature) {
    std::set<std::u16string> known;
    for (const auto& [name, table] : stageOptions)
        if (name == feature)
            for (const auto& row : table) known.emplace(row.Keyword);
    const bool isDuplex = feature == "JobDuplexAllDocumentsContiguously";
    for (const std::string_view table : OptionTableNames)
        if (table == feature || (isDuplex && table.ends_with("plexPageMode")))
            for (const OptionRecord& row : CopyOptionTable(table)) known.insert(KeywordOf(row));
    return known;
}

// Of an option without a prefix.
std::string_view NamespaceOfOption(std::string_view feature, const std::string& option,
                                   const TicketItem* before) {
    const std::set<std::u16string> known = KnownOptions(feature);
    if (known.contains(u"psk:" + UnitsOf(option))) return KeywordsNamespace;
    if (known.contains(u"ns0000:" + UnitsOf(option))) return DevmodeNamespace;
    return before != nullptr && before->Space == DevmodeNamespace ? DevmodeNamespace : KeywordsNamespace;
}

bool IsName(std::string_view text) {
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
               c == '-' || c == '.' || (c & 0x80) != 0;
    };
    return !text.empty() && std::ranges::all_of(text, isPlain);
}

// A name without its namespace.
XmlName Split(const std::string& name) {
    const std::size_t colon = name.find(':');
    const bool hasPrefix = colon != name.npos;
    XmlName split{hasPrefix ? name.substr(0, colon) : "", hasPrefix ? name.substr(colon + 1) : name, ""};
    if (!IsName(split.Local) || (hasPrefix && !IsName(split.Prefix)))
        throw InputError("\"" + name + "\" is no name");
    return split;
}

XmlName WithBoundPrefix(XmlName name, const OpenTicket& ticket) {
    name.Namespace = NamespaceOf(ticket.Root, name.Prefix);
    if (name.Namespace.empty()) throw InputError(ticket.Name + " binds no prefix \"" + name.Prefix + "\"");
    return name;
}

// A name of that namespace by the ticket's prefix for it, else by the usual one.
XmlName WithPrefixFor(XmlName name, std::string_view space, const OpenTicket& ticket) {
    name.Namespace = space;
    name.Prefix = PrefixOf(ticket.Root, space);
    if (name.Prefix.empty()) name.Prefix = space == DevmodeNamespace ? "ns0000" : "psk";
    return name;
}

const TicketItem* FindFeature(const std::vector<TicketItem>& items, const XmlName& name,
                              const OpenTicket& ticket) {
    if (!name.Prefix.empty()) {
        const std::string space = NamespaceOf(ticket.Root, name.Prefix);
        return space.empty() ? nullptr : FindItem(items, ItemKind::Feature, space, name.Local);
    }
    const TicketItem* feature = FindItem(items, ItemKind::Feature, KeywordsNamespace, name.Local);
    return feature != nullptr ? feature : FindItem(items, ItemKind::Feature, DevmodeNamespace, name.Local);
}

std::string PrefixIn(const TicketItem& item) { return item.Name.substr(0, item.Name.find(':')); }

// The option as it stands in the ticket. A prefix that is in use there may be bound elsewhere than in the
// root.
XmlName OptionFor(const XmlName& feature, const XmlName& option, const TicketItem* before,
                  const OpenTicket& ticket) {
    if (!option.Prefix.empty()) return WithBoundPrefix(option, ticket);
    const std::string_view space = NamespaceOfOption(feature.Local, option.Local, before);
    XmlName name = WithPrefixFor(option, space, ticket);
    if (before != nullptr && before->Space == space) name.Prefix = PrefixIn(*before);
    return name;
}

// Gives the option of before another name and takes away what stands in it. False, and nothing done, where
// there is none or its name needs a declaration.
bool Rename(const OpenTicket& ticket, const TicketItem* before, const XmlName& option) {
    if (before == nullptr) return false;
    const bool isBound =
        before->Space == option.Namespace || NamespaceOf(ticket.Root, option.Prefix) == option.Namespace;
    return isBound &&
           SetElementText(*ticket.Document, before->Path + "/@name", option.Prefix + ":" + option.Local) &&
           SetElementText(*ticket.Document, before->Path, "");
}

void Append(const OpenTicket& ticket, const TicketItem* there, const XmlName& feature,
            const XmlName& option) {
    const auto isOption = [](const TicketItem& item) { return item.Kind == ItemKind::Option; };
    if (there != nullptr && !std::ranges::all_of(there->Items, isOption))
        throw InputError(ticket.Name, "the feature holds more than options, and none to change");
    if (there != nullptr) RemoveElement(*ticket.Document, there->Path);
    if (!AppendFeature(*ticket.Document, ticket.Root, feature, option))
        throw InputError(ticket.Name + " takes no feature of this name");
}

bool Choose(const OpenTicket& ticket, const XmlName& feature, const XmlName& wanted) {
    const std::vector<TicketItem> items = ItemsOf(ticket.Root);
    const TicketItem* there = FindFeature(items, feature, ticket);
    const TicketItem* before = there == nullptr ? nullptr : ChosenOption(*there);
    const XmlName option = OptionFor(feature, wanted, before, ticket);
    if (before != nullptr && before->Space == option.Namespace && before->Local == option.Local) return false;
    if (Rename(ticket, before, option)) return true;
    const XmlName name = there != nullptr         ? XmlName{PrefixIn(*there), there->Local, there->Space}
                         : feature.Prefix.empty() ? WithPrefixFor(feature, KeywordsNamespace, ticket)
                                                  : WithBoundPrefix(feature, ticket);
    Append(ticket, there, name, option);
    return true;
}

// The tickets that have the feature; else those of job level; else the first.
std::set<const Ticket*> TicketsFor(const XmlName& feature, const Job& job) {
    std::set<const Ticket*> all, chosen, ofJob;
    for (const Call& call : job.Calls) {
        const Ticket* ticket = call.Source.get();
        if (call.Level == DeviceSpecificModule::JobLevel) ofJob.insert(ticket);
        if (!all.insert(ticket).second) continue;
        const OpenTicket open = Open(*ticket);
        if (FindFeature(ItemsOf(open.Root), feature, open) != nullptr) chosen.insert(ticket);
    }
    if (chosen.empty()) chosen = ofJob;
    if (chosen.empty() && !job.Calls.empty()) chosen.insert(job.Calls.front().Source.get());
    return chosen;
}

}  // namespace

void EditOption(const OptionEdit& edit, Job& job) {
    try {
        const XmlName feature = Split(edit.Feature), option = Split(edit.Option);
        const std::set<const Ticket*> chosen = TicketsFor(feature, job);
        if (chosen.empty()) throw InputError(job.Name + " has no ticket");
        const auto isMeant = [&chosen](const Call& call) { return chosen.contains(call.Source.get()); };
        EditTickets(job, isMeant, [&](const OpenTicket& open) { return Choose(open, feature, option); });
    } catch (const InputError& error) {
        throw InputError(edit.Said, error.what());
    }
}

}  // namespace TicketHost
