#pragma once

// Namespaces of a Print Ticket, as literals so that queries can be put together from them. The vendor's own,
// DEVMODE_NAMESPACE, is set by the build.

#define FRAMEWORK_NAMESPACE "http://schemas.microsoft.com/windows/2003/08/printing/printschemaframework"
#define KEYWORDS_NAMESPACE "http://schemas.microsoft.com/windows/2003/08/printing/printschemakeywords"

namespace DeviceSpecificModule {

// What "SelectionNamespaces" is set to: the prefixes that all queries use.
inline constexpr char16_t SelectionNamespaces[] =
    u"xmlns:psf="
    u"'" FRAMEWORK_NAMESPACE u"' xmlns:ns0000='" DEVMODE_NAMESPACE u"' xmlns:psk='" KEYWORDS_NAMESPACE u"'";

inline constexpr char16_t KeywordsNamespace[] = u"" KEYWORDS_NAMESPACE;
inline constexpr char16_t DevmodeNamespace[] = u"" DEVMODE_NAMESPACE;

}  // namespace DeviceSpecificModule
