#pragma once

#include <memory>
#include <string_view>

#include "Platform/TicketDocument.h"
#include "XmlTree.h"

namespace Platform {

enum class Encoding { AsDeclared, Utf8 };  // Utf8: whatever is declared

// Parses a ticket by the rules of TicketDocument.h. Null, with `error` saying why where it is given, for
// bytes that are refused. Throws ResultError (ResultOutOfMemory) or std::bad_alloc without memory.
std::shared_ptr<Tree> Parse(std::string_view bytes, Encoding encoding, ParseError* error);

// Parses UTF-8 whose nodes are to move to another document: their names go into its dictionary. Null, without
// saying why, for bytes that are refused.
std::unique_ptr<Tree> ParseForMoving(std::string_view bytes, xmlDictPtr dictionary);

}  // namespace Platform
