#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "Host/JobRunner.h"

namespace TicketHost {

enum class Tone { Heading, Label, Added, Removed, Faint, Error };

// Colours texts for a terminal, or leaves them as they are.
class Painter {
public:
    explicit Painter(bool colour) : colour_(colour) {}

    std::string Paint(Tone tone, std::string_view text) const {
        if (!colour_) return std::string(text);
        return "\x1B[" + std::string(CodeOf(tone)) + "m" + std::string(text) + "\x1B[0m";
    }

private:
    static constexpr std::string_view CodeOf(Tone tone) {
        constexpr std::string_view codes[] = {"1", "36", "32", "31", "2", "1;31"};
        return codes[static_cast<int>(tone)];
    }

    bool colour_;
};

// Writes a job's results for a person who wants to know why a job came out as it did. Of each call it says
// what the call did and nothing of what was there before:
//
//   the PJL lines, when "PJL" changed; control characters are visible, and the CR LF that ends a line is left
//   out the data lines that came to "DATA", below their page marker the other pipeline properties that
//   changed, a text in quotes, so that it differs from a number or a null how the ticket changed the error,
//   if the call threw
class TextOutput final : public ResultSink {
public:
    TextOutput(std::ostream& out, bool colour) : out_(out), painter_(colour) {}

    void Begin(const Job& job, const PipelineProperties& initial) override;
    void Take(const CallResult& result) override;
    void End(const PipelineProperties& final) override;

private:
    void WriteLabel(std::string_view label);
    void WriteError(const CallError& error);
    void WritePjl(const PipelineProperties& properties);
    void WriteData(const PipelineProperties& properties);
    void WriteChangedProperties(const PipelineProperties& properties);
    void WriteTicketChange(const CallResult& result);

    std::ostream& out_;
    Painter painter_;
    PipelineProperties previous_;  // after the call before
    std::size_t calls_ = 0;        // of the whole job
    std::size_t made_ = 0;
};

}  // namespace TicketHost
