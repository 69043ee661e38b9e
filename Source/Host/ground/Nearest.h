#pragma once

#include <span>
#include <string>
#include <string_view>

namespace TicketHost {

// The name that a misspelt word most likely stands for: the one with the fewest slips of the keyboard between
// the two, the first of several. A slip is a letter too many, too few, another one, or two in each other's
// place; the case of ASCII letters is none. Empty when no name is near, which allows one slip for each three
// letters. A word of any length costs little.
std::string_view FindNearest(std::string_view word, std::span<const std::string_view> names);

// The end of a message about an unknown word: "; did you mean NAME?", or nothing when no name is near.
std::string DidYouMean(std::string_view word, std::span<const std::string_view> names);

}  // namespace TicketHost
