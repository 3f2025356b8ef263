// The notifications of one event. Works in the current environment. Any thread.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/Date.h"
#include "platform/LocalNotification.h"

namespace dayward {

class HHEvent;
class XDIDateInterval;

/// How many an event gets at most, but for the rounding of XELNotificationCreator.
inline constexpr std::size_t kMaximumNotificationsForEvent = 30;

/// What a notification for that alert of an event of that name says.
std::string notificationText(const std::string& name, const XDIDateInterval& alert);

/// What should be scheduled for the event now: alert by alert, for each by date. Two alerts that come to the
/// same text at the same moment give one. What fires after `latest` is left out.
std::vector<LocalNotification> notificationsOfEvent(const HHEvent& event, std::optional<Date> latest = std::nullopt);

}  // namespace dayward
