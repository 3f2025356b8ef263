// dayward notifications [health|test|refresh]
#include <CLI/CLI.hpp>
#include <algorithm>

#include "Classes/App/AppServices.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "agent/desktop/AgentDevice.h"
#include "alerts/AlertHealth.h"
#include "alerts/EventNotification.h"
#include "alerts/NotificationsManager.h"
#include "cli/AlertHealthOutput.h"
#include "cli/Command.h"
#include "cli/Output.h"
#include "cli/Program.h"
#include "cli/Terminal.h"
#include "intervals/ISODate.h"
#include "platform/DateFormatter.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

constexpr const char* kGap = "  ";

template <class T>
JSON orNull(const std::optional<T>& value) {
    return value ? JSON(*value) : JSON(nullptr);
}

JSON notificationJSON(const LocalNotification& notification) {
    const auto& date = notification.fireDate;
    const auto owner = eventIdentifier(notification);
    const auto event = EventLocalStore::shared().eventByIdentifier(owner);
    return {{"fireDate", date ? JSON(isoText(*date)) : JSON(nullptr)},
            {"fireDateSeconds", date ? JSON(date->secondsSinceReference()) : JSON(nullptr)},
            {"body", orNull(notification.alertBody)},
            {"owner", orNull(owner)},
            {"ownerName", event ? orNull(event->name()) : JSON(nullptr)},
            {"sound", orNull(notification.soundName)},
            {"badgeNumber", orNull(notification.applicationIconBadgeNumber)}};
}

/// What it says, or which number it sets.
std::string textOf(const LocalNotification& notification) {
    if (notification.alertBody) return *notification.alertBody;
    const auto& number = notification.applicationIconBadgeNumber;
    return localized("Badge") + (number ? " " + std::to_string(*number) : "");
}

void printLines(const Environment& environment, const std::vector<LocalNotification>& notifications) {
    const auto formatter = DateFormatter::withStyles(DateFormatter::Style::medium, DateFormatter::Style::short_,
                                                     environment.locale(), environment.timeZone());
    std::vector<std::string> dates;
    int width = 0;
    for (const LocalNotification& notification : notifications) {
        dates.push_back(notification.fireDate ? formatter.stringFromDate(*notification.fireDate) : "");
        width = std::max(width, displayWidth(dates.back()));
    }
    for (std::size_t index = 0; index < notifications.size(); ++index) {
        printLine(fitted(padded(dates[index], width) + kGap + textOf(notifications[index]), terminalWidth()));
    }
    if (notifications.empty()) printLine(localized("No notifications"));
}

void printNotifications(const Environment& environment, const std::vector<LocalNotification>& notifications,
                        bool json) {
    if (!json) return printLines(environment, notifications);
    JSON list = JSON::array();
    for (const LocalNotification& notification : notifications) list.push_back(notificationJSON(notification));
    printJSON({{"notifications", std::move(list)}});
}

/// What the application does in the background, without it.
Result<> refreshInBackground() {
    const AppServices services = makeAppServices();
    (void)services.cloud->performBackgroundSynch();
    services.missedEvents->find();
    services.notifications->syncRefresh();
    services.missedEvents->saveState();
    return {};
}

bool tellHealth(const GlobalOptions& options) {
    AgentDevice device(agentOf(options));
    const AlertHealth health = AlertHealth::present(&device);
    printAlertHealth(health, options.json);
    return health.alertsWillCome();
}

}  // namespace

void addNotificationsCommand(CLI::App& app, ChosenCommand& chosen) {
    CLI::App* command = app.add_subcommand("notifications", "What the alerts will say, and when: the nearest first");
    CLI::App* refresh = command->add_subcommand("refresh", "Schedule everything anew")->group("");
    CLI::App* health = command->add_subcommand("health", "Whether alerts will come; asks the desktop");
    CLI::App* test = command->add_subcommand("test", "Show one alert now");
    command->require_subcommand(0, 1);
    command->callback([=, &chosen] {
        chosen.needsStore = !health->parsed() && !test->parsed();
        chosen.action = [=, &chosen](Environment& environment, const GlobalOptions& options) -> Result<> {
            if (refresh->parsed()) return refreshInBackground();
            if (test->parsed()) return AgentDevice(agentOf(options)).show(testAlert());
            if (health->parsed()) {
                chosen.exitStatus = tellHealth(options) ? 0 : 1;
                return {};
            }
            printNotifications(environment, NotificationsManager::wantedNotifications(), options.json);
            return {};
        };
    });
}

}  // namespace dayward
