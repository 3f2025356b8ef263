#include "cli/NotificationList.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "alerts/EventNotification.h"
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

/// What it says, or which number it sets.
std::string textOf(const LocalNotification& notification) {
    if (notification.alertBody) return *notification.alertBody;
    const auto& number = notification.applicationIconBadgeNumber;
    return localized("Badge") + (number ? " " + std::to_string(*number) : "");
}

}  // namespace

JSON notificationJSON(const LocalNotification& notification) {
    const auto& date = notification.fireDate;
    return {{"fireDate", date ? JSON(isoText(*date)) : JSON(nullptr)},
            {"fireDateSeconds", date ? JSON(date->secondsSinceReference()) : JSON(nullptr)},
            {"body", orNull(notification.alertBody)},
            {"owner", orNull(eventIdentifier(notification))},
            {"sound", orNull(notification.soundName)},
            {"badgeNumber", orNull(notification.applicationIconBadgeNumber)}};
}

void printNotificationLines(const Environment& environment, const std::vector<LocalNotification>& notifications,
                            const std::vector<bool>& isSnoozed) {
    const auto formatter = DateFormatter::withStyles(DateFormatter::Style::medium, DateFormatter::Style::short_,
                                                     environment.locale(), environment.timeZone());
    std::vector<std::string> dates;
    int width = 0;
    for (const LocalNotification& notification : notifications) {
        dates.push_back(notification.fireDate ? formatter.stringFromDate(*notification.fireDate) : "");
        width = std::max(width, displayWidth(dates.back()));
    }
    for (std::size_t place = 0; place < notifications.size(); ++place) {
        const bool snoozed = place < isSnoozed.size() && isSnoozed[place];
        const std::string mark = snoozed ? " (" + localized("snoozed") + ")" : "";
        printLine(fitted(padded(dates[place], width) + kGap + textOf(notifications[place]) + mark, terminalWidth()));
    }
}

}  // namespace dayward
