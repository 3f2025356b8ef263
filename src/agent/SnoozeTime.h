// When an alert that the user puts off comes again.
#pragma once

#include "agent/NotificationDisplay.h"
#include "platform/LocalNotification.h"
#include "platform/TimeZone.h"

namespace dayward {

/// The notification as a schedule entry of its own. Ten minutes and an hour count from now; tomorrow is the next day
/// at the time of day at which it was due, whatever zone the device is in then.
LocalNotification snoozedNotification(const LocalNotification& notification, Snooze snooze, Date now,
                                      const TimeZone& here);

}  // namespace dayward
