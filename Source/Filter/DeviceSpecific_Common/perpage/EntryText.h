#pragma once

#include <json/value.h>

#include "conversion/TextOperations.h"

namespace DeviceSpecificModule {

// A value of the per-page settings as a text, by the thread's code page: numbers and booleans in their text
// form, JSON null, and so an absent key, as the empty text. It ends at its first U+0000. Throws the JSON
// library's error for an array or an object, ResultError without memory.
inline WideText TextOf(const Json::Value& value) { return WideFromNarrow(value.asString().c_str()); }

}  // namespace DeviceSpecificModule
