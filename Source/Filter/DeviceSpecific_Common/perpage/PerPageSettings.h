#pragma once

#include <json/value.h>

#include <string_view>

#include "conversion/PTConverter.h"
#include "conversion/Stage.h"
#include "devicespecific/OptionRecord.h"

namespace DeviceSpecificModule {

// What the ticket selects for the whole job, as "psk:BindLeft"; null where it lacks the feature.
struct PerPageJobOptions {
    WideText Binding;
    WideText Duplex;
    WideText InputBin;
    WideText MediaType;
    WideText Staple;
};

// Throws ResultError without memory.
PerPageJobOptions ReadPerPageJobOptions(const TicketDocument& ticket);

// Appends one command for each exception in `details`, in the order of their pages (see BuildPerPageOrder).
//
// `details` is an array of objects; JSON null, a scalar and an empty object have no elements. See
// BuildPerPageOrder for what it gains. `list`, an object or JSON null, holds what all exceptions share.
// `tables` may be null. `format` is the command, taken to hold thirteen "%s": the entry's number in the
// order, from 1; print type; binding; duplex; tray; media; tabs; staple; "OFF"; "CONT"; pages; the number
// again; "OFF". A value that an entry lacks is left out, and those behind it move up one place; places that
// are left stay "%s", values that are left go nowhere.
//
// The JSON library's errors pass through (see BuildPerPageOrder and the writers). Without memory it throws
// ResultError, std::bad_alloc only for the order and from the JSON library. `pjl` then holds the commands of
// the entries before.
void AppendPerPageCommands(Json::Value& details, const Json::Value& list, const PerPageJobOptions& options,
                           const OptionTables* tables, std::u16string_view format, WideText& pjl);

// Writes the exceptions for single pages, "PerPagePageDetails" and "PerPageListDetails", unless
// "PerPageSetting" is "Off" or empty. Of a malformed JSON text it takes what was read ahead of the error.
Stage WritePerPageSettings;

}  // namespace DeviceSpecificModule
