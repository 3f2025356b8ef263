#include "agent/SnoozeTime.h"

#include <cmath>

namespace dayward {

namespace {

constexpr double kDay = 86400;

Date tomorrow(Date due, Date now, const TimeZone& here) {
    const double today = std::floor(here.localOfInstant(now) / kDay) * kDay;
    const double dueLocal = here.localOfInstant(due);
    const double timeOfDay = dueLocal - std::floor(dueLocal / kDay) * kDay;
    return here.instantOfLocal(today + kDay + timeOfDay);
}

}  // namespace

LocalNotification snoozedNotification(const LocalNotification& notification, Snooze snooze, Date now,
                                      const TimeZone& here) {
    LocalNotification later = notification;
    later.timeZone.reset();
    switch (snooze) {
        case Snooze::tenMinutes:
            later.fireDate = now + TimeInterval(600);
            break;
        case Snooze::oneHour:
            later.fireDate = now + TimeInterval(3600);
            break;
        case Snooze::tomorrow:
            later.fireDate = tomorrow(dueDate(notification, here).value_or(now), now, here);
            later.timeZone = here.name();
            break;
    }
    return later;
}

}  // namespace dayward
