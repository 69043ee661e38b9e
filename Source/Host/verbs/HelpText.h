#pragma once

#include <CLI/Formatter.hpp>
#include <string>

namespace TicketHost {

// Help as CLI11 puts it together, in lines of at most `width` columns. Descriptions and footers are wrapped,
// so that whoever writes one needn't count; of a footer, lines that begin with a blank stay as they are, and
// an empty line parts paragraphs.
class HelpText final : public CLI::Formatter {
public:
    explicit HelpText(std::size_t width);

    std::string make_description(const CLI::App* app) const override;
    std::string make_option(const CLI::Option* option, bool isPositional) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
    std::string make_subcommand(const CLI::App* verb) const override;
    std::string make_footer(const CLI::App* app) const override;

private:
    std::string Row(const std::string& name, const std::string& description) const;

    std::size_t width_;
};

}  // namespace TicketHost
