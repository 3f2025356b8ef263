#include "platform/linux/ScheduledNotifications.h"

#include <algorithm>

#include "platform/Log.h"

namespace dayward {

NotificationSchedule::Content ScheduledNotifications::content() const {
    auto read = schedule_.read();
    if (read) return *std::move(read);
    logError("notifications: " + read.error().description());
    return {};
}

Result<> ScheduledNotifications::edit(const std::function<void(NotificationSchedule::Content&)>& change) {
    auto changed = schedule_.change(change);
    if (!changed) logError("notifications: " + changed.error().description());
    return changed;
}

std::vector<LocalNotification> ScheduledNotifications::scheduledLocalNotifications() { return content().scheduled; }

std::vector<LocalNotification> ScheduledNotifications::snoozedLocalNotifications() {
    auto snoozed = content().snoozed;
    std::ranges::stable_sort(snoozed, {}, &LocalNotification::fireDate);
    return snoozed;
}

Result<> ScheduledNotifications::change(const std::vector<LocalNotification>& cancelled,
                                        const std::vector<LocalNotification>& scheduled) {
    return edit([&](NotificationSchedule::Content& content) {
        for (const LocalNotification& notification : cancelled) content.cancel(notification);
        for (const LocalNotification& notification : scheduled) content.schedule(notification);
    });
}

Result<> ScheduledNotifications::changeSnoozed(const std::vector<LocalNotification>& removed,
                                               const std::vector<LocalNotification>& restored) {
    return edit([&](NotificationSchedule::Content& content) {
        for (const LocalNotification& notification : removed) std::erase(content.snoozed, notification);
        for (const LocalNotification& notification : restored) content.snooze(notification);
    });
}

std::int64_t ScheduledNotifications::applicationIconBadgeNumber() { return content().badgeNumber; }

void ScheduledNotifications::setApplicationIconBadgeNumber(std::int64_t number) {
    (void)edit([&](NotificationSchedule::Content& content) { content.badgeNumber = number; });
}

}  // namespace dayward
