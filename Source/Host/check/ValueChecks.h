#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Host/check/Vocabulary.h"

namespace TicketHost {

// What is the matter with a value, as the end of a sentence about it, and what to do.
struct ValueFault {
    std::string Text, Hint;
};

// Nothing for a value that is what it must be.
std::optional<ValueFault> FaultOf(const Values& allowed, std::string_view value);

// Of the words the one that is meant, or all if they are few: "nearest: Bl4in1", "known: Off, On". Prefixes
// don't matter for what is near. Empty where nothing can be said.
std::string HintOf(std::string_view word, const WordList& words);
std::string HintOf(std::string_view word, std::span<const std::string_view> words);

// What stands behind the first ":", or all of it.
std::string_view WithoutPrefix(std::string_view name);

// Without white space at its ends.
std::string_view Trimmed(std::string_view text);

// A text in quotes, cut to what a line can hold.
std::string Quoted(std::string_view text);

// Whether a command that holds this text may become another one: it has control characters.
bool HasControls(std::string_view text);

// What a name does that goes into the header as it is, as the end of a sentence about it; empty for one that
// does no harm there.
std::string HarmInHeader(std::string_view name);

}  // namespace TicketHost
