// A device that answers what the test says, and keeps what it is to show.
#pragma once

#include <vector>

#include "platform/NotificationDevice.h"

namespace dayward {

class FakeNotificationDevice final : public NotificationDevice {
public:
    NotificationDeviceState state() override { return answer; }
    Result<> show(const LocalNotification& notification) override {
        if (!answer.service) return failure("nothing shows notifications");
        shown.push_back(notification);
        return {};
    }

    NotificationDeviceState answer{.keeperAnswers = true, .service = "Desk", .hasActions = true, .isQuiet = {}};
    std::vector<LocalNotification> shown;
};

}  // namespace dayward
