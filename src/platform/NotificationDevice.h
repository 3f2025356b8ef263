// Who keeps and shows the scheduled notifications on this device, for whoever wants to know whether they
// will come. Any thread; each call may take some seconds.
#pragma once

#include <optional>
#include <string>

#include "platform/LocalNotification.h"
#include "platform/Result.h"

namespace dayward {

/// As it is now.
struct NotificationDeviceState {
    bool keeperAnswers = false;             ///< what fires them while the program is closed is there, or can be started
    std::optional<std::string> service;     ///< the name of what shows them; nothing where nothing does
    bool hasActions = false;                ///< it shows buttons
    std::optional<bool> isQuiet;            ///< do not disturb is on; nothing where the service does not tell
};

class NotificationDevice {
public:
    virtual ~NotificationDevice() = default;

    [[nodiscard]] virtual NotificationDeviceState state() = 0;
    /// Shows one at once, on the same way as a scheduled one, and leaves the schedule as it is.
    virtual Result<> show(const LocalNotification& notification) = 0;
};

}  // namespace dayward
