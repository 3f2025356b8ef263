// Whether alerts will come, as the settings and the command line tell it. A plain value.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/LocalNotification.h"
#include "platform/NotificationDevice.h"

namespace dayward {

struct AlertHealth {
    static constexpr std::size_t kShownNext = 3;

    NotificationDeviceState device;
    std::size_t scheduledCount = 0;       ///< alerts, also snoozed ones; what only sets the badge does not count
    std::vector<LocalNotification> next;  ///< the first kShownNext of them, as they are due here

    /// As things are now; without a device nothing answers. May take as long as the device does.
    static AlertHealth present(NotificationDevice* device);

    [[nodiscard]] bool alertsWillCome() const { return device.keeperAnswers && device.service; }
    /// The same as a sentence in the user's language.
    [[nodiscard]] std::string verdict() const;
    /// What is in the way, a sentence each in the user's language; also what only delays or hides alerts.
    [[nodiscard]] std::vector<std::string> problems() const;
};

/// What a test of the alerts shows: an alert of no event, with the default sound.
LocalNotification testAlert();

}  // namespace dayward
