#include "shell/Scenes.h"

#include <stdexcept>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/Info/SettingsViewController.h"
#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

namespace {

TableScreen& top(Shell& shell) { return dynamic_cast<TableScreen&>(*shell.navigation().topScreen()); }

void tap(Shell& shell, const std::string& row) {
    const auto path = top(shell).pathOfRow(row);
    if (!path) throw std::runtime_error("no row " + row + " on the screen " + top(shell).title());
    top(shell).select(*path);
}

/// A screen that is reached from the editor or the settings by taps on rows.
template <class Root, class... Arguments>
std::function<void(Shell&)> path(std::vector<std::string> rows, Arguments... arguments) {
    return [rows = std::move(rows), arguments...](Shell& shell) {
        shell.navigation().present(std::make_shared<Root>(arguments...));
        for (const std::string& row : rows) tap(shell, row);
    };
}

Scene editor(const std::string& name, std::vector<std::string> rows) {
    return {name, path<EventEditViewController>(std::move(rows))};
}

Scene settings(const std::string& name, std::vector<std::string> rows) {
    return {name, path<SettingsViewController>(std::move(rows), SettingsViewController::Services{})};
}

}  // namespace

std::vector<Scene> scenes() {
    return {
        settings("settings", {}),
        settings("settings-defaults", {"defaultValues"}),
        settings("settings-theme", {"theme"}),
        settings("settings-information", {"about"}),
        editor("editor", {}),
        editor("editor-date", {"date"}),
        editor("editor-duration", {"duration"}),
        editor("editor-repeat", {"repeat"}),
        editor("editor-units", {"units"}),
        editor("editor-alerts", {"alerts"}),
        editor("editor-sound", {"sound"}),
        editor("editor-background", {"background"}),
        editor("editor-font", {"font"}),
        editor("editor-color", {"textColor"}),
        editor("editor-note", {"note"}),
        {"editor-icon",
         [](Shell& shell) {
             shell.navigation().present(std::make_shared<EventEditViewController>());
             TableScreen& screen = top(shell);
             screen.tapItem(*screen.pathOfRow("header"), EventHeaderContent::iconPart);
         }},
        {"editor-category",
         [](Shell& shell) {
             shell.navigation().present(std::make_shared<EventEditViewController>());
             TableScreen& screen = top(shell);
             screen.tapItem(*screen.pathOfRow("header"), EventHeaderContent::categoryPart);
         }},
    };
}

}  // namespace dayward
