#include "Host/ground/StandardStreams.h"

#include <cerrno>
#include <cstdio>
#include <iostream>
#include <limits>
#include <system_error>

#include "Host/ground/Errors.h"
#include "Host/ground/Texts.h"
#include "Platform/Process.h"

namespace TicketHost {

void StandardOutput::Send() {
    const std::string_view bytes = pending_.view();
    const bool arrived =
        std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() && std::fflush(stdout) == 0;
    const std::error_code cause(arrived ? 0 : errno, std::generic_category());
    pending_.str("");
    if (cause == std::errc::broken_pipe) throw NobodyReads();
    if (!arrived) throw OutputError("standard output: " + cause.message());
}

std::size_t OutputWidth() {
    using Platform::StandardStream;
    if (!Platform::IsTerminal(StandardStream::Output)) return std::numeric_limits<std::size_t>::max();
    const std::size_t width = Platform::GetTerminalWidth(StandardStream::Output);
    return width == 0 ? 80 : width;
}

void WriteErrorLine(std::string_view line) { std::cerr << "tickethost: " << Visible(line) << "\n"; }

}  // namespace TicketHost
