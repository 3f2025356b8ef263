// The device's schedule, with the agent that fires it started as soon as something is scheduled. Any thread.
#pragma once

#include <memory>
#include <utility>

#include "agent/desktop/AgentClient.h"
#include "platform/LocalNotifications.h"

namespace dayward {

class AgentNotifications final : public LocalNotifications {
public:
    AgentNotifications(std::shared_ptr<LocalNotifications> schedule, AgentClient agent)
        : schedule_(std::move(schedule)), agent_(std::move(agent)) {}

    /// Starts the agent where something waits, or the icon has a number, and it does not run. A failure is a debug
    /// line: without a desktop nothing can be shown.
    void keepAgent();

    // LocalNotifications
    void registerUserNotificationSettings(UserNotificationTypes types) override {
        schedule_->registerUserNotificationSettings(types);
    }
    [[nodiscard]] std::vector<LocalNotification> scheduledLocalNotifications() override {
        return schedule_->scheduledLocalNotifications();
    }
    [[nodiscard]] std::vector<LocalNotification> snoozedLocalNotifications() override {
        return schedule_->snoozedLocalNotifications();
    }
    Result<> change(const std::vector<LocalNotification>& cancelled,
                    const std::vector<LocalNotification>& scheduled) override;
    Result<> changeSnoozed(const std::vector<LocalNotification>& removed,
                           const std::vector<LocalNotification>& restored) override;
    [[nodiscard]] std::int64_t applicationIconBadgeNumber() override { return schedule_->applicationIconBadgeNumber(); }
    void setApplicationIconBadgeNumber(std::int64_t number) override;

private:
    const std::shared_ptr<LocalNotifications> schedule_;
    const AgentClient agent_;
};

}  // namespace dayward
