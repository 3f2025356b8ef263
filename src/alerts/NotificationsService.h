// Keeps the scheduled notifications equal to what the events want.
#pragma once

namespace dayward {

struct LocalNotification;

class NotificationsService {
public:
    virtual ~NotificationsService() = default;
    /// Rebuilds all of them and returns when that is done. Any thread.
    virtual void syncRefresh() = 0;
    /// Shows one that fired while the program is in sight. Main thread.
    virtual void showNotification(const LocalNotification& notification) = 0;
};

/// Schedules and shows nothing.
class NoNotifications final : public NotificationsService {
public:
    void syncRefresh() override {}
    void showNotification(const LocalNotification&) override {}
};

}  // namespace dayward
