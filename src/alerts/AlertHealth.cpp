#include "alerts/AlertHealth.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "alerts/NotificationDifference.h"
#include "platform/Environment.h"
#include "platform/LocalNotifications.h"
#include "platform/Strings.h"
#include "resources/XELAudioManager.h"

namespace dayward {

AlertHealth AlertHealth::present(NotificationDevice* device) {
    AlertHealth health;
    if (device != nullptr) health.device = device->state();
    LocalNotifications* schedule = Environment::current().localNotifications();
    if (schedule == nullptr) return health;
    auto alerts = schedule->scheduledLocalNotifications();
    std::ranges::move(schedule->snoozedLocalNotifications(), std::back_inserter(alerts));
    const TimeZone here = Environment::current().timeZone();
    for (LocalNotification& alert : alerts) alert = asDueHere(std::move(alert), here);
    std::ranges::stable_sort(alerts, firesBefore);
    std::erase_if(alerts, [](const LocalNotification& one) { return !one.alertBody; });
    health.scheduledCount = alerts.size();
    if (alerts.size() > kShownNext) alerts.resize(kShownNext);
    health.next = std::move(alerts);
    return health;
}

std::string AlertHealth::verdict() const {
    return localized(alertsWillCome() ? "Alerts will come, also while Dayward is closed." : "Alerts will not come.");
}

std::vector<std::string> AlertHealth::problems() const {
    std::vector<std::string> problems;
    if (!device.service) problems.push_back(localized("Your desktop has no service that shows notifications."));
    if (!device.keeperAnswers) {
        problems.push_back(localized("The helper that gives alerts while Dayward is closed does not answer."));
    }
    if (device.isQuiet.value_or(false)) {
        problems.push_back(localized("Do not disturb is on: the desktop keeps alerts back."));
    }
    return problems;
}

LocalNotification testAlert() {
    LocalNotification alert;
    alert.fireDate = Environment::current().now();
    alert.alertBody = localized("This is a test. Your alerts look and sound like this.");
    alert.soundName = XELAudioManager::kDefaultSoundName;
    return alert;
}

}  // namespace dayward
