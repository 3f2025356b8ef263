#include "alerts/NotificationDifference.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <unordered_map>

#include "alerts/EventNotification.h"

namespace dayward {

namespace {

double momentOf(const LocalNotification& notification) {
    return notification.fireDate ? notification.fireDate->secondsSinceReference()
                                 : std::numeric_limits<double>::infinity();
}

/// Of two different moments never the same.
std::string momentText(const LocalNotification& notification) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, momentOf(notification)).ptr};
}

/// As eventIdentifier(), without a copy.
const std::string* ownerOf(const LocalNotification& notification) {
    const auto found = notification.userInfo.find(kNotificationObjectKey);
    return found != notification.userInfo.end() ? found->second.string() : nullptr;
}

using ByKey = std::unordered_map<std::string, const LocalNotification*>;

/// Of two with one key the first counts.
ByKey byKey(const std::vector<LocalNotification>& notifications) {
    ByKey result;
    for (const LocalNotification& notification : notifications) {
        result.try_emplace(notificationKey(notification), &notification);
    }
    return result;
}

/// Those of the first list that are not the same in the second.
std::vector<LocalNotification> without(const std::vector<LocalNotification>& notifications, const ByKey& others) {
    std::vector<LocalNotification> result;
    for (const LocalNotification& notification : notifications) {
        const auto other = others.find(notificationKey(notification));
        if (other == others.end() || *other->second != notification) result.push_back(notification);
    }
    return result;
}

}  // namespace

std::string notificationKey(const LocalNotification& notification) {
    const std::string what = notification.alertBody
                                 ? "text " + *notification.alertBody
                                 : "badge " + std::to_string(notification.applicationIconBadgeNumber.value_or(-1));
    return momentText(notification) + "\n" + eventIdentifier(notification).value_or("") + "\n" + what;
}

bool FirePlace::operator<(const FirePlace& other) const {
    if (moment != other.moment) return moment < other.moment;
    return owner != nullptr && (other.owner == nullptr || *owner < *other.owner);
}

FirePlace firePlaceOf(const LocalNotification& notification) {
    return {momentOf(notification), ownerOf(notification)};
}

bool firesBefore(const LocalNotification& one, const LocalNotification& other) {
    return firePlaceOf(one) < firePlaceOf(other);
}

NotificationDifference notificationDifference(const std::vector<LocalNotification>& scheduled,
                                              const std::vector<LocalNotification>& wanted) {
    if (scheduled == wanted) return {};
    return {without(scheduled, byKey(wanted)), without(wanted, byKey(scheduled))};
}

}  // namespace dayward
