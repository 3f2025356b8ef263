// What an alert says on the desktop, in the user's language and customs. Pure functions of the current
// environment.
#pragma once

#include <string>
#include <vector>

#include "agent/NotificationDisplay.h"

namespace dayward {

struct AlertText {
    std::string summary, body;
};

/// What the service does with the second text.
enum class BodyKind { none, plain, markup };

/// The alert's own text, and its time where it is late. Without a body all is in the summary.
AlertText textOfAlert(const DueAlert& alert, BodyKind body);
/// How many, and a line for each of the first.
AlertText textOfDigest(const std::vector<DueAlert>& alerts, BodyKind body);

/// One in place of several, of which there is at least one: it says what they say, opens the event of the last and
/// sounds like the first that has a sound.
LocalNotification notificationOfDigest(const std::vector<DueAlert>& alerts);

/// The words of a button.
std::string snoozeLabel(Snooze snooze);

}  // namespace dayward
