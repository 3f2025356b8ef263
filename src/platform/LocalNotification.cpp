#include "platform/LocalNotification.h"

#include "platform/TimeZone.h"

namespace dayward {

std::optional<Date> dueDate(const LocalNotification& notification, const TimeZone& here) {
    const auto& date = notification.fireDate;
    if (!date || !notification.timeZone || *notification.timeZone == here.name()) return date;
    const auto zone = TimeZone::named(*notification.timeZone);
    return zone ? here.instantOfLocal(zone->localOfInstant(*date)) : *date;
}

LocalNotification asDueHere(LocalNotification notification, const TimeZone& here) {
    notification.fireDate = dueDate(notification, here);
    if (notification.timeZone) notification.timeZone = here.name();
    return notification;
}

}  // namespace dayward
