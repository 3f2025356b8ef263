// The desktop as the device that keeps and shows notifications: the agent, and the notification service behind it.
#pragma once

#include <utility>

#include "agent/desktop/AgentClient.h"
#include "platform/NotificationDevice.h"

namespace dayward {

class AgentDevice final : public NotificationDevice {
public:
    explicit AgentDevice(AgentClient agent) : agent_(std::move(agent)) {}

    /// Starts the agent where it does not run. Where it cannot be started, the service tells about itself.
    [[nodiscard]] NotificationDeviceState state() override;
    Result<> show(const LocalNotification& notification) override { return agent_.show(notification); }

private:
    const AgentClient agent_;
};

}  // namespace dayward
