#include "shell/Scenes.h"

#include <algorithm>
#include <stdexcept>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/Events/EventDetailViewController.h"
#include "Classes/Interface/Info/SettingsViewController.h"
#include "Classes/Interface/Screens/TableScreen.h"
#include "Classes/Settings/AppSettings.h"
#include "support/FakeNotificationDevice.h"

namespace dayward {

namespace {

TableScreen& top(Stage& stage) { return dynamic_cast<TableScreen&>(*stage.shell.navigation().topScreen()); }

void tap(Stage& stage, const std::string& row) {
    const auto path = top(stage).pathOfRow(row);
    if (!path) throw std::runtime_error("no row " + row + " on the screen " + top(stage).title());
    top(stage).select(*path);
}

/// A screen that is reached from the editor or the settings by taps on rows.
template <class Root, class... Arguments>
std::function<void(Stage&)> path(std::vector<std::string> rows, Arguments... arguments) {
    return [rows = std::move(rows), arguments...](Stage& stage) {
        stage.shell.navigation().present(std::make_shared<Root>(arguments...));
        for (const std::string& row : rows) tap(stage, row);
    };
}

Scene editor(const std::string& name, std::vector<std::string> rows) {
    return {name, path<EventEditViewController>(std::move(rows))};
}

Scene settings(const std::string& name, std::vector<std::string> rows) {
    SettingsViewController::Services services;
    services.notificationDevice = std::make_shared<FakeNotificationDevice>();
    services.canLock = true;
    return {name, path<SettingsViewController>(std::move(rows), services)};
}

Scene settingsWithoutServices(const std::string& name, std::vector<std::string> rows) {
    return {name, path<SettingsViewController>(std::move(rows), SettingsViewController::Services{})};
}

/// The same in each run.
std::vector<std::shared_ptr<HHEvent>> eventsByDate() {
    auto events = EventLocalStore::shared().allEvents();
    std::ranges::sort(events, {}, [](const auto& event) { return event->nextDate(); });
    return events;
}

/// Something that is found in any language.
std::string firstWordOfAnEvent() {
    const std::string name = eventsByDate().front()->name().value_or("");
    return name.substr(0, name.find(' '));
}

Scene list(const std::string& name, EventSortType order) {
    return {name, [order](Stage& stage) {
                AppSettings::setTableSortType(static_cast<std::int64_t>(order));
                stage.list.configureDataSources();
            }};
}

using ShareAction = void (HHShareToolbar::*)() const;

/// The detail of the event at that place of the list by date.
Scene detail(const std::string& name, std::size_t place, ShareAction share = nullptr) {
    return {name, [place, share](Stage& stage) {
                const auto events = eventsByDate();
                stage.list.presentDetailsForEventAtIdentifier(events.at(place % events.size())->identifier());
                const auto& screens = stage.shell.navigation().screens(
                    stage.shell.hasDetailPane() ? StackId::detail : StackId::root);
                auto* const shown = dynamic_cast<EventDetailViewController*>(screens.back().get());
                if (share != nullptr && shown != nullptr) (shown->shareToolbar()->*share)();
            }};
}


}  // namespace

std::vector<Scene> scenes() {
    return {
        list("list-by-name", EventSortType::byName),
        list("list-by-hand", EventSortType::byCustom),
        list("list", EventSortType::byDate),
        {"list-search", [](Stage& stage) { stage.list.setSearchText(firstWordOfAnEvent()); }},
        {"list-search-nothing", [](Stage& stage) { stage.list.setSearchText("xyzzy"); }},
        {"list-editing", [](Stage& stage) { stage.list.setEditing(true); }},
        detail("detail", 0),
        detail("detail-2", 2),
        detail("detail-3", 4),
        detail("share", 1, &HHShareToolbar::imageAction),
        detail("share-text", 1, &HHShareToolbar::textAction),
        settings("settings", {}),
        settings("settings-defaults", {"defaultValues"}),
        settings("settings-badge", {"badge"}),
        settings("settings-categories", {"categories"}),
        settings("settings-category", {"categories", "category:default"}),
        settings("settings-sort", {"sort"}),
        settings("settings-alerts", {"alerts"}),
        settingsWithoutServices("settings-alerts-none", {"alerts"}),
        settings("settings-widget", {"widget", "type1"}),
        settings("settings-theme", {"theme"}),
        settings("settings-language", {"language"}),
        settings("settings-information", {"about"}),
        settings("settings-licences", {"about", "licences"}),
        editor("editor", {}),
        editor("editor-date", {"date"}),
        editor("editor-time", {"date", "addTime"}),
        editor("editor-duration", {"duration"}),
        editor("editor-duration-custom", {"duration", "custom"}),
        editor("editor-repeat", {"repeat"}),
        editor("editor-repeat-custom", {"repeat", "custom"}),
        editor("editor-repeat-opened", {"repeat", "custom", "frequency", "months", "days"}),
        editor("editor-units", {"units"}),
        editor("editor-alerts", {"alerts"}),
        editor("editor-alert", {"alerts", "addBefore"}),
        editor("editor-sound", {"sound"}),
        editor("editor-background", {"background"}),
        editor("editor-font", {"font"}),
        editor("editor-color", {"textColor"}),
        editor("editor-note", {"note"}),
        {"editor-icon",
         [](Stage& stage) {
             stage.shell.navigation().present(std::make_shared<EventEditViewController>());
             TableScreen& screen = top(stage);
             screen.tapItem(*screen.pathOfRow("header"), EventEditHeaderCell::iconPart);
         }},
        {"editor-category",
         [](Stage& stage) {
             stage.shell.navigation().present(std::make_shared<EventEditViewController>());
             TableScreen& screen = top(stage);
             screen.tapItem(*screen.pathOfRow("header"), EventEditHeaderCell::categoryPart);
         }},
    };
}

}  // namespace dayward
