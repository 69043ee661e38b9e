#include "Host/verbs/Arguments.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <vector>

#include "Host/ground/Errors.h"
#include "Host/ground/Nearest.h"

namespace TicketHost {
namespace {

// A negative number is none, and neither is "-", which stands for a stream.
bool IsOption(std::string_view word) {
    return word.size() > 1 && word[0] == '-' && (word[1] < '0' || word[1] > '9');
}

std::string NameOf(const std::string& word) { return word.substr(0, word.find('=')); }

std::string ListOf(const std::vector<std::string_view>& names) {
    std::string list;
    for (const std::string_view name : names) list.append(list.empty() ? "" : ", ").append(name);
    return list;
}

// The end of a message about an option that doesn't exist. How many dashes there are is no slip.
std::string DidYouMeanOption(const CLI::App& app, const std::string& name) {
    std::vector<std::string_view> names;
    for (const CLI::Option* option : app.get_options())
        names.insert(names.end(), option->get_lnames().begin(), option->get_lnames().end());
    const std::size_t dashes = std::min(name.find_first_not_of('-'), name.size());
    const std::string_view nearest = FindNearest(std::string_view(name).substr(dashes), names);
    return nearest.empty() ? "" : "; did you mean --" + std::string(nearest) + "?";
}

std::vector<const CLI::App*> VerbsOf(const CLI::App& tool) {
    return tool.get_subcommands([](const CLI::App*) { return true; });
}

const CLI::App& FindVerb(const CLI::App& tool, const std::string& name) {
    std::vector<std::string_view> names;
    for (const CLI::App* verb : VerbsOf(tool)) {
        if (verb->get_name() == name) return *verb;
        names.push_back(verb->get_name());
    }
    const std::string hint = DidYouMean(name, names);
    throw InputError(name, "unknown verb" + (hint.empty() ? "; the verbs are " + ListOf(names) : hint));
}

Request ReadToolOption(const CLI::App& tool, const std::string& word) {
    const std::string name = NameOf(word);
    const CLI::Option* option = tool.get_option_no_throw(name);
    if (option != nullptr && name != word) throw InputError(name, "takes no value");
    if (option != nullptr)
        return option == tool.get_help_ptr() ? Request{.Help = &tool} : Request{.Version = true};
    for (const CLI::App* verb : VerbsOf(tool))
        if (verb->get_option_no_throw(name) != nullptr)
            throw InputError(name,
                             "belongs behind the verb, as in tickethost " + verb->get_name() + " " + name);
    throw InputError(name, "unknown option" + DidYouMeanOption(tool, name) + " (tickethost help tells more)");
}

// The arguments behind a verb.
class VerbArguments {
public:
    VerbArguments(const CLI::App& verb, std::span<const std::string> words) : verb_(verb), words_(words) {
        bool areOperands = false;
        for (; at_ < words_.size(); ++at_) {
            if (areOperands || !IsOption(words_[at_]))
                ReadOperand();
            else if (words_[at_] == "--")
                areOperands = true;
            else
                ReadOption();
        }
    }

    bool AskForHelp() const { return askForHelp_; }
    const std::vector<std::string>& Operands() const { return operands_; }
    void RequireNoFault() const {
        if (fault_.empty()) return;
        throw InputError(fault_ + " (tickethost help " + verb_.get_name() + " tells more)");
    }

private:
    void Complain(const std::string& argument, const std::string& cause) {
        if (fault_.empty()) fault_ = argument + cause;
    }

    std::vector<const CLI::Option*> Positionals() const {
        return verb_.get_options([](const CLI::Option* option) { return option->get_positional(); });
    }

    void ReadOperand() {
        operands_.push_back(words_[at_]);
        std::size_t room = 0;
        for (const CLI::Option* each : Positionals()) {
            room += static_cast<std::size_t>(each->get_items_expected_max());
            if (room < operands_.size()) continue;
            if (words_[at_].empty()) Complain(each->get_name(), " is empty");
            return;
        }
        Complain(words_[at_], ": one argument too many");
    }

    void ReadOption() {
        const std::string& word = words_[at_];
        const std::string name = NameOf(word);
        const CLI::Option* option = verb_.get_option_no_throw(name);
        if (option == nullptr)
            return Complain(name, ": unknown option of " + verb_.get_name() + DidYouMeanOption(verb_, name));
        if (option == verb_.get_help_ptr()) askForHelp_ = true;
        RequireAlone(*option, name);
        if (option->get_items_expected_max() > 0)
            ReadValue(*option, name);
        else if (name != word)
            Complain(name, ": takes no value");
    }

    void RequireAlone(const CLI::Option& option, const std::string& name) {
        const bool isSingle = option.get_multi_option_policy() == CLI::MultiOptionPolicy::Throw &&
                              option.get_items_expected_max() == 1;
        if (++uses_[&option] > 1 && isSingle) Complain(name, ": given twice");
        for (const CLI::Option* other : option.get_excludes())
            if (uses_.contains(other)) Complain(name, ": not together with " + other->get_name());
    }

    // Whoever wants a value that looks like an option writes it behind "=".
    void ReadValue(const CLI::Option& option, const std::string& name) {
        const std::string wanted = ": " + option.get_type_name() + " must follow";
        if (name != words_[at_]) {
            if (words_[at_].size() == name.size() + 1) Complain(name, wanted);
            return;
        }
        if (at_ + 1 == words_.size()) return Complain(name, wanted);
        const std::string& value = words_[at_ + 1];
        const bool isOption = value.starts_with("--") ||
                              (IsOption(value) && verb_.get_option_no_throw(NameOf(value)) != nullptr);
        if (isOption) return Complain(name, wanted + ", not " + value);
        ++at_;
    }

    const CLI::App& verb_;
    std::span<const std::string> words_;
    std::size_t at_ = 0;
    std::map<const CLI::Option*, int> uses_;
    std::vector<std::string> operands_;
    bool askForHelp_ = false;
    std::string fault_;  // the first
};

}  // namespace

Request LookOver(const CLI::App& tool, std::span<const std::string> arguments) {
    if (arguments.empty() || arguments[0].empty())
        throw InputError("a verb is missing (tickethost help tells more)");
    if (IsOption(arguments[0])) return ReadToolOption(tool, arguments[0]);
    const CLI::App& verb = FindVerb(tool, arguments[0]);
    const VerbArguments found(verb, arguments.subspan(1));
    if (found.AskForHelp()) return {.Help = &verb};
    found.RequireNoFault();
    if (verb.get_name() != helpVerb) return {};
    return {.Help = found.Operands().empty() ? &tool : &FindVerb(tool, found.Operands()[0])};
}

}  // namespace TicketHost
