#include <string>
#include <utility>
#include <vector>

#include "Classes/App/EventFactory.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/Info/SettingsViewController.h"
#include "Classes/Interface/Screens/TableScreen.h"
#include "alerts/MissedEventsHelper.h"
#include "alerts/NotificationsManager.h"
#include "platform/Environment.h"
#include "platform/Locale.h"
#include "shell/Scenes.h"
#include "support/FakeNotificationDevice.h"

namespace dayward {

namespace {

constexpr const char* kPrefix = "scene-";
constexpr const char* kLong = "scene-long";
constexpr const char* kToday = "scene-today";
constexpr const char* kMissed = "scene-missed";
constexpr double kDay = 86400;

bool isRussian() { return Environment::current().locale().languageCode() == "ru"; }

std::shared_ptr<HHEvent> event(const char* identifier, const char* english, const char* russian, double days) {
    auto made = EventFactory::createEvent();
    made->setIdentifier(identifier);
    made->setName(isRussian() ? russian : english);
    made->setDate(Environment::current().now() + TimeInterval(days * kDay));
    made->setIntervalFormat(HHEventDateFormat());
    return made;
}

void storeEvents() {
    const auto today = event(kToday, "Lunch with Maria", "Обед с Марией", 0);
    today->setTimes({13 * 60 + 30});
    today->setIntervalFormat({CalendarUnit::hour | CalendarUnit::minute, TextStyle::full});
    XDIDateInterval before;
    before.minute = 15;
    today->alerts().list = {XDIDateInterval(), before};
    const auto longest = event(kLong, "A long weekend with everybody in a house by the lake",
                               "Длинные выходные со всеми в доме у озера", 500);
    longest->setBackground(std::make_shared<NamedEventBackgroundPicture>("bg-05.jpg"));
    longest->appearance().textColor = Color::white();
    longest->appearance().fontName = "SnellRoundhand-Black";
    longest->setIntervalFormat({CalendarUnit::year | CalendarUnit::month | CalendarUnit::week | CalendarUnit::day |
                                    CalendarUnit::hour | CalendarUnit::minute,
                                TextStyle::full});
    longest->setNote(isRussian() ? "Ключ у соседки, дом 12. Взять дрова, лодку и настольные игры. Маша привезёт пирог, "
                                   "а Олег – гитару; выезжаем в восемь утра от вокзала."
                                 : "The key is at number 12. Bring firewood, the boat and board games. Masha has the "
                                   "pie and Oleg the guitar; we leave at eight from the station.");
    const auto missed = event(kMissed, "Call the dentist", "Позвонить зубному врачу", -2);
    EventLocalStore::shared().updateEvents({today, longest, missed});
    MissedEventsHelper::setMissedEvents({kMissed});
}

void showDetail(Stage& stage) { stage.list.presentDetailsForEventAtIdentifier(kLong); }

void edit(Stage& stage) {
    stage.shell.navigation().present(
        std::make_shared<EventEditViewController>(EventLocalStore::shared().eventByIdentifier(kLong)));
}

void askForDeletion(Stage& stage) {
    edit(stage);
    auto& editor = dynamic_cast<TableScreen&>(*stage.shell.navigation().topScreen());
    editor.select(*editor.pathOfRow("delete"));
}

void showAlerts(Stage& stage) {
    (void)NotificationsManager::syncRefresh();
    SettingsViewController::Services services;
    services.notificationDevice = std::make_shared<FakeNotificationDevice>();
    stage.shell.navigation().present(std::make_shared<SettingsViewController>(services));
    auto& settings = dynamic_cast<TableScreen&>(*stage.shell.navigation().topScreen());
    settings.select(*settings.pathOfRow("alerts"));
}

/// What an empty list was emptied of.
std::vector<std::shared_ptr<HHEvent>>& removedEvents() {
    static std::vector<std::shared_ptr<HHEvent>> removed;
    return removed;
}

void removeAll(Stage&) {
    removedEvents() = EventLocalStore::shared().allEvents();
    EventLocalStore::shared().removeAllEvents();
}

Scene eventful(const std::string& name, void (*show)(Stage&)) {
    return {name, [show](Stage& stage) {
                storeEvents();
                show(stage);
            }};
}

}  // namespace

std::vector<Scene> eventfulScenes() {
    return {
        eventful("list-full", [](Stage&) {}),
        eventful("list-full-editing", [](Stage& stage) { stage.list.setEditing(true); }),
        eventful("detail-long", showDetail),
        eventful("editor-stored", edit),
        eventful("question", askForDeletion),
        eventful("alerts-next", showAlerts),
        {"list-empty", removeAll},
        eventful("list-removed", [](Stage& stage) {
            const auto path = stage.list.table().pathOfEvent(kToday);
            if (path) stage.list.deleteRow(*path);
        }),
    };
}

void leaveEventfulScene() {
    EventLocalStore::shared().updateEvents(std::exchange(removedEvents(), {}));
    std::vector<std::shared_ptr<HHEvent>> made;
    for (const auto& stored : EventLocalStore::shared().allEvents()) {
        if (stored->identifier().starts_with(kPrefix)) made.push_back(stored);
    }
    EventLocalStore::shared().removeEvents(made);
    MissedEventsHelper::clear();
    (void)NotificationsManager::syncRefresh();
}

}  // namespace dayward
