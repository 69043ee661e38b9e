#pragma once

#include <CLI/App.hpp>
#include <functional>

namespace TicketHost {

// What a verb does once the command line is read; gives the exit status.
using Action = std::function<int()>;

// Each adds one verb to the command line and sets the action when a user chooses that verb. A new verb is a
// function here and a row in the list of Main.cpp. Its texts are wrapped (HelpText.h); an option with a few
// words to choose from is an AddChoice (ChoiceOptions.h).
void AddConvertVerb(CLI::App& app, Action& action);
void AddExplainVerb(CLI::App& app, Action& action);
void AddDiffVerb(CLI::App& app, Action& action);
void AddCheckVerb(CLI::App& app, Action& action);
void AddCapabilitiesVerb(CLI::App& app, Action& action);
void AddTablesVerb(CLI::App& app, Action& action);
void AddPassphraseVerb(CLI::App& app, Action& action);

}  // namespace TicketHost
