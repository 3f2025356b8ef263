// How a command of the program is made: it declares its options on the parser and leaves behind what
// is to be done. Parsing and doing are apart, so that wrong usage never touches a home.
#pragma once

#include <functional>
#include <string>

#include "platform/Result.h"

namespace CLI {
class App;
}

namespace dayward {

class Environment;

/// The options that every command takes.
struct GlobalOptions {
    std::string home;
    std::string now;
    std::string zone;
    std::string locale;
    bool json = false;
};

/// What a command does. It prints to standard output only; its Error becomes one line on standard
/// error and exit status 1.
using CommandAction = std::function<Result<>(Environment&, const GlobalOptions&)>;

/// Filled by the command that the user chose.
struct ChosenCommand {
    CommandAction action;
    /// Events and categories are looked at: the first start's default events must be there.
    bool needsStore = true;
    /// The schedule and the widget's copy are refreshed after the action.
    bool changesEvents = false;
    int exitStatus = 0;  ///< set by an action that ends well but answers "no"
};

void addListCommand(CLI::App& app, ChosenCommand& chosen);
void addShowCommand(CLI::App& app, ChosenCommand& chosen);
void addAddCommand(CLI::App& app, ChosenCommand& chosen);
void addEditCommand(CLI::App& app, ChosenCommand& chosen);
void addRemoveCommand(CLI::App& app, ChosenCommand& chosen);
void addWatchCommand(CLI::App& app, ChosenCommand& chosen);
void addCategoriesCommand(CLI::App& app, ChosenCommand& chosen);
void addSettingsCommand(CLI::App& app, ChosenCommand& chosen);
void addRuleCommand(CLI::App& app, ChosenCommand& chosen);
void addIntervalCommand(CLI::App& app, ChosenCommand& chosen);
void addDocumentCommand(CLI::App& app, ChosenCommand& chosen);
void addNotificationsCommand(CLI::App& app, ChosenCommand& chosen);
void addDoctorCommand(CLI::App& app, ChosenCommand& chosen);
void addMissedCommand(CLI::App& app, ChosenCommand& chosen);
void addBadgeCommand(CLI::App& app, ChosenCommand& chosen);
void addWidgetCommand(CLI::App& app, ChosenCommand& chosen);

/// What `dayward` does without a command where it cannot open the application.
Result<> watchList(Environment& environment, const GlobalOptions& options);

}  // namespace dayward
