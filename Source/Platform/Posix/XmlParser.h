#pragma once

#include <memory>
#include <string_view>

#include "XmlTree.h"
#include "devicespecific/platform/TicketDocument.h"

namespace DeviceSpecificModule::Platform {

enum class Encoding { AsDeclared, Utf8 };  // Utf8: whatever is declared

// Parses a ticket by the rules of TicketDocument.h. Null, with `error` saying why where it is given, for
// bytes that are refused. Nodes that are to move to another document need that one's dictionary. Throws
// ResultError (ResultOutOfMemory) or std::bad_alloc without memory.
std::unique_ptr<Tree> Parse(std::string_view bytes, Encoding encoding, ParseError* error,
                            xmlDictPtr dictionary = nullptr);

}  // namespace DeviceSpecificModule::Platform
