#pragma once

#include <json/value.h>

#include <cstdint>
#include <limits>
#include <string_view>

#include "devicespecific/OptionRecord.h"
#include "devicespecific/platform/WideText.h"

namespace DeviceSpecificModule {

// The writers of a per-page command. Each works out one value (FillMediaAndTabs two) of an exception and puts
// it in the place of the first "%s" that is left in the command; without a value it fills nothing, and the
// next one takes the place. Without a "%s" filling does nothing.
//
// `entry` is one exception, an object or JSON null, whose keys are read as texts (see TextOf); an absent one
// is empty. `option` is what the ticket selects for the whole job, as "psk:BindLeft", and empty where the
// ticket lacks the feature. Words compare exactly. `tables` may be null, as its tables may: no row then
// matches.
//
// The errors of the JSON library pass through, for an entry's value that is an array or an object above all.
// Without memory they throw ResultError, and std::bad_alloc only from the JSON library. The command then
// holds what was filled up to there.

// "BLANK" for an inserted sheet without a tab that has text on it, otherwise "PRINT".
void FillPrintType(WideText& command, const Json::Value& entry);

// "LEFT", "RIGHT" or "TOP"; nothing for other options.
void FillBinding(WideText& command, std::u16string_view option);

// "ON" or "OFF"; "ON" also for an entry without a mode of its own in a job without the feature.
void FillDuplex(WideText& command, const Json::Value& entry, std::u16string_view option);

// The device's name of the tray. That of the job's tray comes from the page input bins and may be empty;
// nothing for a tray that nobody knows.
void FillPaperTray(WideText& command, const Json::Value& entry, std::u16string_view option,
                   const OptionTables* tables);

// The media text, then the tabs. Without tab paper: the device's name of the job's media type, nothing if the
// page media types don't have it, and "NONE". With it: the text for tab paper, and "TAB" with the list's
// "NumberOfTabs" behind it, of which a part up to a colon is left out. `list` is read for tab paper alone and
// must be an object or JSON null then.
void FillMediaAndTabs(WideText& command, const Json::Value& entry, std::u16string_view option,
                      const OptionTables* tables, const Json::Value& list);

// "OFF", "LEFT1POINT", "RIGHT1POINT" or, for all else, "ANY2POINT".
void FillStaple(WideText& command, const Json::Value& entry, std::u16string_view option);

// The tab sheets that a job has gained up to an entry.
struct InsertedTabs {
    std::uint32_t InsertedTabCount = 0;
    // The lowest of their page numbers (InsertedTabPages), as they were sent. A page moves when it is not
    // below any one of them, so the others don't matter.
    std::int32_t LowestOfInsertedTabPages = std::numeric_limits<std::int32_t>::max();
};

// The entry's page text. An entry that inserts a tab sheet counts in `tabs`, itself included, and is sent as
// its page plus that count. Behind one, the pages of other entries from the lowest tab on move by the count
// and all their numbers are written anew; before any, the text goes out as it is. Numbers are read by
// ReadDecimal, so they have no sign where the text holds a hyphen; sums wrap around at 32 bits. `tabs` is
// counted up even if no place is left.
void FillPageRange(WideText& command, const Json::Value& entry, InsertedTabs& tabs);

// The separators of a page text with a "%s" in front of each, and one behind the last if something follows
// it: "1-3,7" gives "%s-%s,%s". Separators in a row each get a "%s", so "1,,3" has one more of them than it
// has numbers.
WideText BuildRangeTemplate(std::u16string_view pages);

}  // namespace DeviceSpecificModule
