// The device's schedule of notifications: it outlives the process and is one for all processes of a home.
// It keeps at most kMaximumCount; what is scheduled beyond that is refused, latest first.
//
// Any thread, any process. A failure is logged with its reason and changes nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/LocalNotification.h"
#include "platform/Result.h"

namespace dayward {

/// What notifications may do; the platform's numbers, combined by "or".
enum class UserNotificationTypes : unsigned { none = 0, badge = 1, sound = 2, alert = 4 };

class LocalNotifications {
public:
    static constexpr std::size_t kMaximumCount = 64;

    virtual ~LocalNotifications() = default;

    /// Asks for the permission to notify, where the device wants to be asked.
    virtual void registerUserNotificationSettings(UserNotificationTypes types) = 0;
    /// What is still to fire, by fire date.
    [[nodiscard]] virtual std::vector<LocalNotification> scheduledLocalNotifications() = 0;
    /// Alerts that the user put off, by fire date. They take places of the schedule.
    [[nodiscard]] virtual std::vector<LocalNotification> snoozedLocalNotifications() = 0;
    /// One that equals a scheduled one changes nothing.
    void scheduleLocalNotification(const LocalNotification& notification) { (void)change({}, {notification}); }
    /// It no longer fires, and goes out of sight if it has fired.
    void cancelLocalNotification(const LocalNotification& notification) { (void)change({notification}, {}); }
    /// Cancels and schedules several as one change, which other processes see whole or not at all. The error is logged.
    virtual Result<> change(const std::vector<LocalNotification>& cancelled,
                            const std::vector<LocalNotification>& scheduled) = 0;

    /// Takes some that the user put off away and brings others back, as one change: their event goes, or comes back. One
    /// that equals a snoozed one changes nothing. The error is logged.
    virtual Result<> changeSnoozed(const std::vector<LocalNotification>& removed,
                                   const std::vector<LocalNotification>& restored) = 0;

    /// The number on the program's icon; 0 is none.
    [[nodiscard]] virtual std::int64_t applicationIconBadgeNumber() = 0;
    virtual void setApplicationIconBadgeNumber(std::int64_t number) = 0;
};

}  // namespace dayward
