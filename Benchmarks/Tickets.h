#pragma once

#include <string>
#include <string_view>

// The tickets that are measured, as UTF-8.

namespace Benchmarks {

// Features of tickets of about 1, 11 and 100 KB.
inline constexpr int SmallTicket = 5;
inline constexpr int UsualTicket = 40;
inline constexpr int LargeTicket = 328;

// A ticket of so many features: the five that a page call asks for and up to eight that a job call does, at
// equal distances among others that nobody asks for; then `parameters` and the parameter that each call takes
// out.
std::string Ticket(int features, std::string_view parameters = "");

// Parameters with 160 settings in pieces, three series of them: those of the sample that has all that the
// stages know, and 34 that nothing asks for. `outputSize` is a media size, or "UsePaperSize" for the ticket's
// own.
std::string Settings(std::string_view outputSize);

// Parameters with so many exceptions for single pages and the output size "ISOA5" behind them, as one series
// in pieces of so many units. A series has at most 1,000 pieces.
std::string Exceptions(int count, std::size_t pieceLength);

}  // namespace Benchmarks
