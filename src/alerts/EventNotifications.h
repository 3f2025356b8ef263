// The notifications of one event. Works in the current environment.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "alerts/XELNotificationCreator.h"
#include "platform/Date.h"
#include "platform/LocalNotification.h"

namespace dayward {

class HHEvent;
class XDIDateInterval;

/// How many an event gets at most, but for the rounding of XELNotificationCreator.
inline constexpr std::size_t kMaximumNotificationsForEvent = 30;

/// What a notification for that alert of an event of that name says.
std::string notificationText(const std::string& name, const XDIDateInterval& alert);

/// What should be scheduled for an event now, each notification made when it is asked for. One thread; the event
/// outlives it.
class EventNotifications {
public:
    using Firing = XELNotificationCreator::Firing;

    explicit EventNotifications(const HHEvent& event);

    [[nodiscard]] const HHEvent& event() const { return event_; }
    /// Alert by alert, for each by date. Two alerts that come to the same text at the same moment give one. What
    /// fires after `latest` is left out.
    [[nodiscard]] std::vector<Firing> firings(std::optional<Date> latest = std::nullopt);
    /// Of one of the firings that were asked for last.
    [[nodiscard]] LocalNotification notification(const Firing& firing);

private:
    [[nodiscard]] bool isSame(const Firing& one, const Firing& other);
    void removeRepeated(std::vector<Firing>& firings);

    const HHEvent& event_;
    XELNotificationCreator creator_;
};

/// All of them. Any thread.
std::vector<LocalNotification> notificationsOfEvent(const HHEvent& event);

}  // namespace dayward
