#pragma once

#include <string>
#include <string_view>

namespace TicketHost {

enum class Tone { Heading, Label, Added, Removed, Faint, Error, Plain };

// Colours texts for a terminal, or leaves them as they are.
class Painter {
public:
    explicit Painter(bool colour) : colour_(colour) {}

    std::string Paint(Tone tone, std::string_view text) const {
        if (!colour_ || tone == Tone::Plain) return std::string(text);
        return "\x1B[" + std::string(CodeOf(tone)) + "m" + std::string(text) + "\x1B[0m";
    }

private:
    static constexpr std::string_view CodeOf(Tone tone) {
        constexpr std::string_view codes[] = {"1", "36", "32", "31", "2", "1;31"};
        return codes[static_cast<int>(tone)];
    }

    bool colour_;
};

}  // namespace TicketHost
