// Comparing lists of notifications: their order, what makes two the same, and what must change so that a
// schedule holds what is wanted. Pure functions; any thread.
#pragma once

#include <string>
#include <vector>

#include "platform/LocalNotification.h"

namespace dayward {

/// Equal for two notifications with the same owner, fire date and body; where there is no body, with the same
/// badge number.
std::string notificationKey(const LocalNotification& notification);

/// By fire date, those without one last. At the same moment those of events come before silent ones, and those
/// of different events stand in the order of their identifiers, so that a cut always falls at the same place.
bool firesBefore(const LocalNotification& one, const LocalNotification& other);

/// Where a notification stands in that order.
struct FirePlace {
    double moment;             ///< in seconds; infinite without a fire date
    const std::string* owner;  ///< not owned; null for a silent one

    bool operator<(const FirePlace& other) const;
};
/// Good as long as the notification.
FirePlace firePlaceOf(const LocalNotification& notification);

/// What leads from a schedule to what is wanted.
struct NotificationDifference {
    std::vector<LocalNotification> cancelled, scheduled;

    [[nodiscard]] bool isEmpty() const { return cancelled.empty() && scheduled.empty(); }
};

/// A scheduled notification with the key of a wanted one stays, unless its sound, zone or anything else beside
/// the key has changed: then the wanted one takes its place.
NotificationDifference notificationDifference(const std::vector<LocalNotification>& scheduled,
                                              const std::vector<LocalNotification>& wanted);

}  // namespace dayward
