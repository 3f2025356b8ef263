#include "agent/Unwritten.h"

#include <algorithm>

namespace dayward {

bool Unwritten::isEmpty() const {
    return claimed.empty() && shown.empty() && snoozed.empty() && !fetched && withdrawn.empty() && !isRebuilt;
}

void Unwritten::applyTo(DeliveryRecord::Content& record, const std::string& claimant) const {
    for (const LocalNotification& notification : claimed) record.claim(notification, claimant);
    for (const std::string& key : shown) record.markShown(key);
    if (fetched) record.fetched = fetched;
}

void Unwritten::applyTo(NotificationSchedule::Content& schedule) const {
    for (const LocalNotification& notification : snoozed) schedule.snooze(notification);
    for (const LocalNotification& notification : withdrawn) std::erase(schedule.withdrawn, notification);
    if (isRebuilt) schedule.needsRebuild = false;
}

}  // namespace dayward
