#pragma once

#include <json/value.h>

#include <vector>

#include "perpage/PageList.h"

namespace DeviceSpecificModule {

// One exception in the order in which the exceptions are written.
struct PerPageOrderEntry {
    Json::ArrayIndex Position = 0;  // index of its element in the list of exceptions
    PageList Pages;
};

// Whether `a` belongs in front of `b`: a list of several pages in front of one that begins later, a single
// page in front of a list that reaches beyond it and behind one that ends at it or before it, an entry
// without pages nowhere. This is no strict weak order. 5 precedes 1-9, which precedes 2-3, which precedes 5:
// standard sorts are undefined on it.
bool PageListPrecedes(const PerPageOrderEntry& a, const PerPageOrderEntry& b);

// The order of the exceptions, each element of the list once: no entry precedes the one right in front of it.
// Up to 32 entries, each walks back over those before it in the list for as long as it precedes them, so
// entries that don't precede each other keep their order; with more entries, how cycles come out is not
// fixed.
//
// All page texts are read, and so all elements checked, ahead of anything else in them. The JSON library's
// errors pass through: for a list that is an object with members, for an element that is neither an object
// nor null, for a page text that is an array or an object. An element gains a JSON null for a page text that
// it lacks.
std::vector<PerPageOrderEntry> BuildPerPageOrder(Json::Value& details);

}  // namespace DeviceSpecificModule
