#include "cli/AlertHealthOutput.h"

#include "alerts/AlertHealth.h"
#include "cli/NotificationList.h"
#include "cli/Terminal.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

void printValue(const char* label, const std::string& value) { printLine(localized(label) + ": " + printable(value)); }

std::string yesOrNo(bool value) { return localized(value ? "Yes" : "No"); }

}  // namespace

JSON alertHealthJSON(const AlertHealth& health) {
    const NotificationDeviceState& device = health.device;
    JSON next = JSON::array();
    for (const LocalNotification& alert : health.next) next.push_back(notificationJSON(alert));
    return {{"alertsWillCome", health.alertsWillCome()},
            {"helperAnswers", device.keeperAnswers},
            {"service", device.service ? JSON(*device.service) : JSON(nullptr)},
            {"hasActions", device.hasActions},
            {"doNotDisturb", device.isQuiet ? JSON(*device.isQuiet) : JSON(nullptr)},
            {"scheduled", health.scheduledCount},
            {"next", std::move(next)},
            {"problems", health.problems()}};
}

void printAlertHealth(const Environment& environment, const AlertHealth& health) {
    printLine(health.verdict());
    for (const std::string& problem : health.problems()) printLine(problem);
    const NotificationDeviceState& device = health.device;
    printValue("Helper answers", yesOrNo(device.keeperAnswers));
    printValue("Shown by", device.service.value_or(localized("None")));
    if (device.service) printValue("Buttons on alerts", yesOrNo(device.hasActions));
    if (device.isQuiet) printValue("Do not disturb", yesOrNo(*device.isQuiet));
    if (health.next.empty()) return printLine(localized("No alert is scheduled."));
    printLine(formatText(localized("Scheduled: %@"), {std::to_string(health.scheduledCount)}));
    printNotificationLines(environment, health.next);
}

}  // namespace dayward
