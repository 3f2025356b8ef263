// Notifications as commands print them.
#pragma once

#include <vector>

#include "cli/Output.h"
#include "platform/LocalNotification.h"

namespace dayward {

class Environment;

/// Moment, text, owner, sound and badge number; what is absent is null.
JSON notificationJSON(const LocalNotification& notification);

/// One a line, by the moment: "Jun 30, 2026, 9:30 AM  Tea is happening!". `isSnoozed` says, for each place, what is
/// marked as put off; it may be shorter than the list.
void printNotificationLines(const Environment& environment, const std::vector<LocalNotification>& notifications,
                            const std::vector<bool>& isSnoozed = {});

}  // namespace dayward
