// Where a notification is shown that fires while the program is in sight. Main thread.
#pragma once

#include <optional>
#include <string>

namespace dayward {

class NotificationPresenter {
public:
    virtual ~NotificationPresenter() = default;
    /// Shows an alert with that message and the buttons "OK" and "Show", which opens the event; without an
    /// event it does nothing. Takes away the one that was shown before, if it is still there.
    virtual void showNotificationAlert(const std::string& message, const std::optional<std::string>& eventIdentifier) = 0;
};

}  // namespace dayward
