#pragma once

#include <sstream>
#include <string_view>

namespace TicketHost {

// The standard output, piece by piece. What is written to the stream stays in memory until it is sent, so
// that a failure shows at once and not when the process ends.
class StandardOutput {
public:
    std::ostream& Stream() { return pending_; }
    // Throws OutputError when not all could be written, NobodyReads when the reader of a pipe has gone.
    void Send();

private:
    std::ostringstream pending_;
};

// How many characters a line of the standard output should have at most: what the terminal holds, or 80 where
// it doesn't tell. No limit where no terminal shows it.
std::size_t OutputWidth();

// Writes "tickethost: LINE" to the standard error.
void WriteErrorLine(std::string_view line);

}  // namespace TicketHost
