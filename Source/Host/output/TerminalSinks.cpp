#include "Host/output/TerminalSinks.h"

namespace TicketHost {

void ErrorLines::Take(const CallResult& result) {
    if (!result.Error) return;
    const std::string call = "call " + std::to_string(result.Number) + " (" + result.Made.Source->Name + ")";
    WriteErrorLine(name_ + ": " + call + ": " + result.Error->Type + ": " + result.Error->Message);
}

ProgressLine::~ProgressLine() { Erase(); }

void ProgressLine::Begin(const Job& job, const PipelineProperties&) {
    calls_ = job.Calls.size();
    next_ = std::chrono::steady_clock::now() + std::chrono::seconds(1);
}

void ProgressLine::Take(const CallResult& result) {
    if (result.Error) return Erase();  // a line about it follows
    const auto now = std::chrono::steady_clock::now();
    if (now < next_) return;
    next_ = now + std::chrono::milliseconds(100);
    out_ << "\rcall " << result.Number << " of " << calls_ << ", " << 100 * result.Number / calls_
         << "%\x1B[K" << std::flush;
    visible_ = true;
}

void ProgressLine::End(const PipelineProperties&) { Erase(); }

void ProgressLine::Erase() {
    if (visible_) out_ << "\r\x1B[K" << std::flush;
    visible_ = false;
}

}  // namespace TicketHost
