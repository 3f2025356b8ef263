// The device's schedule of notifications over its file. Needs no bus: whoever fires them watches the file.
#pragma once

#include "platform/LocalNotifications.h"
#include "platform/NotificationSchedule.h"

namespace dayward {

class ScheduledNotifications final : public LocalNotifications {
public:
    explicit ScheduledNotifications(NotificationSchedule schedule) : schedule_(std::move(schedule)) {}

    /// A desktop asks nobody for permission.
    void registerUserNotificationSettings(UserNotificationTypes) override {}
    [[nodiscard]] std::vector<LocalNotification> scheduledLocalNotifications() override;
    [[nodiscard]] std::vector<LocalNotification> snoozedLocalNotifications() override;
    Result<> change(const std::vector<LocalNotification>& cancelled,
                    const std::vector<LocalNotification>& scheduled) override;
    Result<> changeSnoozed(const std::vector<LocalNotification>& removed,
                           const std::vector<LocalNotification>& restored) override;
    [[nodiscard]] std::int64_t applicationIconBadgeNumber() override;
    void setApplicationIconBadgeNumber(std::int64_t number) override;

private:
    [[nodiscard]] NotificationSchedule::Content content() const;
    Result<> edit(const std::function<void(NotificationSchedule::Content&)>& change);

    NotificationSchedule schedule_;
};

}  // namespace dayward
