#include "alerts/EventNotifications.h"

#include <algorithm>
#include <utility>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "alerts/EventNotification.h"
#include "alerts/XELNotificationCreator.h"
#include "intervals/XDIFormatter.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

/// Nothing while the event is not on the disk.
std::optional<Date> modificationDate(const HHEvent& event) {
    EventLocalStore& store = EventLocalStore::shared();
    const auto path = store.URLForKey(store, event.identifier());
    if (!path) return std::nullopt;
    const auto status = Environment::current().files().status(*path);
    return status && *status ? std::optional((*status)->modified) : std::nullopt;
}

std::string nameOf(const HHEvent& event) {
    return event.name().value_or("").empty() ? localized("???") : *event.name();
}

/// Of one event: each moment and text stays once.
void removeRepeated(std::vector<LocalNotification>& notifications) {
    const auto isRepeated = [&](auto end) {
        return std::any_of(notifications.begin(), end, [&](const LocalNotification& one) {
            return one.fireDate == end->fireDate && one.alertBody == end->alertBody;
        });
    };
    auto kept = notifications.begin();
    for (auto next = notifications.begin(); next != notifications.end(); ++next) {
        if (kept != next) std::iter_swap(kept, next);
        if (!isRepeated(kept)) ++kept;
    }
    notifications.erase(kept, notifications.end());
}

}  // namespace

std::string notificationText(const std::string& name, const XDIDateInterval& alert) {
    const double value = alert.getSingleValue();
    if (value == 0) return formatText(localized("%@ is happening!"), {name});
    if (value < 0) {
        const XDIDateInterval since(alert.getSingleUnit(), -value);
        return formatText(localized("%@ since last %@!"),
                          {name, XDIFormatter::stringForDateInterval(since, TextStyle::full)});
    }
    return formatText(localized("%@ - is coming in %@!"),
                      {name, XDIFormatter::stringForDateInterval(alert, TextStyle::full)});
}

std::vector<LocalNotification> notificationsOfEvent(const HHEvent& event, std::optional<Date> latest) {
    XELNotificationCreator creator;
    creator.maxNotificationsCount = kMaximumNotificationsForEvent;
    creator.latestFireDate = latest;
    creator.objectKey = event.identifier();
    creator.objectModificationDate = modificationDate(event);
    creator.startDateDay = event.date();
    creator.startDateTimes = event.times();
    creator.rrule = event.rrule();
    creator.alerts = event.alerts().list.value_or(std::vector<XDIDateInterval>());
    creator.setSoundName(event.alerts().soundName);
    creator.alertBodyBlock = [name = nameOf(event)](const XDIDateInterval& alert) {
        return notificationText(name, alert);
    };
    std::vector<LocalNotification> notifications = creator.getNotifications();
    const Date now = Environment::current().now();
    std::erase_if(notifications, [&](const LocalNotification& one) { return *one.fireDate < now; });
    for (LocalNotification& one : notifications) setEventIdentifier(one, event.identifier());
    removeRepeated(notifications);
    return notifications;
}

}  // namespace dayward
