#include "Host/verbs/HelpText.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "Host/ground/Texts.h"

namespace TicketHost {
namespace {

constexpr std::size_t nameColumns = 26;

// The words of a text in lines of at most so many columns, or of one word that is longer.
std::vector<std::string> Wrap(const std::string& text, std::size_t columns) {
    std::vector<std::string> lines;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const bool fits =
            !lines.empty() && CountCharacters(lines.back()) + 1 + CountCharacters(word) <= columns;
        if (fits)
            lines.back() += " " + word;
        else
            lines.push_back(word);
    }
    return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

}  // namespace

HelpText::HelpText(std::size_t width) : width_(std::max<std::size_t>(width, nameColumns + 20)) {
    label("SUBCOMMAND", "VERB");
    label("Positionals", "Arguments");
}

std::string HelpText::make_description(const CLI::App* app) const {
    return Joined(Wrap(app->get_description(), width_)) + "\n";
}

// The names stand on the left; one that is too long has a line of its own.
std::string HelpText::Row(const std::string& name, const std::string& description) const {
    const std::string nextLine = "\n" + std::string(nameColumns, ' ');
    std::string rows = "  " + name;
    if (rows.size() + 2 > nameColumns)
        rows += nextLine;
    else
        rows.resize(nameColumns, ' ');
    std::string_view separator;
    for (const std::string& line : Wrap(description, width_ - nameColumns)) {
        rows.append(separator).append(line);
        separator = nextLine;
    }
    return rows + "\n";
}

std::string HelpText::make_option(const CLI::Option* option, bool isPositional) const {
    const std::string value = isPositional ? "" : make_option_opts(option);
    return Row(make_option_name(option, isPositional) + value, make_option_desc(option));
}

std::string HelpText::make_option_opts(const CLI::Option* option) const {
    return option->get_items_expected_max() == 0 ? "" : " " + option->get_type_name();
}

std::string HelpText::make_subcommand(const CLI::App* verb) const {
    return Row(verb->get_name(), verb->get_description());
}

std::string HelpText::make_footer(const CLI::App* app) const {
    std::string text, paragraph;
    const auto end = [&] {
        text += Joined(Wrap(paragraph, width_));
        paragraph.clear();
    };
    std::istringstream footer(app->get_footer());
    for (std::string line; std::getline(footer, line);) {
        if (!line.empty() && line[0] != ' ') {
            paragraph += line + " ";
            continue;
        }
        end();
        text += line + "\n";
    }
    end();
    return text;
}

}  // namespace TicketHost
