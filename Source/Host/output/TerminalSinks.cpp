#include "Host/output/TerminalSinks.h"

namespace TicketHost {

void ErrorLines::Take(const CallResult& result) {
    if (!result.Error) return;
    const std::string call = "call " + std::to_string(result.Number) + " (" + result.Made.Source->Name + ")";
    WriteErrorLine(name_ + ": " + call + ": " + result.Error->Type + ": " + result.Error->Message);
}

StatusLine::~StatusLine() { Erase(); }

void StatusLine::Show(const std::string& text) {
    const auto now = std::chrono::steady_clock::now();
    if (now < next_) return;
    next_ = now + std::chrono::milliseconds(100);
    out_ << "\r" << text << "\x1B[K" << std::flush;
    visible_ = true;
}

void StatusLine::Erase() {
    if (visible_) out_ << "\r\x1B[K" << std::flush;
    visible_ = false;
}

void ProgressLine::Begin(const Job& job, const PipelineProperties&) { calls_ = job.Calls.size(); }

void ProgressLine::Take(const CallResult& result) {
    if (result.Error) return line_.Erase();  // a line about it follows
    line_.Show("call " + std::to_string(result.Number) + " of " + std::to_string(calls_) + ", " +
               std::to_string(100 * result.Number / calls_) + "%");
}

void ProgressLine::End(const PipelineProperties&) { line_.Erase(); }

}  // namespace TicketHost
