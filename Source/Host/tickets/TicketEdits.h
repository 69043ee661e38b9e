#pragma once

#include <string>
#include <string_view>

#include "Host/tickets/Settings.h"
#include "devicespecific/platform/TicketDocument.h"

namespace TicketHost {

// Changes to a loaded ticket, for conversions of what a job would be otherwise. A path finds an element of
// the document as it is now, as TicketItem::Path does of the one that was read: who takes several away by the
// paths of one reading begins with the last. False, and nothing changed, when nothing stands there.

bool RemoveElement(Platform::IXMLDOMDocument2& ticket, const std::string& path);

// Replaces all that is in the element.
bool SetElementText(Platform::IXMLDOMDocument2& ticket, const std::string& path, std::string_view text);

// Makes the values what the series of the ticket says; `root` is the ticket as it was read. Where there are
// pieces, all goes into the first and the others become empty; else a count and a piece are added. False for
// a document that is no Print Ticket.
bool PutSettings(Platform::IXMLDOMDocument2& ticket, const Platform::XmlElement& root,
                 const SettingsSeries& series, const Json::Value& values);

// The prefix by which names of a namespace are read in the whole ticket; empty where its root binds none.
std::string PrefixOf(const Platform::XmlElement& root, std::string_view space);

// What the root binds a prefix to; empty where it doesn't.
std::string NamespaceOf(const Platform::XmlElement& root, std::string_view prefix);

// Puts a feature with one option behind all that stands in the ticket. It declares what the root doesn't
// bind. False for names that can't stand there.
bool AppendFeature(Platform::IXMLDOMDocument2& ticket, const Platform::XmlElement& root,
                   const Platform::XmlName& feature, const Platform::XmlName& option);

}  // namespace TicketHost
