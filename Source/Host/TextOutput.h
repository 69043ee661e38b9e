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
// - The error, if the call threw.
// - The lines of "PJL", if it changed.
// - The lines that came to "DATA", each below the marker of its page.
// - The other pipeline properties that changed.
// - How the ticket changed.
//
// SplitCommandLines and DescribeValue say what the lines and the properties look like.
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
