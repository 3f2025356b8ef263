// dayward notifications [--scheduled], dayward notifications test|refresh
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <utility>

#include "Classes/App/AppServices.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "agent/desktop/AgentDevice.h"
#include "alerts/AlertHealth.h"
#include "alerts/EventNotification.h"
#include "alerts/NotificationDifference.h"
#include "alerts/NotificationsManager.h"
#include "cli/Command.h"
#include "cli/NotificationList.h"
#include "cli/Program.h"
#include "cli/RefreshSchedule.h"
#include "platform/Environment.h"
#include "platform/LocalNotifications.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

JSON withOwnerName(JSON fields, const LocalNotification& notification) {
    const auto event = EventLocalStore::shared().eventByIdentifier(eventIdentifier(notification));
    fields["ownerName"] = event && event->name() ? JSON(*event->name()) : JSON(nullptr);
    return fields;
}

void printWanted(const Environment& environment, bool json) {
    const auto wanted = NotificationsManager::wantedNotifications();
    if (!json) {
        if (wanted.empty()) printLine(localized("No notifications"));
        return printNotificationLines(environment, wanted);
    }
    JSON list = JSON::array();
    for (const LocalNotification& one : wanted) list.push_back(withOwnerName(notificationJSON(one), one));
    printJSON({{"notifications", std::move(list)}});
}

struct Scheduled {
    LocalNotification notification;
    bool isSnoozed = false;
};

/// What the device's schedule holds, as it is due in the zone of now.
std::vector<Scheduled> scheduledNow(LocalNotifications& device) {
    const TimeZone here = Environment::current().timeZone();
    std::vector<Scheduled> scheduled;
    for (auto& one : device.scheduledLocalNotifications()) scheduled.push_back({asDueHere(std::move(one), here), false});
    for (auto& one : device.snoozedLocalNotifications()) scheduled.push_back({asDueHere(std::move(one), here), true});
    std::ranges::stable_sort(scheduled, firesBefore, &Scheduled::notification);
    return scheduled;
}

void printScheduled(const Environment& environment, bool json) {
    const auto scheduled = scheduledNow(*environment.localNotifications());
    JSON list = JSON::array();
    std::vector<LocalNotification> notifications;
    std::vector<bool> isSnoozed;
    for (const Scheduled& one : scheduled) {
        list.push_back(withOwnerName(notificationJSON(one.notification), one.notification));
        list.back()["snoozed"] = one.isSnoozed;
        notifications.push_back(one.notification);
        isSnoozed.push_back(one.isSnoozed);
    }
    if (json) return printJSON({{"notifications", std::move(list)}});
    if (scheduled.empty()) printLine(localized("No notifications"));
    printNotificationLines(environment, notifications, isSnoozed);
}

/// What the application does in the background, without it.
Result<> refreshInBackground() {
    const AppServices services = makeAppServices();
    (void)services.cloud->performBackgroundSynch();
    services.missedEvents->find();
    TRY_VOID(refreshSchedule());
    services.missedEvents->saveState();
    return {};
}

Result<> sendTest(const GlobalOptions& options) {
    TRY_VOID(AgentDevice(agentOf(options)).show(testAlert()));
    options.json ? printJSON({{"sent", true}}) : printLine(localized("Sent"));
    return {};
}

}  // namespace

void addNotificationsCommand(CLI::App& app, ChosenCommand& chosen) {
    CLI::App* command = app.add_subcommand("notifications", "What the alerts will say, and when: the nearest first");
    const auto scheduled = std::make_shared<bool>(false);
    command->add_flag("--scheduled", *scheduled, "What the device has been given to show, snoozed alerts included");
    CLI::App* refresh = command->add_subcommand("refresh", "Find what was missed, and schedule everything anew");
    CLI::App* test = command->add_subcommand("test", "Show an alert now");
    command->require_subcommand(0, 1);
    command->callback([=, &chosen] {
        if (test->parsed()) chosen.needsStore = false;
        chosen.action = [=](Environment& environment, const GlobalOptions& options) -> Result<> {
            if (refresh->parsed()) return refreshInBackground();
            if (test->parsed()) return sendTest(options);
            *scheduled ? printScheduled(environment, options.json) : printWanted(environment, options.json);
            return {};
        };
    });
}

}  // namespace dayward
