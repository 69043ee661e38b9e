#pragma once

#include <string>
#include <string_view>

#include "XmlTree.h"

namespace DeviceSpecificModule::Platform {

// Appends XML, as UTF-8, to the children of a tree's root without writing and parsing the whole, where that
// gives the same document: nobody else holds the tree, and the root, as `name` (its prefix bound to `uri`),
// is written so, with nothing behind it. False, and nothing done, where it can't tell. XML that is refused
// changes nothing. Throws ResultError or std::bad_alloc without memory, with nothing changed.
bool AppendInPlace(Tree& tree, std::string_view name, std::string_view uri, const std::string& xml);

}  // namespace DeviceSpecificModule::Platform
