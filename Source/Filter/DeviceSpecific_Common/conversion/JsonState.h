#pragma once

#include <json/value.h>

#include <string_view>

#include "conversion/PTConverter.h"

namespace DeviceSpecificModule {

// The errors of the JSON library pass through all of these as they are, those for lack of memory, too: it
// throws std::bad_alloc or, where there is none for a text of its own, Json::RuntimeError. All other lack of
// memory is ResultError.

// A copy that may be changed and put in the document's place; of a null pointer a JSON null.
std::shared_ptr<Json::Value> CopyDocument(const SharedJson& document);

// Parses a text into `value`, comments allowed. False for a null text, with the value untouched, and for a
// malformed one, with the value holding what was read ahead of the error.
bool ParseJsonText(const WideText& text, Json::Value& value);

// Sets each member of the source's "features" and "paraminits" in those of the target; other keys are
// dropped. Throws where the source, or one of the two in it, is neither an object nor null.
void MergeCustomProperties(Json::Value& target, const Json::Value& source);

// The user's setting of this name: its text in "features", else its text or number in "paraminits"; a number
// is cut to an integer and written in decimal. Empty when it is absent or a JSON null. A text ends at its
// first U+0000, and is taken by the thread's code page. Throws for values of other types and integers beyond
// 32 bits.
WideText LookupCustomProperty(const SharedJson& properties, std::u16string_view key);

// Fills `map` from the driver property "CommandMap_" + series. Without that property, or without a bag, the
// map stays as it was; of a malformed text it takes what was read ahead of the error.
void LoadCommandMap(const DriverBag& bag, SharedJson& map, const WideText& series);

}  // namespace DeviceSpecificModule
