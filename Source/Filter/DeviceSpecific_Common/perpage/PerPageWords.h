#pragma once

#include <optional>
#include <string_view>

// The words of an exception for single pages, and what the device says for them.

namespace DeviceSpecificModule {

inline constexpr std::u16string_view InsertedSheet = u"InsertBlankSheet";
inline constexpr std::u16string_view NoTabPaper = u"DoNotUse";
inline constexpr std::u16string_view UsedTabPaper = u"Use";
inline constexpr std::u16string_view SameAsBody = u"SameAsBody";

// What the device says for a word of an entry and an option of the ticket. The first row that fits counts.
struct PerPageWord {
    std::optional<std::u16string_view> Keyword;  // none: any
    std::optional<std::u16string_view> Option;
    std::u16string_view Value;
};

inline constexpr std::nullopt_t AnyWord = std::nullopt;

inline constexpr PerPageWord PerPageBindingWords[] = {
    {AnyWord, u"psk:BindLeft", u"LEFT"},
    {AnyWord, u"psk:BindRight", u"RIGHT"},
    {AnyWord, u"psk:BindTop", u"TOP"},
};

inline constexpr PerPageWord PerPageDuplexWords[] = {
    {InsertedSheet, AnyWord, u"OFF"},   {u"OneSided", AnyWord, u"OFF"}, {u"TwoSidedLongEdge", AnyWord, u"ON"},
    {AnyWord, u"psk:OneSided", u"OFF"}, {AnyWord, AnyWord, u"ON"},
};

inline constexpr PerPageWord PerPageTrayWords[] = {
    {SameAsBody, u"psk:AutoSelect", u"AUTO"},
    {u"Tray1", AnyWord, u"TRAY1"},
    {u"Tray2", AnyWord, u"TRAY2"},
    {u"Tray3", AnyWord, u"TRAY3"},
    {u"Tray4", AnyWord, u"TRAY4"},
    {u"LCT", AnyWord, u"TRAY5"},
    {u"BypassTray", AnyWord, u"MANUALFEED"},
    {u"PITray1", AnyWord, u"PITRAY1"},
    {u"PITray2", AnyWord, u"PITRAY2"},
};

inline constexpr PerPageWord PerPageStapleWords[] = {
    {SameAsBody, u"psk:None", u"OFF"},
    {SameAsBody, u"psk:StapleTopLeft", u"LEFT1POINT"},
    {SameAsBody, u"psk:StapleTopRight", u"RIGHT1POINT"},
    {u"StapleTopLeft", AnyWord, u"LEFT1POINT"},
    {u"StapleTopRight", AnyWord, u"RIGHT1POINT"},
    {AnyWord, AnyWord, u"ANY2POINT"},
};

}  // namespace DeviceSpecificModule
