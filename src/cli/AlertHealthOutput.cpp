#include "cli/AlertHealthOutput.h"

#include "alerts/AlertHealth.h"
#include "cli/Output.h"
#include "cli/Terminal.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

JSON healthJSON(const AlertHealth& health) {
    const NotificationDeviceState& device = health.device;
    return {{"alertsWillCome", health.alertsWillCome()},
            {"helperAnswers", device.keeperAnswers},
            {"service", device.service ? JSON(*device.service) : JSON(nullptr)},
            {"hasActions", device.hasActions},
            {"doNotDisturb", device.isQuiet ? JSON(*device.isQuiet) : JSON(nullptr)},
            {"scheduled", health.scheduledCount},
            {"problems", health.problems()}};
}

void printValue(const char* label, const std::string& value) { printLine(localized(label) + ": " + printable(value)); }

std::string yesOrNo(bool value) { return localized(value ? "Yes" : "No"); }

}  // namespace

void printAlertHealth(const AlertHealth& health, bool json) {
    if (json) return printJSON(healthJSON(health));
    printLine(localized(health.alertsWillCome() ? "Alerts will come, also while Dayward is closed."
                                                : "Alerts will not come."));
    for (const std::string& problem : health.problems()) printLine(problem);
    const NotificationDeviceState& device = health.device;
    printValue("Helper answers", yesOrNo(device.keeperAnswers));
    printValue("Shown by", device.service.value_or(localized("None")));
    if (device.service) printValue("Buttons on alerts", yesOrNo(device.hasActions));
    if (device.isQuiet) printValue("Do not disturb", yesOrNo(*device.isQuiet));
    printLine(formatText(localized("Scheduled: %@"), {std::to_string(health.scheduledCount)}));
}

}  // namespace dayward
