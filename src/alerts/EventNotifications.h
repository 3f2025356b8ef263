// The notifications of one event. Works in the current environment.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "alerts/XELNotificationCreator.h"
#include "intervals/XDIDateInterval.h"
#include "platform/Date.h"
#include "platform/LocalNotification.h"

namespace dayward {

class HHEvent;

/// How many an event gets at most, but for the rounding of XELNotificationCreator.
inline constexpr std::size_t kMaximumNotificationsForEvent = 30;

/// What a notification for an alert says. Keeps the words of alerts, which many events share. One thread; works in
/// the language of the moment at which it was made.
class AlertTexts {
public:
    [[nodiscard]] std::string text(const std::string& name, const XDIDateInterval& alert);

private:
    /// All but the name.
    struct Words {
        XDIDateInterval alert;
        std::string format, length;
    };

    static Words wordsOf(const XDIDateInterval& alert);

    std::vector<Words> known_;
};

/// What should be scheduled for an event now, each notification made when it is asked for. One thread; the event
/// outlives it.
class EventNotifications {
public:
    using Firing = XELNotificationCreator::Firing;

    /// The texts outlive it.
    EventNotifications(const HHEvent& event, AlertTexts& texts);

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
